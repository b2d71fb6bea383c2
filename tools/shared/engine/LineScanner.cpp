#include "LineScanner.h"

#include <algorithm>
#include <array>

SLineMarks FindLineMarks(std::u16string_view rest)
{
    std::array<char16_t, kLineBlock> block;
    block.fill(u'\n');
    std::copy(rest.begin(), rest.end(), block.begin());
    return FindLineMarks(block.data());
}
