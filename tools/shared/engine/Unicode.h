// Conversion between UTF-16, the system's own text, and UTF-8, which appears only at its borders. What is
// malformed (a lone surrogate, a bad byte) becomes U+FFFD.
#pragma once

#include <string>
#include <string_view>

[[nodiscard]] std::string ToNarrow(std::u16string_view text);
[[nodiscard]] std::u16string ToWide(std::string_view text);
// Replaces `out` by the converted text; keeps its capacity, for loops that convert many short texts.
void ToNarrow(std::u16string_view text, std::string& out);
