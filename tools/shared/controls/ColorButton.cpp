#include "ColorButton.h"

#include "ColorSwatch.h"
#include "Theme.h"

#include <QPainter>

CColorButton::CColorButton(QWidget* parent) : QAbstractButton(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void CColorButton::SetColor(const QColor& color)
{
    m_Color = color;
    setAccessibleDescription(QStringLiteral("Red %1, green %2, blue %3, alpha %4")
                                 .arg(color.red())
                                 .arg(color.green())
                                 .arg(color.blue())
                                 .arg(color.alpha()));
    update();
}

QSize CColorButton::sizeHint() const
{
    return {16 * CTheme::kGrid, 8 * CTheme::kGrid};
}

void CColorButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect inner = rect().adjusted(2, 2, -2, -2);
    DrawColorSwatch(painter, inner, m_Color);
    painter.setPen(CTheme::Get().GetColor(EThemeColor::GreyText));
    painter.drawRect(inner.adjusted(0, 0, -1, -1));
    if (!hasFocus())
        return;
    painter.setPen(QPen(CTheme::Get().GetColor(EThemeColor::Accent), 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}
