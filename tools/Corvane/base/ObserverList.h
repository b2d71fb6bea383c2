// A list of callbacks that are told in the order of their registration.
//
// A callback that is added during a notification is told too; one may remove itself or any other during its
// own call; notifications nest. The first result other than 0 ends a notification and is its answer, so
// that a notification can be a question. One thread only.
#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

// Keeps a registration; unregisters with the object. Outliving the list is fine.
class CObserverHandle
{
public:
    CObserverHandle() = default;
    explicit CObserverHandle(std::function<void()> unregister) : m_Unregister(std::move(unregister)) {}
    CObserverHandle(CObserverHandle&& other) noexcept
        : m_Unregister(std::exchange(other.m_Unregister, nullptr))
    {
    }
    CObserverHandle& operator=(CObserverHandle&& other) noexcept
    {
        if (this != &other)
        {
            Reset();
            m_Unregister = std::exchange(other.m_Unregister, nullptr);
        }
        return *this;
    }
    ~CObserverHandle() { Reset(); }

    void Reset()
    {
        if (auto unregister = std::exchange(m_Unregister, nullptr))
            unregister();
    }

private:
    std::function<void()> m_Unregister;
};

template <class... Args> class CObserverList
{
public:
    using FCallback = std::function<int(Args...)>;

    [[nodiscard]] CObserverHandle Add(FCallback callback)
    {
        auto entry = std::make_shared<SEntry>(SEntry{std::move(callback), true});
        m_pEntries->m_List.push_back(entry);
        return CObserverHandle([list = std::weak_ptr<SList>(m_pEntries), entry] { Remove(list, *entry); });
    }

    int Notify(Args... arguments) const
    {
        const std::shared_ptr<SList> entries = m_pEntries; // A callback may destroy the owner of the list.
        ++entries->m_nDepth;
        int answer = 0;
        for (std::size_t i = 0; i < entries->m_List.size() && answer == 0; ++i)
        {
            const std::shared_ptr<SEntry> entry = entries->m_List[i];
            if (entry->m_bAlive)
                answer = entry->m_Callback(arguments...);
        }
        if (--entries->m_nDepth == 0)
            Sweep(*entries);
        return answer;
    }

    [[nodiscard]] bool IsEmpty() const { return m_pEntries->m_List.empty(); }

private:
    struct SEntry
    {
        FCallback m_Callback;
        bool m_bAlive;
    };
    struct SList
    {
        std::vector<std::shared_ptr<SEntry>> m_List;
        int m_nDepth = 0;
    };

    static void Remove(const std::weak_ptr<SList>& list, SEntry& entry)
    {
        entry.m_bAlive = false;
        const std::shared_ptr<SList> entries = list.lock();
        if (entries && entries->m_nDepth == 0)
            Sweep(*entries);
    }

    static void Sweep(SList& entries)
    {
        std::erase_if(entries.m_List, [](const auto& entry) { return !entry->m_bAlive; });
    }

    std::shared_ptr<SList> m_pEntries = std::make_shared<SList>();
};
