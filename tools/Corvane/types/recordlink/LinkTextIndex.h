// Which links may hold a text: a hash index from texts to the places of links in their list.
//
// It knows hashes only and never forgets: a place that it names may hold another text by now, or none. Who
// asks looks at the link itself.
#pragma once

#include "NameCompare.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

class CLinkTextIndex
{
public:
    void Add(std::u16string_view text, std::uint32_t slot)
    {
        if (m_Entries.size() >= m_Heads.size())
            Grow();
        const auto hash = static_cast<std::uint32_t>(HashName(text));
        std::uint32_t& head = m_Heads[hash & (m_Heads.size() - 1)];
        m_Entries.push_back({hash, slot, head});
        head = static_cast<std::uint32_t>(m_Entries.size());
    }

    // Calls `visit` with each place that the text, in any letter case, was added for.
    template <class Visit> void Find(std::u16string_view text, Visit visit) const
    {
        if (m_Heads.empty())
            return;
        const auto hash = static_cast<std::uint32_t>(HashName(text));
        for (std::uint32_t at = m_Heads[hash & (m_Heads.size() - 1)]; at != 0; at = m_Entries[at - 1].m_nNext)
        {
            if (m_Entries[at - 1].m_nHash == hash)
                visit(m_Entries[at - 1].m_nSlot);
        }
    }

    [[nodiscard]] std::size_t GetSize() const { return m_Entries.size(); }

    void Clear()
    {
        m_Entries = {};
        m_Heads = {};
    }

private:
    struct SEntry
    {
        std::uint32_t m_nHash;
        std::uint32_t m_nSlot;
        std::uint32_t m_nNext; // Number of the next entry of the chain, counted from 1; 0 ends it.
    };

    void Grow()
    {
        m_Heads.assign(m_Heads.empty() ? 64 : m_Heads.size() * 2, 0);
        for (std::size_t i = 0; i < m_Entries.size(); ++i)
        {
            std::uint32_t& head = m_Heads[m_Entries[i].m_nHash & (m_Heads.size() - 1)];
            m_Entries[i].m_nNext = head;
            head = static_cast<std::uint32_t>(i + 1);
        }
    }

    std::vector<SEntry> m_Entries;
    std::vector<std::uint32_t> m_Heads; // A power of two; numbers of entries as in m_nNext.
};
