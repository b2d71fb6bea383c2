// The pairs of objects and creator handles that one compile fills, in the order in which they were created.
// Each pair holds a reference; look-ups are hashed.
#pragma once

#include "CorvaneRef.h"
#include "idatabasecreator.h"

#include <unordered_map>
#include <utility>
#include <vector>

template <class T> class CCompiledList
{
public:
    void Add(T& object, CreatorHandle handle)
    {
        m_Pairs.emplace_back(CRef<T>(&object), handle);
        m_Handles.emplace(&object, handle);
    }
    // 0 for an object that is not in the output.
    [[nodiscard]] CreatorHandle Find(const T& object) const
    {
        const auto found = m_Handles.find(&object);
        return found == m_Handles.end() ? 0 : found->second;
    }
    void Clear()
    {
        m_Pairs.clear();
        m_Handles.clear();
    }
    [[nodiscard]] bool IsEmpty() const { return m_Pairs.empty(); }

private:
    std::vector<std::pair<CRef<T>, CreatorHandle>> m_Pairs;
    std::unordered_map<const T*, CreatorHandle> m_Handles;
};
