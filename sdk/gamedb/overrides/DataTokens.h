// Reads a schema's type-specific text: tokens with ';' between. Names in it are compared without regard to
// the case of ASCII letters.
#pragma once

#include <string_view>
#include <vector>

// A last empty token is dropped, an inner one is kept. They live as long as `data`.
[[nodiscard]] std::vector<std::string_view> SplitData(std::string_view data);
[[nodiscard]] bool EqualAscii(std::string_view left, std::string_view right);
// Takes `prefix` off `text` when it begins with it.
[[nodiscard]] bool TakePrefix(std::string_view& text, std::string_view prefix);
