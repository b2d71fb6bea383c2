// A hash index from names to objects that somebody else owns. It stores hashes and pointers only: the caller
// compares the names themselves, so that no name is kept twice. One hash may have several objects; which of
// them stands first in a list is the list's knowledge.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

template <class T> class CPointerIndex
{
public:
    // Adding a pair that is there changes nothing.
    void Add(std::size_t hash, T& object)
    {
        if (FindSlot(hash, object))
            return;
        if ((m_nUsed + 1) * 4 > m_Slots.size() * 3)
            Rehash();
        std::size_t i = hash & (m_Slots.size() - 1);
        while (m_Slots[i].m_pObject != nullptr)
            i = (i + 1) & (m_Slots.size() - 1);
        m_nUsed += m_Slots[i].m_bRemoved ? 0 : 1;
        ++m_nCount;
        m_Slots[i] = {hash, &object, false};
    }

    // False when the pair is not there.
    bool Remove(std::size_t hash, const T& object)
    {
        SSlot* slot = FindSlot(hash, object);
        if (slot == nullptr)
            return false;
        slot->m_pObject = nullptr;
        slot->m_bRemoved = true;
        --m_nCount;
        return true;
    }

    void Clear()
    {
        m_Slots.clear();
        m_nUsed = m_nCount = 0;
    }

    // The only object of this hash for which `matches` holds. `ambiguous` is set, and null returned, when
    // several do.
    template <class Match> T* FindOnly(std::size_t hash, bool& ambiguous, Match matches) const
    {
        ambiguous = false;
        T* found = nullptr;
        if (m_Slots.empty())
            return nullptr;
        for (std::size_t i = hash & (m_Slots.size() - 1);; i = (i + 1) & (m_Slots.size() - 1))
        {
            const SSlot& slot = m_Slots[i];
            if (slot.m_pObject == nullptr && !slot.m_bRemoved)
                return found;
            if (slot.m_pObject == nullptr || slot.m_nHash != hash || !matches(*slot.m_pObject))
                continue;
            ambiguous = found != nullptr;
            if (ambiguous)
                return nullptr;
            found = slot.m_pObject;
        }
    }

    [[nodiscard]] bool Contains(std::size_t hash, const T& object) const
    {
        return FindSlot(hash, object) != nullptr;
    }

private:
    struct SSlot
    {
        std::size_t m_nHash = 0;
        T* m_pObject = nullptr;
        bool m_bRemoved = false;
    };

    const SSlot* FindSlot(std::size_t hash, const T& object) const
    {
        if (m_Slots.empty())
            return nullptr;
        for (std::size_t i = hash & (m_Slots.size() - 1);; i = (i + 1) & (m_Slots.size() - 1))
        {
            const SSlot& slot = m_Slots[i];
            if (slot.m_pObject == &object && slot.m_nHash == hash)
                return &slot;
            if (slot.m_pObject == nullptr && !slot.m_bRemoved)
                return nullptr;
        }
    }

    SSlot* FindSlot(std::size_t hash, const T& object)
    {
        return const_cast<SSlot*>(static_cast<const CPointerIndex*>(this)->FindSlot(hash, object));
    }

    // Grows when full of objects, or sweeps what was removed.
    void Rehash()
    {
        std::vector<SSlot> old(
            std::max<std::size_t>(8, m_nCount * 2 >= m_Slots.size() ? m_Slots.size() * 2 : m_Slots.size()));
        old.swap(m_Slots);
        m_nUsed = m_nCount = 0;
        for (const SSlot& slot : old)
        {
            if (slot.m_pObject)
                Add(slot.m_nHash, *slot.m_pObject);
        }
    }

    std::vector<SSlot> m_Slots; // A power of two.
    std::size_t m_nUsed = 0;    // Slots that are not virgin.
    std::size_t m_nCount = 0;
};
