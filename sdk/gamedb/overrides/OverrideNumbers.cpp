#include "OverrideNumbers.h"

#include "OverrideCursor.h"
#include "OverrideError.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace
{
enum class EReading
{
    Number,
    NoNumber,
    TooLarge,
};

// std::from_chars takes no plus, and takes words for infinities.
bool TakesSign(std::string_view& text)
{
    if (text.starts_with('+'))
        text.remove_prefix(1);
    const std::string_view digits = text.substr(text.starts_with('-') ? 1 : 0);
    return !digits.empty() && (digits.front() == '.' || (digits.front() >= '0' && digits.front() <= '9'));
}

// `end` is set behind the number.
EReading Parse(std::string_view text, float& value, const char*& end)
{
    end = text.data();
    if (!TakesSign(text))
        return EReading::NoNumber;
    const char* const last = text.data() + text.size();
    const auto [stop, failure] = std::from_chars(text.data(), last, value);
    if (failure == std::errc::invalid_argument)
        return EReading::NoNumber;
    end = stop;
    if (failure == std::errc())
        return EReading::Number;
    // Out of range is what is too large and what is too small, which is 0.
    double wide = 0;
    const bool isWide = std::from_chars(text.data(), last, wide).ec == std::errc();
    const std::string_view number(text.data(), static_cast<std::size_t>(stop - text.data()));
    const std::size_t exponent = number.find_first_of("eE");
    const bool isTiny =
        isWide ? std::fabs(wide) < 1
               : exponent != std::string_view::npos && number.substr(exponent + 1).starts_with('-');
    value = text.starts_with('-') ? -0.0F : 0.0F;
    if (isTiny)
        return EReading::Number;
    value = std::copysign(std::numeric_limits<float>::max(), value);
    return EReading::TooLarge;
}

bool RefuseNumber(std::string_view text, const char* what, SOverrideError& error)
{
    return error.Set(EOverrideCause::BadValue,
                     text.empty() ? "a value is missing" : QuoteForMessage(text) + " is not a " + what);
}

template <class T> bool IsInLimits(T value, T minimum, T maximum, SOverrideError& error)
{
    if (value < minimum)
        return error.Set(EOverrideCause::OutOfLimits,
                         FormatNumber(value) + " is below the smallest value, " + FormatNumber(minimum));
    if (value > maximum)
        return error.Set(EOverrideCause::OutOfLimits,
                         FormatNumber(value) + " is above the largest value, " + FormatNumber(maximum));
    return true;
}
} // namespace

bool ReadInteger(std::string_view text, std::int32_t& value, SOverrideError& error)
{
    std::string_view digits = text;
    const bool isSigned = TakesSign(digits);
    const char* const last = digits.data() + digits.size();
    const auto [end, failure] = std::from_chars(digits.data(), last, value);
    if (!isSigned || failure == std::errc::invalid_argument || end != last)
        return RefuseNumber(text, "whole number", error);
    if (failure != std::errc())
        return error.Set(EOverrideCause::OutOfLimits, QuoteForMessage(text) + " is too large");
    return true;
}

bool ReadFloat(std::string_view text, float& value, SOverrideError& error)
{
    const char* end = nullptr;
    const EReading reading = Parse(text, value, end);
    if (reading == EReading::NoNumber || end != text.data() + text.size())
        return RefuseNumber(text, "number", error);
    if (reading == EReading::TooLarge)
        return error.Set(EOverrideCause::OutOfLimits, QuoteForMessage(text) + " is too large");
    return true;
}

float LeadingFloat(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
    float value = 0;
    const char* end = nullptr;
    return Parse(text, value, end) == EReading::NoNumber ? 0 : value;
}

std::string FormatNumber(std::int32_t value)
{
    return std::to_string(value);
}

std::string FormatNumber(float value)
{
    char digits[32];
    char* const end = std::to_chars(digits, digits + sizeof(digits), value).ptr;
    return {digits, end};
}

bool CheckLimits(std::int32_t value, std::int32_t minimum, std::int32_t maximum, SOverrideError& error)
{
    return IsInLimits(value, minimum, maximum, error);
}

bool CheckLimits(float value, float minimum, float maximum, SOverrideError& error)
{
    return IsInLimits(value, minimum, maximum, error);
}
