#include "WindowPlacement.h"

#include "Profile.h"
#include "RatioSplitter.h"

#include <QEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace
{
constexpr std::u16string_view kLeft = u"Window.Left";
constexpr std::u16string_view kRight = u"Window.Right";
constexpr std::u16string_view kTop = u"Window.Top";
constexpr std::u16string_view kBottom = u"Window.Bottom";
constexpr std::u16string_view kZoomed = u"Zoomed";
// A screen may be unplugged while a larger value is in the profile; nobody has a desktop of this size.
constexpr int kFarthest = 1 << 20;

class CPlacementKeeper final : public QObject
{
public:
    CPlacementKeeper(QWidget& window, const CWindowPlacement& placement)
        : QObject(&window), m_Window(window), m_Placement(placement)
    {
        window.installEventFilter(this);
    }

private:
    bool eventFilter(QObject* object, QEvent* event) override
    {
        // A spontaneous hide is the desktop's, as when the user minimises.
        if (event->type() == QEvent::Hide && !event->spontaneous())
            m_Placement.Store(m_Window);
        return QObject::eventFilter(object, event);
    }

    QWidget& m_Window;
    CWindowPlacement m_Placement;
};

long long GetOverlap(const QRect& one, const QRect& other)
{
    const QRect common = one & other;
    return common.isEmpty() ? 0 : static_cast<long long>(common.width()) * common.height();
}

QRect FindScreen(const QRect& place)
{
    QRect best = QGuiApplication::primaryScreen()->availableGeometry();
    for (const QScreen* screen : QGuiApplication::screens())
    {
        if (GetOverlap(screen->availableGeometry(), place) > GetOverlap(best, place))
            best = screen->availableGeometry();
    }
    return best;
}

QRect MoveOntoScreen(const QRect& place)
{
    const QRect screen = FindScreen(place);
    const int width = std::min(place.width(), screen.width());
    const int height = std::min(place.height(), screen.height());
    const int left = std::clamp(place.left(), screen.left(), screen.left() + screen.width() - width);
    const int top = std::clamp(place.top(), screen.top(), screen.top() + screen.height() - height);
    return {left, top, width, height};
}
} // namespace

CWindowPlacement::CWindowPlacement(CProfile& profile, std::u16string_view section)
    : m_pProfile(&profile), m_sSection(section)
{
}

std::optional<QRect> CWindowPlacement::ReadPlace() const
{
    const auto read = [this](std::u16string_view key)
    { return std::clamp(m_pProfile->GetInteger(m_sSection, key, 0), -kFarthest, kFarthest); };
    const int left = read(kLeft);
    const int top = read(kTop);
    const QRect place(left, top, read(kRight) - left, read(kBottom) - top);
    return place.isEmpty() ? std::nullopt : std::optional(place);
}

void CWindowPlacement::Restore(QWidget& window, bool mayZoom) const
{
    if (const std::optional<QRect> place = ReadPlace())
    {
        const QRect visible = MoveOntoScreen(*place);
        window.resize(visible.size());
        window.move(visible.topLeft());
    }
    if (mayZoom && m_pProfile->GetInteger(m_sSection, kZoomed, 0) != 0)
        window.setWindowState(window.windowState() | Qt::WindowMaximized);
}

void CWindowPlacement::Store(const QWidget& window) const
{
    if (window.isMinimized())
        return;
    m_pProfile->SetInteger(m_sSection, kZoomed, window.isMaximized() ? 1 : 0);
    if (window.isMaximized())
        return;
    // Position with the frame and size without it: just what Restore gives to move and resize.
    m_pProfile->SetInteger(m_sSection, kLeft, window.x());
    m_pProfile->SetInteger(m_sSection, kRight, window.x() + window.width());
    m_pProfile->SetInteger(m_sSection, kTop, window.y());
    m_pProfile->SetInteger(m_sSection, kBottom, window.y() + window.height());
}

void CWindowPlacement::Keep(QWidget& window) const
{
    Restore(window);
    new CPlacementKeeper(window, *this);
}

void CWindowPlacement::RestoreSplitter(CRatioSplitter& splitter, std::u16string_view key,
                                       float fallback) const
{
    splitter.SetRatio(m_pProfile->GetFloat(m_sSection, key, fallback));
}

void CWindowPlacement::StoreSplitter(const CRatioSplitter& splitter, std::u16string_view key) const
{
    m_pProfile->SetFloat(m_sSection, key, splitter.GetRatio());
}

void CWindowPlacement::RestoreColumns(QHeaderView& header, std::span<const SColumnKey> columns) const
{
    int column = 0;
    for (const SColumnKey& row : columns)
        header.resizeSection(column++,
                             std::clamp(m_pProfile->GetInteger(m_sSection, row.m_sKey, row.m_nWidth),
                                        header.minimumSectionSize(), kFarthest));
}

void CWindowPlacement::StoreColumns(const QHeaderView& header, std::span<const SColumnKey> columns) const
{
    int column = 0;
    for (const SColumnKey& row : columns)
        m_pProfile->SetInteger(m_sSection, row.m_sKey, header.sectionSize(column++));
}
