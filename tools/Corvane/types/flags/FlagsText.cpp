#include "flags/FlagsText.h"

#include "FormatText.h"

namespace
{
// The value of a hexadecimal digit, or 16 for any other unit.
std::uint32_t GetDigit(char16_t unit)
{
    if (unit >= u'0' && unit <= u'9')
        return unit - u'0';
    if (unit >= u'A' && unit <= u'F')
        return unit - u'A' + 10U;
    if (unit >= u'a' && unit <= u'f')
        return unit - u'a' + 10U;
    return 16;
}
} // namespace

std::uint32_t ParseFlags(std::u16string_view text)
{
    constexpr std::u16string_view kPrefix = u"0x";
    if (!text.starts_with(kPrefix))
        return 0;
    std::uint32_t mask = 0;
    for (const char16_t unit : text.substr(kPrefix.size()))
    {
        const std::uint32_t digit = GetDigit(unit);
        if (digit > 15)
            break;
        mask = mask << 4U | digit;
    }
    return mask;
}

std::u16string FormatFlags(std::uint32_t mask)
{
    return FormatText(u"0x%.8X", mask);
}
