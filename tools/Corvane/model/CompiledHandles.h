// The pairs of objects and creator handles that one compile fills, in the order in which they were created.
// Each pair holds a reference; look-ups are hashed.
#pragma once

#include "CorvaneRef.h"
#include "idatabasecreator.h"

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

template <class T> class CCompiledList
{
public:
    // Of several pairs of one object the first is found.
    void Add(T& object, CreatorHandle handle)
    {
        if ((m_Pairs.size() + 1) * 4 > m_Slots.size() * 3)
            Grow();
        m_Pairs.emplace_back(CRef<T>(&object), handle);
        Enter(m_Pairs.size());
    }
    // 0 for an object that is not in the output.
    [[nodiscard]] CreatorHandle Find(const T& object) const
    {
        if (m_Slots.empty())
            return 0;
        const std::uint32_t number = m_Slots[FindSlot(object)];
        return number == 0 ? 0 : m_Pairs[number - 1].second;
    }
    void Clear()
    {
        m_Pairs.clear();
        m_Slots.clear();
    }
    [[nodiscard]] bool IsEmpty() const { return m_Pairs.empty(); }

private:
    // The slot of the object, or the free one where a search for it ends.
    [[nodiscard]] std::size_t FindSlot(const T& object) const
    {
        // Objects lie next to each other: the product spreads them, its upper half is taken.
        const auto address = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(&object));
        const std::size_t mask = m_Slots.size() - 1;
        std::size_t slot = static_cast<std::size_t>((address * 0x9E3779B97F4A7C15) >> 32) & mask;
        while (m_Slots[slot] != 0 && m_Pairs[m_Slots[slot] - 1].first != &object)
            slot = (slot + 1) & mask;
        return slot;
    }

    void Enter(std::size_t number)
    {
        std::uint32_t& slot = m_Slots[FindSlot(*m_Pairs[number - 1].first)];
        if (slot == 0)
            slot = static_cast<std::uint32_t>(number);
    }

    void Grow()
    {
        constexpr std::size_t kFirstSlots = 64;
        m_Slots.assign(m_Slots.empty() ? kFirstSlots : m_Slots.size() * 2, 0);
        for (std::size_t number = 1; number <= m_Pairs.size(); ++number)
            Enter(number);
    }

    std::vector<std::pair<CRef<T>, CreatorHandle>> m_Pairs;
    // The pairs' numbers, counted from 1, by the hash of their object; 0 for a free slot. A power of two.
    std::vector<std::uint32_t> m_Slots;
};
