// The default creator of the two override files: checks what crosses the border and passes it on to a writer.
//
// No call throws or crashes for a bad argument. A handle that is unknown, released, of another kind or of the
// other creator, a null text, a type that has no override, or a value that does not fit the attribute is
// refused with 0 or false. When memory ran out, the save fails.
#pragma once

#include "OpenDatabases.h"
#include "OverrideWriter.h"
#include "idatabasecreator.h"

#include <cstdint>

class CDatabaseCreatorUnpackedMgr final : public IDatabaseCreatorUnpackedMgr
{
public:
    CreatorHandle CreateDatabase() override;
    void ReleaseDatabase(CreatorHandle database) override;
    bool SaveDatabase(CreatorHandle database, const char* databasePath, const char* constraintsPath) override;

    CreatorHandle CreateAttribute(CreatorHandle database, const char* help, std::int32_t type,
                                  const char* fullName, const char* data, const char* typeName,
                                  std::int32_t one, std::int32_t valueCount) override;

    bool SetIntegerLimits(CreatorHandle attribute, std::int32_t minimum, std::int32_t maximum) override;
    bool SetFloatLimits(CreatorHandle attribute, float minimum, float maximum) override;
    bool SetTextLimits(CreatorHandle attribute, std::int32_t minimum, std::int32_t maximum) override;

    bool SetInteger(CreatorHandle attribute, std::int32_t value) override;
    bool SetFloat(CreatorHandle attribute, float value) override;
    bool SetText(CreatorHandle attribute, const char* value) override;
    bool SetBoolean(CreatorHandle attribute, bool value) override;
    bool SetVector2(CreatorHandle attribute, const float value[2]) override;
    bool SetVector3(CreatorHandle attribute, const float value[3]) override;
    bool SetVector4(CreatorHandle attribute, const float value[4]) override;

private:
    bool SetVector(CreatorHandle attribute, EDatabaseValueType type, const float* value);

    COpenDatabases<COverrideWriter> m_Databases;
};
