// A hash index from values to the places at which a list of its owner holds them. It stores hashes and places
// only; the owner compares the values themselves. Nothing is ever removed.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

class CPlaceIndex
{
public:
    static constexpr std::uint32_t kNone = 0xFFFF'FFFF;

    // A place of this hash for which `matches` holds; kNone without one. All of this hash are asked, in any
    // order.
    template <class Match> [[nodiscard]] std::uint32_t Find(std::size_t hash, Match matches) const
    {
        if (m_Slots.empty())
            return kNone;
        const std::uint32_t wanted = Shorten(hash);
        for (std::size_t i = wanted & GetMask(); m_Slots[i].m_nPlace != kNone; i = (i + 1) & GetMask())
        {
            if (m_Slots[i].m_nHash == wanted && matches(m_Slots[i].m_nPlace))
                return m_Slots[i].m_nPlace;
        }
        return kNone;
    }

    void Add(std::size_t hash, std::uint32_t place)
    {
        if (2 * (m_nCount + 1) > m_Slots.size())
            Grow();
        Insert({Shorten(hash), place});
        ++m_nCount;
    }

    void Clear()
    {
        m_Slots.clear();
        m_nCount = 0;
    }

private:
    // The hash stands beside the place, so that a look-up reads the owner's list for a likely match only.
    struct SSlot
    {
        std::uint32_t m_nHash = 0;
        std::uint32_t m_nPlace = kNone;
    };

    [[nodiscard]] static std::uint32_t Shorten(std::size_t hash)
    {
        return static_cast<std::uint32_t>(hash ^ (std::uint64_t{hash} >> 32U));
    }
    [[nodiscard]] std::size_t GetMask() const { return m_Slots.size() - 1; }

    void Insert(const SSlot& slot)
    {
        std::size_t i = slot.m_nHash & GetMask();
        while (m_Slots[i].m_nPlace != kNone)
            i = (i + 1) & GetMask();
        m_Slots[i] = slot;
    }

    void Grow()
    {
        std::vector<SSlot> old(std::max<std::size_t>(64, m_Slots.size() * 2));
        old.swap(m_Slots);
        for (const SSlot& slot : old)
        {
            if (slot.m_nPlace != kNone)
                Insert(slot);
        }
    }

    std::vector<SSlot> m_Slots; // A power of two.
    std::size_t m_nCount = 0;
};
