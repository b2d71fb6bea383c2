// The one comparison of names, paths and keywords, and the hash that agrees with it.
//
// Texts are compared without regard to case by Unicode simple case folding, code unit by code unit, so that
// a comparison never changes lengths: "ß" and "ss" differ. The order is that of the folded units.
// Everything here is safe to call from any thread.
#pragma once

#include <cstddef>
#include <string_view>

// The folded form of one UTF-16 unit.
[[nodiscard]] char16_t FoldUnit(char16_t unit);

// Negative, zero or positive as `a` stands before, equals or stands behind `b`. A view without data is a
// broken assumption and fires an assertion; it compares as the empty text.
[[nodiscard]] int ZRStrICmp(std::u16string_view a, std::u16string_view b);

// Whether `count` units of both are equal without regard to case.
[[nodiscard]] bool EqualUnits(const char16_t* a, const char16_t* b, std::size_t count);

// The folded forms of `count` units.
void FoldUnits(const char16_t* units, std::size_t count, char16_t* out);

// Same answer as ZRStrICmp(a, b) == 0, faster, and without the assertion.
[[nodiscard]] inline bool EqualNames(std::u16string_view a, std::u16string_view b)
{
    return a.size() == b.size() && EqualUnits(a.data(), b.data(), a.size());
}

// True when `text` begins with `prefix` without regard to case.
[[nodiscard]] inline bool BeginsWithName(std::u16string_view text, std::u16string_view prefix)
{
    return text.size() >= prefix.size() && EqualUnits(text.data(), prefix.data(), prefix.size());
}

// Equal names have equal hashes. The value is stable within a run only and is never stored.
[[nodiscard]] std::size_t HashName(std::u16string_view name);

struct CNameHash
{
    using is_transparent = void;
    std::size_t operator()(std::u16string_view name) const { return HashName(name); }
};

struct CNameEqual
{
    using is_transparent = void;
    bool operator()(std::u16string_view a, std::u16string_view b) const { return EqualNames(a, b); }
};

// The stable order of directory entries: folded names first, then the names' own units.
[[nodiscard]] bool NameOrder(std::u16string_view a, std::u16string_view b);
