// Free names of the rows "Name", "Name (2)", "Name (3)" ... in one space of names. It remembers how far each
// row is taken, so that the thousandth "New Record" does not try the numbers of all others again.
//
// It only knows what it is told: whoever owns the names tells of each one that becomes free.
#pragma once

#include "NameCompare.h"

#include <string>
#include <string_view>
#include <unordered_map>

// "Name (number)".
[[nodiscard]] std::u16string MakeNumberedName(std::u16string_view name, int number);

class CNumberedNames
{
public:
    // The lowest number from 2 on for which `isFree` affirms "Name (number)".
    template <class IsFree> [[nodiscard]] int FindFreeNumber(std::u16string_view name, IsFree isFree)
    {
        int& number = m_FirstFree.try_emplace(std::u16string(name), kFirst).first->second;
        while (!isFree(MakeNumberedName(name, number)))
            ++number;
        return number;
    }
    void OnFreed(std::u16string_view name);

    // The number of `text` in the row of `name`, in any letter case; 0 when it is not one of the row.
    [[nodiscard]] static int GetNumber(std::u16string_view text, std::u16string_view name);

private:
    static constexpr int kFirst = 2;
    // All numbers below are taken.
    std::unordered_map<std::u16string, int, CNameHash, CNameEqual> m_FirstFree;
};
