// The text form of a vector: four numbers whatever its dimension, "1.000000, 2.000000, 0.000000, 0.000000".
#pragma once

#include <array>
#include <string>
#include <string_view>

using VectorValue = std::array<float, 4>;

// Numbers that are missing are 0.
[[nodiscard]] VectorValue ParseVector(std::u16string_view text);
[[nodiscard]] std::u16string FormatVector(const VectorValue& value);
