#include "NameCompare.h"

#include "zrassert.h"

#include <unicode/uchar.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace
{
constexpr std::size_t kUnitsPerWord = 4;

constexpr std::uint64_t EveryUnit(std::uint64_t unit)
{
    return unit * 0x0001'0001'0001'0001U;
}

std::uint64_t LoadWord(const char16_t* units)
{
    std::uint64_t word = 0;
    std::memcpy(&word, units, sizeof word);
    return word;
}

bool IsAsciiWord(std::uint64_t word)
{
    return (word & EveryUnit(0xFF80)) == 0;
}

// Lower case for four ASCII units at once: bit 7 of each unit marks those from 'A' to 'Z', and shifted by two
// it is the bit that tells the cases apart.
std::uint64_t FoldAsciiWord(std::uint64_t word)
{
    const std::uint64_t fromA = word + EveryUnit(0x80 - 'A');
    const std::uint64_t behindZ = word + EveryUnit(0x7F - 'Z');
    return word | ((fromA & ~behindZ & EveryUnit(0x80)) >> 2U);
}

std::uint64_t FoldWord(std::uint64_t word)
{
    if (IsAsciiWord(word))
        return FoldAsciiWord(word);
    std::uint64_t folded = 0;
    for (unsigned shift = 0; shift < 64; shift += 16)
        folded |= std::uint64_t{FoldUnit(static_cast<char16_t>(word >> shift))} << shift;
    return folded;
}

// The last one to three units of a text, padded with zero units.
std::uint64_t LoadTail(const char16_t* units, std::size_t count)
{
    std::uint64_t word = 0;
    std::memcpy(&word, units, count * sizeof(char16_t));
    return word;
}

std::uint64_t Mix(std::uint64_t hash, std::uint64_t word)
{
    hash = (hash ^ word) * 0x9E37'79B9'7F4A'7C15U;
    return hash ^ (hash >> 32U);
}

int CompareFolded(std::u16string_view a, std::u16string_view b)
{
    const std::size_t common = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < common; ++i)
    {
        if (a[i] == b[i])
            continue;
        const int difference = int{FoldUnit(a[i])} - int{FoldUnit(b[i])};
        if (difference != 0)
            return difference;
    }
    if (a.size() == b.size())
        return 0;
    return a.size() < b.size() ? -1 : 1;
}

bool EqualUnits(const char16_t* a, const char16_t* b, std::size_t count)
{
    for (; count >= kUnitsPerWord; count -= kUnitsPerWord, a += kUnitsPerWord, b += kUnitsPerWord)
    {
        const std::uint64_t wordA = LoadWord(a);
        const std::uint64_t wordB = LoadWord(b);
        if (wordA != wordB && FoldWord(wordA) != FoldWord(wordB))
            return false;
    }
    if (count == 0)
        return true;
    const std::uint64_t tailA = LoadTail(a, count);
    const std::uint64_t tailB = LoadTail(b, count);
    return tailA == tailB || FoldWord(tailA) == FoldWord(tailB);
}
} // namespace

char16_t FoldUnit(char16_t unit)
{
    if (unit < 0x80)
        return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 0x20) : unit;
    return static_cast<char16_t>(u_foldCase(unit, U_FOLD_CASE_DEFAULT));
}

int ZRStrICmp(std::u16string_view a, std::u16string_view b)
{
    ZRASSERT(a.data());
    ZRASSERT(b.data());
    return CompareFolded(a, b);
}

bool EqualNames(std::u16string_view a, std::u16string_view b)
{
    return a.size() == b.size() && EqualUnits(a.data(), b.data(), a.size());
}

bool BeginsWithName(std::u16string_view text, std::u16string_view prefix)
{
    return text.size() >= prefix.size() && EqualUnits(text.data(), prefix.data(), prefix.size());
}

std::size_t HashName(std::u16string_view name)
{
    const char16_t* units = name.data();
    std::size_t left = name.size();
    std::uint64_t hash = left;
    for (; left >= kUnitsPerWord; left -= kUnitsPerWord, units += kUnitsPerWord)
        hash = Mix(hash, FoldWord(LoadWord(units)));
    if (left != 0)
        hash = Mix(hash, FoldWord(LoadTail(units, left)));
    return Mix(hash, 0);
}

bool NameOrder(std::u16string_view a, std::u16string_view b)
{
    const int folded = CompareFolded(a, b);
    return folded != 0 ? folded < 0 : a < b;
}
