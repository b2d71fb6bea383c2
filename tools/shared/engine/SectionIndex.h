// A hash index over the sections of one file. It answers as a scan from the first section on would: the
// first section of a name wins. The names themselves stay with the parser, which passes a function from a
// section's number to its name.
#pragma once

#include "NameCompare.h"

#include <cstdint>
#include <vector>

class CSectionIndex
{
public:
    // Below this count a scan is as fast and needs no set-up.
    static constexpr std::size_t kSmallestCount = 9;

    [[nodiscard]] bool IsBuilt() const { return m_bBuilt; }
    void Drop() { m_bBuilt = false; }

    template <class NameOf> void Build(std::size_t count, NameOf nameOf)
    {
        std::size_t capacity = 32;
        while (capacity < count * 2)
            capacity *= 2;
        m_Slots.assign(capacity, {});
        for (std::size_t section = 0; section < count; ++section)
            Insert(section, nameOf);
        m_nCount = count;
        m_bBuilt = true;
    }

    // Takes the section that was appended last.
    template <class NameOf> void Append(NameOf nameOf)
    {
        if ((m_nCount + 1) * 2 > m_Slots.size())
        {
            Build(m_nCount + 1, nameOf);
            return;
        }
        Insert(m_nCount, nameOf);
        ++m_nCount;
    }

    // -1 when there is no such section. `hash` is HashName(name).
    template <class NameOf>
    [[nodiscard]] std::ptrdiff_t Find(std::u16string_view name, std::size_t hash, NameOf nameOf) const
    {
        const SSlot& slot = m_Slots[FindSlot(name, hash, nameOf)];
        return std::ptrdiff_t{slot.number} - 1;
    }

private:
    struct SSlot
    {
        std::uint32_t hash = 0;   // The half that does not choose the slot.
        std::uint32_t number = 0; // The section's number from 1; 0 marks a free slot.
    };

    static std::uint32_t HighHalf(std::size_t hash) { return static_cast<std::uint32_t>(hash >> 32U); }

    template <class NameOf>
    [[nodiscard]] std::size_t FindSlot(std::u16string_view name, std::size_t hash, NameOf nameOf) const
    {
        const std::size_t mask = m_Slots.size() - 1;
        std::size_t slot = hash & mask;
        while (m_Slots[slot].number != 0)
        {
            if (m_Slots[slot].hash == HighHalf(hash) && EqualNames(nameOf(m_Slots[slot].number - 1), name))
                break;
            slot = (slot + 1) & mask;
        }
        return slot;
    }

    template <class NameOf> void Insert(std::size_t section, NameOf nameOf)
    {
        const std::u16string_view name = nameOf(section);
        const std::size_t hash = HashName(name);
        SSlot& slot = m_Slots[FindSlot(name, hash, nameOf)];
        if (slot.number == 0)
            slot = {HighHalf(hash), static_cast<std::uint32_t>(section + 1)};
    }

    std::vector<SSlot> m_Slots;
    std::size_t m_nCount = 0;
    bool m_bBuilt = false;
};
