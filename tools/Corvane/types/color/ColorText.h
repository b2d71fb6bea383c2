// Colours as texts and as packed numbers.
//
// The text form is "<alpha>, <red>, <green>, <blue>" in decimal, each 0 to 255. A packed colour has red in
// its lowest byte, then green, blue, and alpha in the highest.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

// The four numbers of a text in their order, not held to 0 to 255.
using ColorParts = std::array<std::int32_t, 4>;

// A missing alpha is 255, other missing parts are 0.
[[nodiscard]] ColorParts ParseColorParts(std::u16string_view text);
[[nodiscard]] std::u16string FormatColorParts(const ColorParts& parts);

// Of each part the low 8 bits count.
[[nodiscard]] std::uint32_t ParseColor(std::u16string_view text);
[[nodiscard]] std::u16string FormatColor(std::uint32_t color);
