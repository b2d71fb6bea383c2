// Every different text once, in the order of the first use, laid out as the packed file holds them: one run
// of units with a terminator behind each text, and the offsets of the texts with the end of the last.
#pragma once

#include "ContentHash.h"
#include "GrowBuffer.h"
#include "PackedLayout.h"
#include "SizeBudget.h"

#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>
#include <vector>

template <class Char> class CTextPool
{
public:
    // Text 0 is the empty one.
    CTextPool() : m_Slots(kFirstSlots)
    {
        m_Offsets.Append(0);
        CSizeBudget unlimited(packed::kMaxFileBytes);
        Intern({}, unlimited);
    }

    // The text's number; packed::kNone when a new text does not fit the budget. On std::bad_alloc the pool is
    // as it was.
    std::uint32_t Intern(std::basic_string_view<Char> text, CSizeBudget& budget)
    {
        const auto hash =
            static_cast<std::uint32_t>(ContentHash(std::as_bytes(std::span(text.data(), text.size()))));
        std::size_t slot = FindSlot(text, hash);
        if (m_Slots[slot].number != 0)
            return m_Slots[slot].number - 1;
        if (!budget.Take((text.size() + 1) * sizeof(Char) + sizeof(std::uint32_t)))
            return packed::kNone;
        if ((size() + 1) * 4 > m_Slots.size() * 3)
        {
            GrowSlots();
            slot = FindSlot(text, hash);
        }
        Add(text);
        m_Slots[slot] = {hash, static_cast<std::uint32_t>(size())};
        return m_Slots[slot].number - 1;
    }

    std::size_t size() const { return m_Offsets.size() - 1; }
    std::basic_string_view<Char> operator[](std::uint32_t id) const
    {
        return {&m_Units[m_Offsets[id]], m_Offsets[id + 1] - m_Offsets[id] - 1};
    }
    std::span<const Char> GetUnits() const { return m_Units.GetAll(); }
    std::span<const std::uint32_t> GetOffsets() const { return m_Offsets.GetAll(); }

private:
    static constexpr std::size_t kFirstSlots = 1024;

    // The hash lies beside the number, so that a search reads no text but one that is very likely the same.
    struct SSlot
    {
        std::uint32_t hash;
        // The text's number plus 1; 0 for a free slot.
        std::uint32_t number;
    };

    std::size_t FindSlot(std::basic_string_view<Char> text, std::uint32_t hash) const
    {
        const std::size_t mask = m_Slots.size() - 1;
        std::size_t slot = hash & mask;
        for (; m_Slots[slot].number != 0; slot = (slot + 1) & mask)
        {
            if (m_Slots[slot].hash == hash && IsText(m_Slots[slot].number - 1, text))
                break;
        }
        return slot;
    }

    // Compares bytes: the library's comparison of UTF-16 goes unit by unit.
    bool IsText(std::uint32_t id, std::basic_string_view<Char> text) const
    {
        const std::basic_string_view<Char> known = (*this)[id];
        return known.size() == text.size() &&
               (text.empty() || std::memcmp(known.data(), text.data(), text.size() * sizeof(Char)) == 0);
    }

    void GrowSlots()
    {
        std::vector<SSlot> slots(m_Slots.size() * 2);
        const std::size_t mask = slots.size() - 1;
        for (const SSlot& old : m_Slots)
        {
            if (old.number == 0)
                continue;
            std::size_t slot = old.hash & mask;
            while (slots[slot].number != 0)
                slot = (slot + 1) & mask;
            slots[slot] = old;
        }
        m_Slots.swap(slots);
    }

    void Add(std::basic_string_view<Char> text)
    {
        m_Units.Reserve(text.size() + 1);
        m_Offsets.Reserve(1);
        m_Units.Append(text.data(), text.size());
        m_Units.Append(Char{});
        m_Offsets.Append(static_cast<std::uint32_t>(m_Units.size()));
    }

    CGrowBuffer<Char> m_Units;
    CGrowBuffer<std::uint32_t> m_Offsets;
    std::vector<SSlot> m_Slots; // A power of two.
};
