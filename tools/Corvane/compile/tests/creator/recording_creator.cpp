// A creator library whose packed file and override text are the lists of the calls that it got, and that
// misbehaves as the environment variable CORVANE_TEST_CREATOR tells it.
#include "idatabasecreator.h"
#include "izroutconverter.h"

#include <cstdlib>
#include <fstream>
#include <span>
#include <stdexcept>
#include <string>

namespace
{
// Whether the call succeeds; throws in the mode "throw <call>".
bool Do(const std::string& call)
{
    const char* mode = std::getenv("CORVANE_TEST_CREATOR");
    if (mode != nullptr && mode == "throw " + call)
        throw std::runtime_error("the creator failed");
    return mode == nullptr || mode != "refuse " + call;
}

class CRecordingCreator final : public IDatabaseCreatorMgr
{
public:
    CreatorHandle CreateDatabase() override
    {
        if (!Do("database"))
            return 0;
        m_nLast = 1;
        // A database that an earlier compile did not release shows in this line.
        m_sCalls = "database " + std::to_string(++m_nOpen) + '\n';
        return m_nLast;
    }
    void ReleaseDatabase(CreatorHandle) override
    {
        --m_nOpen;
        static_cast<void>(Do("release"));
    }
    bool SaveDatabase(CreatorHandle, IZROutConverter* out) override
    {
        const bool written = out->Write(m_sCalls.data(), m_sCalls.size());
        // One that does not look at the result of its writes says that all is well.
        return (written || !Do("look")) && Do("save");
    }
    CreatorHandle CreateCategory(CreatorHandle, const char* path, const char* schema) override
    {
        return Create("category", 0, std::string(path) + " (" + schema + ')');
    }
    CreatorHandle CreateRecord(CreatorHandle category, const char* name) override
    {
        return Create("record", category, name);
    }
    CreatorHandle CreateAttribute(CreatorHandle record, const char* name, std::int32_t type,
                                  std::int32_t kind, std::int32_t count) override
    {
        return Create("attribute", record,
                      std::string(name) + ' ' + std::to_string(type) + ' ' + std::to_string(kind) + ' ' +
                          std::to_string(count));
    }
    void SetInteger(CreatorHandle attribute, std::int32_t index, std::int32_t value) override
    {
        static_cast<void>(Do("value"));
        Set(attribute, index, ' ' + std::to_string(value));
    }
    // The test databases hold integers and links only.
    void SetFloat(CreatorHandle, std::int32_t, float) override {}
    void SetText(CreatorHandle, std::int32_t, const char*) override {}
    void SetWideText(CreatorHandle, std::int32_t, const char16_t*) override {}
    void SetVector2(CreatorHandle, std::int32_t, const float[2]) override {}
    void SetVector3(CreatorHandle, std::int32_t, const float[3]) override {}
    void SetVector4(CreatorHandle, std::int32_t, const float[4]) override {}
    void SetBoolean(CreatorHandle, std::int32_t, bool) override {}
    void SetRecordLink(CreatorHandle attribute, std::int32_t index, CreatorHandle record) override
    {
        Set(attribute, index, " -> " + std::to_string(record));
    }

private:
    CreatorHandle Create(const std::string& what, CreatorHandle parent, const std::string& text)
    {
        if (!Do(what))
            return 0;
        const std::string below = parent == 0 ? "" : " in " + std::to_string(parent);
        m_sCalls += what + ' ' + std::to_string(++m_nLast) + below + ": " + text + '\n';
        return m_nLast;
    }
    void Set(CreatorHandle attribute, std::int32_t index, const std::string& value)
    {
        m_sCalls += "  " + std::to_string(attribute) + '[' + std::to_string(index) + ']' + value + '\n';
    }

    std::string m_sCalls;
    CreatorHandle m_nLast = 0;
    int m_nOpen = 0;
};

class CRecordingUnpackedCreator final : public IDatabaseCreatorUnpackedMgr
{
public:
    CreatorHandle CreateDatabase() override
    {
        m_sCalls.clear();
        return Do("override database") ? 7 : 0;
    }
    void ReleaseDatabase(CreatorHandle) override { m_sCalls += "release\n"; }
    bool SaveDatabase(CreatorHandle database, const char* path, const char* constraintsPath) override
    {
        std::ofstream(path) << m_sCalls << "save " << database << '\n';
        std::ofstream(constraintsPath) << "constraints\n";
        return Do("override save");
    }
    CreatorHandle CreateAttribute(CreatorHandle, const char* help, std::int32_t type, const char* fullName,
                                  const char* data, const char* typeName, std::int32_t one,
                                  std::int32_t valueCount) override
    {
        if (!Do("override attribute"))
            return 0;
        m_sCalls += std::string(fullName) + ": " + typeName + ' ' + std::to_string(type) + ' ' +
                    std::to_string(one) + ' ' + std::to_string(valueCount) + " \"" + data + "\" \"" + help +
                    "\"\n";
        return 1;
    }
    bool SetIntegerLimits(CreatorHandle, std::int32_t minimum, std::int32_t maximum) override
    {
        return Note(" limits " + std::to_string(minimum) + ' ' + std::to_string(maximum));
    }
    bool SetFloatLimits(CreatorHandle, float minimum, float maximum) override
    {
        return Note(" float limits " + std::to_string(minimum) + ' ' + std::to_string(maximum));
    }
    bool SetTextLimits(CreatorHandle, std::int32_t minimum, std::int32_t maximum) override
    {
        return Note(" text limits " + std::to_string(minimum) + ' ' + std::to_string(maximum));
    }
    bool SetInteger(CreatorHandle, std::int32_t value) override
    {
        return Note(" int " + std::to_string(value));
    }
    bool SetFloat(CreatorHandle, float value) override { return NoteFloats({&value, 1}); }
    bool SetText(CreatorHandle, const char* value) override { return Note(" text " + std::string(value)); }
    bool SetBoolean(CreatorHandle, bool value) override { return Note(value ? " true" : " false"); }
    bool SetVector2(CreatorHandle, const float value[2]) override { return NoteFloats({value, 2}); }
    bool SetVector3(CreatorHandle, const float value[3]) override { return NoteFloats({value, 3}); }
    bool SetVector4(CreatorHandle, const float value[4]) override { return NoteFloats({value, 4}); }

private:
    bool Note(const std::string& call)
    {
        m_sCalls += call + '\n';
        return Do("override value");
    }
    bool NoteFloats(std::span<const float> values)
    {
        std::string text = " floats";
        for (const float value : values)
            text += ' ' + std::to_string(value);
        return Note(text);
    }

    std::string m_sCalls;
};
} // namespace

extern "C" __attribute__((visibility("default"))) IDatabaseCreatorUnpackedMgr*
GetIDatabaseCreatorUnpackedMgr()
{
    static CRecordingUnpackedCreator creator;
    return Do("override export") ? &creator : nullptr;
}

extern "C" __attribute__((visibility("default"))) IDatabaseCreatorMgr* GetIDatabaseCreatorMgr()
{
    static CRecordingCreator creator;
    return Do("export") ? &creator : nullptr;
}
