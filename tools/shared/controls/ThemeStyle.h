// The toolkit's own drawing on the theme's grid: distances of layouts, icon sizes, the theme's icons in
// message boxes, and a frame around what has the focus that is always seen.
#pragma once

#include <QProxyStyle>

class CThemeStyle final : public QProxyStyle
{
public:
    CThemeStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override;
    QPixmap standardPixmap(StandardPixmap pixmap, const QStyleOption* option,
                           const QWidget* widget) const override;
};
