#include "color/ColorText.h"

#include "FormatText.h"
#include "common/NumberList.h"

ColorParts ParseColorParts(std::u16string_view text)
{
    ColorParts parts{255, 0, 0, 0};
    ScanIntegers(text, parts);
    return parts;
}

std::u16string FormatColorParts(const ColorParts& parts)
{
    return FormatText(u"%d, %d, %d, %d", parts[0], parts[1], parts[2], parts[3]);
}

std::uint32_t ParseColor(std::u16string_view text)
{
    const ColorParts parts = ParseColorParts(text);
    const auto getByte = [&parts](std::size_t part)
    { return static_cast<std::uint32_t>(parts[part]) & 0xFFU; };
    return getByte(0) << 24U | getByte(3) << 16U | getByte(2) << 8U | getByte(1);
}

std::u16string FormatColor(std::uint32_t color)
{
    return FormatText(u"%d, %d, %d, %d", color >> 24U, color & 0xFFU, color >> 8U & 0xFFU,
                      color >> 16U & 0xFFU);
}
