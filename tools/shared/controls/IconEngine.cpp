#include "IconEngine.h"

#include "Theme.h"

#include <QFile>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace
{
constexpr int kSizes[] = {16, 24, 32, 48, 64, 128};

constexpr EThemeColor kIconColors[] = {EThemeColor::IconInk,    EThemeColor::IconPaper, EThemeColor::IconBlue,
                                       EThemeColor::IconFolder, EThemeColor::IconGreen, EThemeColor::IconRed,
                                       EThemeColor::IconAmber,  EThemeColor::IconViolet};

QByteArray ToSvg(const QColor& color)
{
    return color.name().toUpper().toLatin1();
}

// A disabled icon keeps its form and the difference between light and dark, and loses its colours: half way
// from its grey to the window.
QColor ToDisabled(const QColor& color)
{
    const int window = CTheme::Get().GetColor(EThemeColor::Window).lightness();
    const int grey = (qGray(color.rgb()) + window) / 2;
    return {grey, grey, grey};
}

// Through a colour that no file has, so that one exchange does not take part in the next.
QByteArray ToPlaceholder(EThemeColor color)
{
    return "@" + QByteArray::number(static_cast<int>(color)) + "@";
}
} // namespace

CIconEngine::CIconEngine(QString name) : m_sName(std::move(name)) {}

QByteArray CIconEngine::MakeSource(bool disabled) const
{
    QFile file(QStringLiteral(":/icons/%1.svg").arg(m_sName));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QByteArray source = file.readAll();
    for (const EThemeColor color : kIconColors)
        source.replace(ToSvg(CTheme::GetColor(color, false)), ToPlaceholder(color));
    for (const EThemeColor color : kIconColors)
    {
        const QColor shown = CTheme::Get().GetColor(color);
        source.replace(ToPlaceholder(color), ToSvg(disabled ? ToDisabled(shown) : shown));
    }
    return source;
}

QPixmap CIconEngine::Render(const QSize& size, bool disabled) const
{
    const QString key = QStringLiteral("corvane-icon/%1/%2x%3/%4%5")
                            .arg(m_sName)
                            .arg(size.width())
                            .arg(size.height())
                            .arg(CTheme::Get().IsDark() ? 'd' : 'l')
                            .arg(disabled ? 'x' : 'n');
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;
    pixmap = QPixmap(size);
    pixmap.fill(Qt::transparent);
    QSvgRenderer renderer(MakeSource(disabled));
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    QPainter painter(&pixmap);
    renderer.render(&painter);
    painter.end();
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

void CIconEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state)
{
    const qreal scale = painter->device()->devicePixelRatioF();
    painter->drawPixmap(rect, scaledPixmap(rect.size() * scale, mode, state, scale));
}

QPixmap CIconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state)
{
    return scaledPixmap(size, mode, state, 1);
}

QPixmap CIconEngine::scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State, qreal scale)
{
    if (size.isEmpty())
        return {};
    QPixmap pixmap = Render(size, mode == QIcon::Disabled);
    pixmap.setDevicePixelRatio(scale);
    return pixmap;
}

QSize CIconEngine::actualSize(const QSize& size, QIcon::Mode, QIcon::State)
{
    return size;
}

QList<QSize> CIconEngine::availableSizes(QIcon::Mode, QIcon::State)
{
    QList<QSize> sizes;
    for (const int size : kSizes)
        sizes.append({size, size});
    return sizes;
}

QIconEngine* CIconEngine::clone() const
{
    return new CIconEngine(*this);
}

QString CIconEngine::key() const
{
    return QStringLiteral("corvane-icon");
}
