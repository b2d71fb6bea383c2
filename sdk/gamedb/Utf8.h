// UTF-8 as the SDK's writers, readers and tools need it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// The length of the well-formed sequence at the head of `text`, which is not empty; 0 when there is none.
[[nodiscard]] std::size_t Utf8Length(std::string_view text);
[[nodiscard]] bool IsUtf8(std::string_view text);
// The text with U+FFFD for each byte that belongs to no well-formed sequence.
[[nodiscard]] std::string CleanUtf8(std::string_view text);
void AppendUtf8(std::string& text, char32_t c);

// A surrogate that stands alone becomes U+FFFD.
[[nodiscard]] std::string ToUtf8(std::u16string_view text);
// `text` is well-formed.
[[nodiscard]] std::u16string ToUtf16(std::string_view text);
