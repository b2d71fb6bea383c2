// Numbers in a row, as the types with several numbers a value store them: "1.0, 2.0, 3.0".
//
// Blanks are allowed ahead of a number, none ahead of a comma. Reading ends with the last place or at the
// first thing that is neither number nor comma; places that were not read keep what they held. Nothing here
// uses the heap for a text that this system has written.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

void ScanFloats(std::u16string_view text, std::span<float> values);
void ScanIntegers(std::u16string_view text, std::span<std::int32_t> values);
