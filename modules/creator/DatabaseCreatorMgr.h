// The default creator: checks what crosses the border and passes it on to a writer of packed databases.
//
// No call throws or crashes for a bad argument. A handle that is unknown, released or of another kind, a null
// text, an index or count out of range, or a setter that does not fit the attribute's type is refused with 0
// or false, or ignored by the setters. A value that could not be kept for lack of memory or room makes the
// save fail.
#pragma once

#include "CreatorHandles.h"
#include "GameDatabaseWriter.h"
#include "idatabasecreator.h"

#include <cstdint>
#include <memory>
#include <vector>

class CDatabaseCreatorMgr final : public IDatabaseCreatorMgr
{
public:
    CreatorHandle CreateDatabase() override;
    void ReleaseDatabase(CreatorHandle database) override;
    bool SaveDatabase(CreatorHandle database, IZROutConverter* out) override;

    CreatorHandle CreateCategory(CreatorHandle database, const char* path, const char* schema) override;
    CreatorHandle CreateRecord(CreatorHandle category, const char* name) override;
    CreatorHandle CreateAttribute(CreatorHandle record, const char* name, std::int32_t type,
                                  std::int32_t kind, std::int32_t valueCount) override;

    void SetInteger(CreatorHandle attribute, std::int32_t index, std::int32_t value) override;
    void SetFloat(CreatorHandle attribute, std::int32_t index, float value) override;
    void SetText(CreatorHandle attribute, std::int32_t index, const char* value) override;
    void SetWideText(CreatorHandle attribute, std::int32_t index, const char16_t* value) override;
    void SetVector2(CreatorHandle attribute, std::int32_t index, const float value[2]) override;
    void SetVector3(CreatorHandle attribute, std::int32_t index, const float value[3]) override;
    void SetVector4(CreatorHandle attribute, std::int32_t index, const float value[4]) override;
    void SetBoolean(CreatorHandle attribute, std::int32_t index, bool value) override;
    void SetRecordLink(CreatorHandle attribute, std::int32_t index, CreatorHandle record) override;

private:
    struct SDatabase
    {
        std::uint32_t serial = 0;
        // A call ended with an exception, so something that was asked for may be missing.
        bool isBroken = false;
        CGameDatabaseWriter writer;
    };

    // The open database of a handle of that kind, or null. Fast for the database of the call before.
    SDatabase* Find(const SHandle& handle, EHandleKind kind);
    // Runs `work` on the database of `handle` and turns an exception into `refusal`.
    template <class Result, class Work>
    Result Call(CreatorHandle handle, EHandleKind kind, Result refusal, const Work& work);
    // Creates something in the database of `parent`; `add` answers its index.
    template <class Add>
    CreatorHandle Create(CreatorHandle parent, EHandleKind parentKind, EHandleKind kind, const Add& add);
    void SetVector(CreatorHandle attribute, std::int32_t index, EDatabaseValueType type, const float* value);

    std::vector<std::unique_ptr<SDatabase>> m_Databases;
    SDatabase* m_pRecent = nullptr;
};
