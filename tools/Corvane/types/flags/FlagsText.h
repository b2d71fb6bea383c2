// The text form of a mask of flags: "0x0000000F".
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// The text must begin with "0x", in this letter case; else the mask is 0. Behind it a hexadecimal number is
// read in any letter case, of which the low 32 bits count; the rest is ignored.
[[nodiscard]] std::uint32_t ParseFlags(std::u16string_view text);
[[nodiscard]] std::u16string FormatFlags(std::uint32_t mask);
