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

[[gnu::noinline]] std::uint64_t FoldOtherWord(std::uint64_t word)
{
    std::uint64_t folded = 0;
    for (unsigned shift = 0; shift < 64; shift += 16)
        folded |= std::uint64_t{FoldUnit(static_cast<char16_t>(word >> shift))} << shift;
    return folded;
}

std::uint64_t FoldWord(std::uint64_t word)
{
    return IsAsciiWord(word) ? FoldAsciiWord(word) : FoldOtherWord(word);
}

// A text of one to three units, padded with zero units.
std::uint64_t LoadShort(const char16_t* units, std::size_t count)
{
    const std::uint64_t ends = units[0] | std::uint64_t{units[count - 1]} << 32U;
    return ends | std::uint64_t{units[count / 2]} << 16U;
}

// Coarser than the folding, and cheaper: without bit 5 the cases of an ASCII letter are one, and a few signs
// meet, which a hash may let happen.
std::uint64_t ToHashWord(std::uint64_t word)
{
    return (IsAsciiWord(word) ? word : FoldOtherWord(word)) & ~EveryUnit(0x20);
}

// The last of four units moves only the upper 16 bits of the product. Tables look at the low bits, and names
// that are counted differ in their last unit, so that those bits are brought down too.
std::uint64_t Mix(std::uint64_t hash, std::uint64_t word)
{
    hash = (hash ^ word) * 0x9E37'79B9'7F4A'7C15U;
    return hash ^ (hash >> 32U) ^ (hash >> 48U);
}

// Cases of one letter differ in bit 5 alone, so that most unlike words are told apart without folding; what
// differs in that bit must be letters. Bit 7 marks those, and shifted by two it meets bit 5.
bool EqualWords(std::uint64_t a, std::uint64_t b)
{
    if (a == b)
        return true;
    if (!IsAsciiWord(a | b))
        return FoldWord(a) == FoldWord(b);
    const std::uint64_t difference = a ^ b;
    const std::uint64_t lower = a | EveryUnit(0x20);
    const std::uint64_t letters =
        (lower + EveryUnit(0x80 - 'a')) & ~(lower + EveryUnit(0x7F - 'z')) & EveryUnit(0x80);
    return (difference & ~(letters >> 2U)) == 0;
}

int CompareFoldedUnits(const char16_t* a, const char16_t* b, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
    {
        if (a[i] == b[i])
            continue;
        const int difference = int{FoldUnit(a[i])} - int{FoldUnit(b[i])};
        if (difference != 0)
            return difference;
    }
    return 0;
}

int CompareFolded(std::u16string_view a, std::u16string_view b)
{
    const std::size_t common = std::min(a.size(), b.size());
    const std::size_t last = common - std::min(common, kUnitsPerWord);
    std::size_t start = 0;
    while (start < last && EqualWords(LoadWord(a.data() + start), LoadWord(b.data() + start)))
        start += kUnitsPerWord;
    start = std::min(start, last);
    int difference = 0;
    if (common < kUnitsPerWord || !EqualWords(LoadWord(a.data() + start), LoadWord(b.data() + start)))
        difference =
            CompareFoldedUnits(a.data() + start, b.data() + start, std::min(common - start, kUnitsPerWord));
    if (difference != 0 || a.size() == b.size())
        return difference;
    return a.size() < b.size() ? -1 : 1;
}
} // namespace

char16_t FoldUnit(char16_t unit)
{
    if (unit < 0x80)
        return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 0x20) : unit;
    return static_cast<char16_t>(u_foldCase(unit, U_FOLD_CASE_DEFAULT));
}

void FoldUnits(const char16_t* units, std::size_t count, char16_t* out)
{
    std::size_t start = 0;
    for (; start + kUnitsPerWord <= count; start += kUnitsPerWord)
    {
        const std::uint64_t folded = FoldWord(LoadWord(units + start));
        std::memcpy(out + start, &folded, sizeof folded);
    }
    std::transform(units + start, units + count, out + start, FoldUnit);
}

int ZRStrICmp(std::u16string_view a, std::u16string_view b)
{
    ZRASSERT(a.data());
    ZRASSERT(b.data());
    return CompareFolded(a, b);
}

// The last word overlaps the one in front of it, so that only texts shorter than a word need a load of their
// own.
bool EqualUnits(const char16_t* a, const char16_t* b, std::size_t count)
{
    if (count < kUnitsPerWord)
        return count == 0 || EqualWords(LoadShort(a, count), LoadShort(b, count));
    const std::size_t last = count - kUnitsPerWord;
    for (std::size_t start = 0; start < last; start += kUnitsPerWord)
    {
        if (!EqualWords(LoadWord(a + start), LoadWord(b + start)))
            return false;
    }
    return EqualWords(LoadWord(a + last), LoadWord(b + last));
}

std::size_t HashName(std::u16string_view name)
{
    const char16_t* units = name.data();
    const std::size_t count = name.size();
    if (count < kUnitsPerWord)
        return Mix(count, count == 0 ? 0 : ToHashWord(LoadShort(units, count)));
    const std::size_t last = count - kUnitsPerWord;
    std::uint64_t hash = count;
    for (std::size_t start = 0; start < last; start += kUnitsPerWord)
        hash = Mix(hash, ToHashWord(LoadWord(units + start)));
    return Mix(hash, ToHashWord(LoadWord(units + last)));
}

bool NameOrder(std::u16string_view a, std::u16string_view b)
{
    const int folded = CompareFolded(a, b);
    return folded != 0 ? folded < 0 : a < b;
}
