// The default creator: checks what crosses the border and passes it on to a writer of packed databases.
//
// No call throws or crashes for a bad argument. A handle that is unknown, released or of another kind, a null
// text, an index or count out of range, or a setter that does not fit the attribute's type is refused with 0
// or false, or ignored by the setters. A value that could not be kept for lack of memory or room makes the
// save fail.
#pragma once

#include "GameDatabaseWriter.h"
#include "OpenDatabases.h"
#include "idatabasecreator.h"

#include <cstdint>

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
    void SetVector(CreatorHandle attribute, std::int32_t index, EDatabaseValueType type, const float* value);

    COpenDatabases<CGameDatabaseWriter> m_Databases;
};
