#include "NumberText.h"

#include "NameCompare.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace
{
bool IsBlank(char16_t unit)
{
    return unit == u' ' || (unit >= u'\t' && unit <= u'\r');
}
bool IsDigit(char16_t unit)
{
    return unit >= u'0' && unit <= u'9';
}

void SkipBlanks(std::u16string_view& text)
{
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
}

// Takes one sign off the text; true for a minus.
bool TakeSign(std::u16string_view& text)
{
    const bool negative = !text.empty() && text.front() == u'-';
    if (negative || (!text.empty() && text.front() == u'+'))
        text.remove_prefix(1);
    return negative;
}

std::size_t CountDigits(std::u16string_view text)
{
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), IsDigit) - text.begin());
}

// Length of the exponent at the start of `text` ("e5", "E-12"), or 0 when there is none.
std::size_t CountExponent(std::u16string_view text)
{
    if (text.empty() || (text.front() != u'e' && text.front() != u'E'))
        return 0;
    const std::size_t sign = text.size() > 1 && (text[1] == u'+' || text[1] == u'-') ? 1 : 0;
    const std::size_t digits = CountDigits(text.substr(1 + sign));
    return digits == 0 ? 0 : 1 + sign + digits;
}

// The decimal number at the start of `text` as narrow text without its sign; empty when there is none.
std::string TakeDecimal(std::u16string_view text)
{
    std::size_t length = CountDigits(text);
    std::size_t digits = length;
    if (length < text.size() && text[length] == u'.')
    {
        const std::size_t fraction = CountDigits(text.substr(length + 1));
        digits += fraction;
        length += 1 + fraction;
    }
    if (digits == 0)
        return {};
    length += CountExponent(text.substr(length));
    std::string number(length, '\0');
    std::transform(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(length), number.begin(),
                   [](char16_t unit) { return static_cast<char>(unit); });
    return number;
}

// The conversion tells "out of range" for both ends alike. The number is too large when its first digit that
// is not 0 stands, with the exponent applied, in front of the point.
bool IsLarge(const std::string& number)
{
    const std::size_t mark = std::min(number.find_first_of("eE"), number.size());
    const std::size_t point = std::min(number.find('.'), mark);
    const std::size_t first = std::min(number.find_first_of("123456789"), mark);
    const auto place = static_cast<std::ptrdiff_t>(point) - static_cast<std::ptrdiff_t>(first);
    std::ptrdiff_t exponent = 0;
    if (mark < number.size())
    {
        const bool negative = number[mark + 1] == '-';
        const char* digits = number.data() + mark + (negative || number[mark + 1] == '+' ? 2 : 1);
        constexpr std::ptrdiff_t kFar = std::numeric_limits<std::ptrdiff_t>::max() / 4;
        if (std::from_chars(digits, number.data() + number.size(), exponent).ec != std::errc() ||
            exponent > kFar)
            exponent = kFar;
        exponent = negative ? -exponent : exponent;
    }
    return place + exponent > 0;
}

double ToDouble(const std::string& number)
{
    double value = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec == std::errc::result_out_of_range)
        return IsLarge(number) ? std::numeric_limits<double>::max() : 0;
    return value;
}

// Reads a text that is nothing but a few digits with perhaps a point. Digits and power of ten are exact in a
// double, so that the one division rounds as the full conversion does.
bool ParseShortDecimal(std::u16string_view text, double& value)
{
    constexpr std::array kPowers{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    std::uint64_t number = 0;
    std::size_t digits = 0;
    std::size_t fraction = 0;
    bool point = false;
    for (const char16_t unit : text)
    {
        if (unit == u'.' && !point)
        {
            point = true;
            continue;
        }
        if (!IsDigit(unit) || ++digits == kPowers.size())
            return false;
        number = number * 10 + (unit - u'0');
        fraction += point ? 1 : 0;
    }
    value = static_cast<double>(number) / kPowers[fraction];
    return digits != 0;
}

std::u16string Widen(const char* first, const char* last)
{
    return {first, last};
}
} // namespace

std::int32_t ParseInteger(std::u16string_view text)
{
    SkipBlanks(text);
    const bool negative = TakeSign(text);
    constexpr std::int64_t kLimit = std::int64_t{1} << 31U;
    std::int64_t value = 0;
    for (std::size_t i = 0; i < text.size() && IsDigit(text[i]); ++i)
        value = std::min(value * 10 + (text[i] - u'0'), kLimit);
    if (negative)
        return static_cast<std::int32_t>(-value);
    return static_cast<std::int32_t>(std::min(value, kLimit - 1));
}

float ParseFloat(std::u16string_view text)
{
    SkipBlanks(text);
    const bool negative = TakeSign(text);
    double number = 0;
    if (!ParseShortDecimal(text, number))
        number = ToDouble(TakeDecimal(text));
    constexpr double kLargest = std::numeric_limits<float>::max();
    const auto value = static_cast<float>(std::min(number, kLargest));
    return negative ? -value : value;
}

bool ParseBoolean(std::u16string_view text)
{
    return EqualNames(text, u"True");
}

std::u16string FormatInteger(std::int64_t value)
{
    std::array<char, 24> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return Widen(buffer.data(), result.ptr);
}

std::u16string FormatFloat(double value)
{
    // The largest double has 309 digits before the point.
    std::array<char, 330> buffer{};
    const auto result =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, 6);
    return Widen(buffer.data(), result.ptr);
}

std::u16string_view FormatBoolean(bool value)
{
    return value ? u"True" : u"False";
}
