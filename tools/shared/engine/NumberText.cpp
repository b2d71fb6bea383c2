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

// Length of the decimal number without its sign at the start of `text`; 0 when there is none.
std::size_t CountDecimal(std::u16string_view text)
{
    std::size_t length = CountDigits(text);
    std::size_t digits = length;
    if (length < text.size() && text[length] == u'.')
    {
        const std::size_t fraction = CountDigits(text.substr(length + 1));
        digits += fraction;
        length += 1 + fraction;
    }
    return digits == 0 ? 0 : length + CountExponent(text.substr(length));
}

// The conversion tells "out of range" for both ends alike. The number is too large when its first digit that
// is not 0 stands, with the exponent applied, in front of the point.
bool IsLarge(std::string_view number)
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

double ToDouble(std::string_view number)
{
    double value = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec == std::errc::result_out_of_range)
        return IsLarge(number) ? std::numeric_limits<double>::max() : 0;
    return value;
}

// `number` is what CountDecimal measured. The buffer is longer than any number that this system writes, so
// that only strange texts cost a heap block.
double ToDouble(std::u16string_view number)
{
    constexpr std::size_t kShortUnits = 64;
    std::array<char, kShortUnits> buffer;
    std::string longer;
    char* narrow = buffer.data();
    if (number.size() > kShortUnits)
    {
        longer.resize(number.size());
        narrow = longer.data();
    }
    std::transform(number.begin(), number.end(), narrow,
                   [](char16_t unit) { return static_cast<char>(unit); });
    return ToDouble(std::string_view(narrow, number.size()));
}

// Takes a number of a few digits with perhaps a point off the text; false, with the text as it was, when the
// number has no digit, more of them, or an exponent. Digits and power of ten are exact in a double, so that
// the one division rounds as the full conversion does.
bool TakeShortDecimal(std::u16string_view& text, double& value)
{
    constexpr std::array kPowers{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    std::uint64_t number = 0; // Wraps when there are too many digits; then it is not used.
    std::size_t length = 0;
    const auto takeDigits = [&]
    {
        for (; length < text.size() && IsDigit(text[length]); ++length)
            number = number * 10 + (text[length] - u'0');
        return length;
    };
    std::size_t digits = takeDigits();
    std::size_t fraction = 0;
    if (length < text.size() && text[length] == u'.')
    {
        const std::size_t point = length++;
        fraction = takeDigits() - point - 1;
        digits += fraction;
    }
    if (digits == 0 || digits >= kPowers.size() || CountExponent(text.substr(length)) != 0)
        return false;
    value = static_cast<double>(number) / kPowers[fraction];
    text.remove_prefix(length);
    return true;
}

std::u16string Widen(const char* first, const char* last)
{
    return {first, last};
}
} // namespace

bool TakeInteger(std::u16string_view& text, std::int32_t& value)
{
    std::u16string_view rest = text;
    SkipBlanks(rest);
    const bool negative = TakeSign(rest);
    constexpr std::int64_t kLimit = std::int64_t{1} << 31U;
    std::int64_t amount = 0;
    std::size_t length = 0;
    for (; length < rest.size() && IsDigit(rest[length]); ++length)
        amount = std::min(amount * 10 + (rest[length] - u'0'), kLimit);
    if (length == 0)
        return false;
    value = static_cast<std::int32_t>(negative ? -amount : std::min(amount, kLimit - 1));
    text = rest.substr(length);
    return true;
}

bool TakeFloat(std::u16string_view& text, float& value)
{
    std::u16string_view rest = text;
    SkipBlanks(rest);
    const bool negative = TakeSign(rest);
    double number = 0;
    if (!TakeShortDecimal(rest, number))
    {
        const std::size_t length = CountDecimal(rest);
        if (length == 0)
            return false;
        number = ToDouble(rest.substr(0, length));
        rest.remove_prefix(length);
    }
    constexpr double kLargest = std::numeric_limits<float>::max();
    const auto amount = static_cast<float>(std::min(number, kLargest));
    value = negative ? -amount : amount;
    text = rest;
    return true;
}

std::int32_t ParseInteger(std::u16string_view text)
{
    std::int32_t value = 0;
    (void)TakeInteger(text, value);
    return value;
}

float ParseFloat(std::u16string_view text)
{
    float value = 0;
    (void)TakeFloat(text, value);
    return value;
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
