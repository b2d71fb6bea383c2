#include "ColorSwatch.h"

#include "Theme.h"

#include <QPainter>

std::uint32_t PackColor(const QColor& color)
{
    const auto part = [](int value, int shift) { return static_cast<std::uint32_t>(value) << shift; };
    return part(color.red(), 0) | part(color.green(), 8) | part(color.blue(), 16) | part(color.alpha(), 24);
}

QColor UnpackColor(std::uint32_t packed)
{
    const auto part = [packed](int shift) { return static_cast<int>((packed >> shift) & 0xFFU); };
    return {part(0), part(8), part(16), part(24)};
}

void DrawChequer(QPainter& painter, const QRect& rect)
{
    constexpr int square = CTheme::kGrid;
    painter.save();
    painter.setClipRect(rect, Qt::IntersectClip);
    painter.fillRect(rect, CTheme::Get().GetColor(EThemeColor::ChequerLight));
    const QColor dark = CTheme::Get().GetColor(EThemeColor::ChequerDark);
    for (int y = 0; y * square < rect.height(); ++y)
    {
        for (int x = y % 2; x * square < rect.width(); x += 2)
            painter.fillRect(rect.left() + x * square, rect.top() + y * square, square, square, dark);
    }
    painter.restore();
}

void DrawColorSwatch(QPainter& painter, const QRect& rect, const QColor& color)
{
    if (color.alpha() != 255)
        DrawChequer(painter, rect);
    painter.fillRect(rect, color);
}
