#include "Guid.h"

#include <uuid/uuid.h>

#include <algorithm>
#include <cstring>

namespace
{
constexpr std::size_t kTextLength = 38;

// Where the braced text has its dashes.
bool IsDashPlace(std::size_t place)
{
    return place == 9 || place == 14 || place == 19 || place == 24;
}

int GetHexValue(char16_t unit)
{
    if (unit >= u'0' && unit <= u'9')
        return unit - u'0';
    if (unit >= u'a' && unit <= u'f')
        return unit - u'a' + 10;
    if (unit >= u'A' && unit <= u'F')
        return unit - u'A' + 10;
    return -1;
}
} // namespace

CGuid CGuid::Create()
{
    uuid_t fresh;
    uuid_generate_random(fresh);
    std::array<std::uint8_t, 16> bytes{};
    std::memcpy(bytes.data(), fresh, bytes.size());
    return CGuid(bytes);
}

std::optional<CGuid> CGuid::Parse(std::u16string_view text)
{
    if (text.size() != kTextLength || text.front() != u'{' || text.back() != u'}')
        return std::nullopt;
    std::array<std::uint8_t, 16> bytes{};
    std::size_t digits = 0;
    for (std::size_t place = 1; place + 1 < kTextLength; ++place)
    {
        if (IsDashPlace(place))
        {
            if (text[place] != u'-')
                return std::nullopt;
            continue;
        }
        const int value = GetHexValue(text[place]);
        if (value < 0)
            return std::nullopt;
        std::uint8_t& byte = bytes[digits++ / 2];
        byte = static_cast<std::uint8_t>(byte << 4 | value);
    }
    return CGuid(bytes);
}

std::u16string CGuid::ToText() const
{
    constexpr std::u16string_view kDigits = u"0123456789ABCDEF";
    std::u16string text = u"{";
    text.reserve(kTextLength);
    for (const std::uint8_t byte : m_Bytes)
    {
        if (IsDashPlace(text.size()))
            text += u'-';
        text += kDigits[byte >> 4U];
        text += kDigits[byte & 15U];
    }
    return text + u"}";
}
