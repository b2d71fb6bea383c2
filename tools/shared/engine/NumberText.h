// Numbers as texts, in the "C" locale whatever the user's locale is.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Leading blanks, a sign, decimal digits; the rest is ignored. No digits give 0; a value outside 32 bits is
// clamped to the nearer end.
[[nodiscard]] std::int32_t ParseInteger(std::u16string_view text);

// Leading blanks, a sign, decimal digits with an optional point and exponent; the rest is ignored. No digits
// give 0, also for "inf", "nan" and hexadecimal. The value is rounded to 32 bits; one too large for them
// becomes the largest finite value of its sign.
[[nodiscard]] float ParseFloat(std::u16string_view text);

// The same for a number at the start of a longer text: takes it off the text. False, with text and value as
// they were, when there are no digits.
[[nodiscard]] bool TakeInteger(std::u16string_view& text, std::int32_t& value);
[[nodiscard]] bool TakeFloat(std::u16string_view& text, float& value);

// "True" without regard to case is true, every other text is false.
[[nodiscard]] bool ParseBoolean(std::u16string_view text);

// As printf's "%d" and "%f" (six decimals).
[[nodiscard]] std::u16string FormatInteger(std::int64_t value);
[[nodiscard]] std::u16string FormatFloat(double value);
[[nodiscard]] std::u16string_view FormatBoolean(bool value);
