// The default creator of the two override files: checks what crosses the border and passes it on to a writer.
//
// No call throws or crashes for a bad argument. A handle that is unknown, released, of another kind or of the
// other creator, a null text, a type that has no override, or a value that does not fit the attribute is
// refused with 0 or false. When memory ran out, the save fails.
#pragma once

#include "CreatorHandles.h"
#include "OverrideWriter.h"
#include "idatabasecreator.h"

#include <cstdint>
#include <memory>
#include <vector>

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
    struct SDatabase
    {
        std::uint32_t serial = 0;
        // A call ended with an exception, so something that was asked for may be missing.
        bool isBroken = false;
        COverrideWriter writer;
    };

    // The open database of a handle of that kind, or null.
    SDatabase* Find(const SHandle& handle, EHandleKind kind);
    // Runs `work` on the database of `handle` and turns an exception into `refusal`.
    template <class Result, class Work>
    Result Call(CreatorHandle handle, EHandleKind kind, Result refusal, const Work& work);
    bool SetVector(CreatorHandle attribute, EDatabaseValueType type, const float* value);

    std::vector<std::unique_ptr<SDatabase>> m_Databases;
};
