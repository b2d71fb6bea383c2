// Finds the units that matter to a line parser, many units at a time.
#pragma once

#include <cstdint>
#include <string_view>

// Which of a block's units are what; bit 0 is the first unit.
struct SLineMarks
{
    std::uint32_t ends = 0;   // CR, LF and 0xFFFF.
    std::uint32_t equals = 0; // '='.
    std::uint32_t zeros = 0;
};

inline constexpr std::size_t kLineBlock = 32;

// `units` holds kLineBlock units.
[[nodiscard]] SLineMarks FindLineMarks(const char16_t* units);
// A last block of fewer units.
[[nodiscard]] SLineMarks FindLineMarks(std::u16string_view rest);
