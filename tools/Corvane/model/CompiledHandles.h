// The pairs of objects and creator handles that one compile fills. The list holds a reference to each object;
// look-ups are hashed and touch one place of memory, since a large database asks for objects all over it.
#pragma once

#include "CorvaneRef.h"
#include "idatabasecreator.h"

#include <cstddef>
#include <cstdint>
#include <vector>

template <class T> class CCompiledList
{
public:
    // Of several pairs of one object the first is found.
    void Add(T& object, CreatorHandle handle)
    {
        if ((m_Objects.size() + 1) * 4 > m_Slots.size() * 3)
            Grow();
        SSlot& slot = m_Slots[FindSlot(object)];
        if (slot.m_pObject)
            return;
        m_Objects.emplace_back(&object);
        slot = {&object, handle};
    }
    // 0 for an object that is not in the output.
    [[nodiscard]] CreatorHandle Find(const T& object) const
    {
        return m_Slots.empty() ? 0 : m_Slots[FindSlot(object)].m_nHandle;
    }
    void Clear()
    {
        m_Objects.clear();
        m_Slots.clear();
    }
    [[nodiscard]] bool IsEmpty() const { return m_Objects.empty(); }

private:
    struct SSlot
    {
        const T* m_pObject = nullptr; // Null for a free slot.
        CreatorHandle m_nHandle = 0;
    };

    // The slot of the object, or the free one where a search for it ends.
    [[nodiscard]] std::size_t FindSlot(const T& object) const
    {
        // Objects lie next to each other: the product spreads them, its upper half is taken.
        const auto address = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(&object));
        const std::size_t mask = m_Slots.size() - 1;
        std::size_t slot = static_cast<std::size_t>((address * 0x9E3779B97F4A7C15) >> 32) & mask;
        while (m_Slots[slot].m_pObject && m_Slots[slot].m_pObject != &object)
            slot = (slot + 1) & mask;
        return slot;
    }

    void Grow()
    {
        constexpr std::size_t kFirstSlots = 64;
        std::vector<SSlot> old(m_Slots.empty() ? kFirstSlots : m_Slots.size() * 2);
        old.swap(m_Slots);
        for (const SSlot& slot : old)
        {
            if (slot.m_pObject)
                m_Slots[FindSlot(*slot.m_pObject)] = slot;
        }
    }

    std::vector<CRef<T>> m_Objects;
    std::vector<SSlot> m_Slots; // A power of two.
};
