// Narrow texts, each kept once and named by a number. It answers at once whether two of them are the same
// name, without regard to case.
#pragma once

#include "PlaceIndex.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class CNarrowTextPool
{
public:
    using TextId = std::uint32_t;
    // The empty text, which is always there.
    static constexpr TextId kEmpty = 0;

    CNarrowTextPool();

    // UTF-8. Equal texts have equal numbers.
    TextId Add(std::string_view text);
    // Terminated; lives until the next Add.
    [[nodiscard]] const char* GetText(TextId id) const { return m_sTexts.data() + m_Entries[id].m_nStart; }
    // Equal for texts that are equal as names, see NameCompare.h.
    [[nodiscard]] TextId GetName(TextId id) const { return m_Entries[id].m_nName; }

private:
    struct SEntry
    {
        std::size_t m_nStart;
        std::size_t m_nLength;
        TextId m_nName; // The first text of this name.
    };

    [[nodiscard]] std::string_view GetView(const SEntry& entry) const
    {
        return std::string_view(m_sTexts).substr(entry.m_nStart, entry.m_nLength);
    }
    std::string m_sTexts; // One behind the other, each with its terminator.
    std::vector<SEntry> m_Entries;
    CPlaceIndex m_Index; // By the names' hashes.
};
