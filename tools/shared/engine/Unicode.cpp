#include "Unicode.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace
{
constexpr char32_t kReplacement = 0xFFFD;

bool IsLead(char32_t unit)
{
    return (unit & 0xFFFFFC00U) == 0xD800;
}
bool IsTrail(char32_t unit)
{
    return (unit & 0xFFFFFC00U) == 0xDC00;
}
bool IsSurrogate(char32_t unit)
{
    return (unit & 0xFFFFF800U) == 0xD800;
}

// The code point at `index`, which moves behind it.
char32_t NextPoint(std::u16string_view text, std::size_t& index)
{
    const char32_t unit = text[index++];
    if (!IsSurrogate(unit))
        return unit;
    if (!IsLead(unit) || index == text.size() || !IsTrail(text[index]))
        return kReplacement;
    return 0x10000U + ((unit - 0xD800U) << 10U) + (text[index++] - 0xDC00U);
}

void AppendNarrow(char32_t point, std::string& out)
{
    const auto tail = [&](unsigned shift) { out += static_cast<char>(0x80U | ((point >> shift) & 0x3FU)); };
    if (point < 0x80)
    {
        out += static_cast<char>(point);
        return;
    }
    if (point < 0x800)
        out += static_cast<char>(0xC0U | (point >> 6U));
    else if (point < 0x10000)
        out += static_cast<char>(0xE0U | (point >> 12U));
    else
        out += static_cast<char>(0xF0U | (point >> 18U));
    if (point >= 0x10000)
        tail(12);
    if (point >= 0x800)
        tail(6);
    tail(0);
}

void AppendWide(char32_t point, std::u16string& out)
{
    if (point < 0x10000)
    {
        out += static_cast<char16_t>(point);
        return;
    }
    out += static_cast<char16_t>(0xD800U + ((point - 0x10000U) >> 10U));
    out += static_cast<char16_t>(0xDC00U + ((point - 0x10000U) & 0x3FFU));
}

// Length of the sequence that a first byte announces and the smallest code point that needs that length.
struct SSequence
{
    unsigned length;
    char32_t bits;
    char32_t smallest;
};

SSequence ReadLead(std::uint8_t byte)
{
    if (byte < 0x80)
        return {1, byte, 0};
    if ((byte & 0xE0U) == 0xC0)
        return {2, byte & 0x1FU, 0x80};
    if ((byte & 0xF0U) == 0xE0)
        return {3, byte & 0x0FU, 0x800};
    if ((byte & 0xF8U) == 0xF0)
        return {4, byte & 0x07U, 0x10000};
    return {0, 0, 0};
}

// The code point at `index`, which moves behind it; a malformed sequence costs one byte, so that what
// follows it is read on its own.
char32_t NextPoint(std::string_view text, std::size_t& index)
{
    const SSequence lead = ReadLead(static_cast<std::uint8_t>(text[index]));
    const std::size_t start = index++;
    if (lead.length == 0 || lead.length > text.size() - start)
        return kReplacement;
    char32_t point = lead.bits;
    for (unsigned i = 1; i < lead.length; ++i)
    {
        const auto byte = static_cast<std::uint8_t>(text[start + i]);
        if ((byte & 0xC0U) != 0x80)
            return kReplacement;
        point = (point << 6U) | (byte & 0x3FU);
    }
    if (point < lead.smallest || point > 0x10FFFF || IsSurrogate(point))
        return kReplacement;
    index = start + lead.length;
    return point;
}
// How many units at the start of a text are ASCII, counted in whole runs so that the compiler can do many at
// a time.
template <class Text> std::size_t CountAscii(const Text& text)
{
    constexpr std::size_t kRun = 8;
    std::size_t count = 0;
    for (; text.size() - count >= kRun; count += kRun)
    {
        unsigned all = 0;
        for (std::size_t i = 0; i < kRun; ++i)
            all |= static_cast<std::make_unsigned_t<typename Text::value_type>>(text[count + i]);
        if (all >= 0x80)
            break;
    }
    while (count < text.size() &&
           static_cast<std::make_unsigned_t<typename Text::value_type>>(text[count]) < 0x80)
        ++count;
    return count;
}
} // namespace

void ToNarrow(std::u16string_view text, std::string& out)
{
    const std::size_t ascii = CountAscii(text);
    out.resize(ascii);
    std::transform(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(ascii), out.begin(),
                   [](char16_t unit) { return static_cast<char>(unit); });
    for (std::size_t i = ascii; i < text.size();)
        AppendNarrow(NextPoint(text, i), out);
}

std::string ToNarrow(std::u16string_view text)
{
    std::string out;
    ToNarrow(text, out);
    return out;
}

std::u16string ToWide(std::string_view text)
{
    std::u16string out;
    out.reserve(text.size());
    const std::size_t ascii = CountAscii(text);
    out.assign(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(ascii));
    for (std::size_t i = ascii; i < text.size();)
        AppendWide(NextPoint(text, i), out);
    return out;
}
