#include "Utf8.h"

namespace
{
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

// The character of a well-formed sequence of that length.
char32_t Decode(std::string_view sequence)
{
    constexpr unsigned char kLeadBits[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    char32_t c = static_cast<unsigned char>(sequence.front()) & char32_t{kLeadBits[sequence.size()]};
    for (const char next : sequence.substr(1))
        c = c << 6 | (static_cast<unsigned char>(next) & 0x3FU);
    return c;
}
} // namespace

std::size_t Utf8Length(std::string_view text)
{
    const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byteAt(0);
    if (lead < 0x80)
        return 1;
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length)
        return 0;
    // The second byte's range keeps out overlong forms, surrogates and what lies above U+10FFFF.
    const unsigned char low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const unsigned char high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    if (byteAt(1) < low || byteAt(1) > high)
        return 0;
    for (std::size_t i = 2; i < length; ++i)
    {
        if ((byteAt(i) & 0xC0) != 0x80)
            return 0;
    }
    return length;
}

bool IsUtf8(std::string_view text)
{
    while (!text.empty())
    {
        const std::size_t length = Utf8Length(text);
        if (length == 0)
            return false;
        text.remove_prefix(length);
    }
    return true;
}

std::string CleanUtf8(std::string_view text)
{
    std::string clean;
    while (!text.empty())
    {
        const std::size_t length = Utf8Length(text);
        clean += length == 0 ? kReplacement : text.substr(0, length);
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return clean;
}

void AppendUtf8(std::string& text, char32_t c)
{
    const auto add = [&](char32_t byte) { text += static_cast<char>(byte); };
    if (c < 0x80)
        return add(c);
    if (c < 0x800)
        add(0xC0 | c >> 6);
    else if (c < 0x10000)
        add(0xE0 | c >> 12);
    else
        add(0xF0 | c >> 18);
    if (c >= 0x10000)
        add(0x80 | (c >> 12 & 0x3F));
    if (c >= 0x800)
        add(0x80 | (c >> 6 & 0x3F));
    add(0x80 | (c & 0x3F));
}

std::string ToUtf8(std::u16string_view text)
{
    std::string utf8;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        char32_t c = text[i];
        const bool isPair =
            c >= 0xD800 && c < 0xDC00 && i + 1 < text.size() && (text[i + 1] & 0xFC00) == 0xDC00;
        if (isPair)
            c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - char32_t{0xDC00});
        else if ((c & 0xF800) == 0xD800)
            c = 0xFFFD;
        AppendUtf8(utf8, c);
    }
    return utf8;
}

std::u16string ToUtf16(std::string_view text)
{
    std::u16string utf16;
    while (!text.empty())
    {
        const std::size_t length = Utf8Length(text);
        const char32_t c = Decode(text.substr(0, length));
        if (c >= 0x10000)
        {
            utf16 += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
            utf16 += static_cast<char16_t>(0xDC00 + (c & 0x3FF));
        }
        else
            utf16 += static_cast<char16_t>(c);
        text.remove_prefix(length);
    }
    return utf16;
}
