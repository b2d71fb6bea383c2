// Numbers of the override files, in the "C" locale.
#pragma once

#include <bit>
#include <cstdint>
#include <string>
#include <string_view>

class COverrideCursor;
struct SOverrideError;
struct SOverrideValue;

// The whole of `text` is a number: a sign, decimal digits, for a float also a point and an exponent. False
// sets the error. A float is rounded to 32 bits; what is larger than them, "inf" and "nan" are refused.
[[nodiscard]] bool ReadInteger(std::string_view text, std::int32_t& value, SOverrideError& error);
[[nodiscard]] bool ReadFloat(std::string_view text, float& value, SOverrideError& error);

// The number at the head of a token as a schema's tokens are read: blanks, a sign, digits; 0 for anything
// else, the largest finite float of its sign for one that is larger.
[[nodiscard]] float LeadingFloat(std::string_view text);

// The shortest digits that read back as the same number.
[[nodiscard]] std::string FormatNumber(std::int32_t value);
[[nodiscard]] std::string FormatNumber(float value);

[[nodiscard]] inline std::int32_t AsInteger(std::uint32_t word)
{
    return static_cast<std::int32_t>(word);
}
[[nodiscard]] inline float AsFloat(std::uint32_t word)
{
    return std::bit_cast<float>(word);
}

// "from 1 to 10", "of 1 or more", "of 10 or less", or empty when the limits are the ends of the type.
template <class T> std::string DescribeLimits(T minimum, T maximum, T lowest, T highest)
{
    if (minimum <= lowest && maximum >= highest)
        return {};
    if (maximum >= highest)
        return " of " + FormatNumber(minimum) + " or more";
    if (minimum <= lowest)
        return " of " + FormatNumber(maximum) + " or less";
    return " from " + FormatNumber(minimum) + " to " + FormatNumber(maximum);
}

// False sets the error.
[[nodiscard]] bool CheckLimits(std::int32_t value, std::int32_t minimum, std::int32_t maximum,
                               SOverrideError& error);
[[nodiscard]] bool CheckLimits(float value, float minimum, float maximum, SOverrideError& error);
