// Draws one icon of the set at the exact size in device pixels, in the theme's colours of the moment. The
// files are drawn in the light theme's icon colours, which are exchanged for those in force.
#pragma once

#include <QByteArray>
#include <QIconEngine>
#include <QString>

class CIconEngine final : public QIconEngine
{
public:
    // `name` as in icons/<name>.svg, which exists.
    explicit CIconEngine(QString name);

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal scale) override;
    QSize actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    // The window system asks for these; everything else draws at any size.
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override;
    QIconEngine* clone() const override;
    QString key() const override;

private:
    [[nodiscard]] QByteArray MakeSource(bool disabled) const;
    [[nodiscard]] QPixmap Render(const QSize& size, bool disabled) const;

    QString m_sName;
};
