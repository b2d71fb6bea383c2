// The databases that one creator has open: their handles, and the border's rule that no exception crosses it.
// `Writer` holds the content of one.
#pragma once

#include "CreatorHandles.h"

#include <algorithm>
#include <memory>
#include <vector>

template <class Writer> class COpenDatabases
{
public:
    // 0 when there is no memory for one, or no handle left.
    CreatorHandle Create()
    {
        try
        {
            auto database = std::make_unique<SDatabase>();
            database->serial = TakeSerial();
            if (database->serial == 0)
                return 0;
            m_Databases.push_back(std::move(database));
        }
        catch (...)
        {
            return 0;
        }
        return PackHandle({EHandleKind::Database, m_Databases.back()->serial, 0});
    }

    // Handles that are unknown are passed over.
    void Release(CreatorHandle database)
    {
        const SDatabase* const open = Find(UnpackHandle(database), EHandleKind::Database);
        if (open == nullptr)
            return;
        m_pRecent = nullptr;
        std::erase_if(m_Databases, [open](const auto& other) { return other.get() == open; });
    }

    // Runs `save` on the writer. An exception changes nothing, so that the next save may succeed. False for
    // a database in which something that was asked for may be missing.
    template <class Work> bool Save(CreatorHandle database, const Work& save)
    {
        const SDatabase* const open = Find(UnpackHandle(database), EHandleKind::Database);
        if (open == nullptr || open->isBroken)
            return false;
        try
        {
            return save(open->writer);
        }
        catch (...)
        {
            return false;
        }
    }

    // Runs `work(writer, index)` for a handle of that kind; `refusal` for any other one, and for an
    // exception.
    template <class Result, class Work>
    Result Call(CreatorHandle handle, EHandleKind kind, Result refusal, const Work& work)
    {
        const SHandle unpacked = UnpackHandle(handle);
        SDatabase* const database = Find(unpacked, kind);
        if (database == nullptr)
            return refusal;
        try
        {
            return work(database->writer, unpacked.index);
        }
        catch (...)
        {
            database->isBroken = true;
            return refusal;
        }
    }

    // Makes something of `kind` in what `parent` names; `add(writer, index)` answers its index.
    template <class Work>
    CreatorHandle Add(CreatorHandle parent, EHandleKind parentKind, EHandleKind kind, const Work& add)
    {
        return Call(parent, parentKind, CreatorHandle{0},
                    [&](Writer& writer, std::uint32_t parentIndex)
                    {
                        const std::uint32_t index = add(writer, parentIndex);
                        if (index == Writer::kNone)
                            return CreatorHandle{0};
                        return PackHandle({kind, UnpackHandle(parent).serial, index});
                    });
    }

private:
    struct SDatabase
    {
        std::uint32_t serial = 0;
        // A call ended with an exception, so something that was asked for may be missing.
        bool isBroken = false;
        Writer writer;
    };

    // The open database of a handle of that kind, or null. Fast for the database of the call before.
    SDatabase* Find(const SHandle& handle, EHandleKind kind)
    {
        if (handle.kind != kind || (kind == EHandleKind::Database && handle.index != 0))
            return nullptr;
        if (m_pRecent != nullptr && m_pRecent->serial == handle.serial)
            return m_pRecent;
        const auto found =
            std::find_if(m_Databases.begin(), m_Databases.end(),
                         [&](const auto& database) { return database->serial == handle.serial; });
        if (found == m_Databases.end())
            return nullptr;
        m_pRecent = found->get();
        return m_pRecent;
    }

    std::vector<std::unique_ptr<SDatabase>> m_Databases;
    SDatabase* m_pRecent = nullptr;
};
