// Both creator libraries for tests. It keeps its calls as texts, "SetInteger 42 0 5" for attribute 42, index
// 0 and value 5, and can refuse one. The override output's calls have no index.
#pragma once

#include "Unicode.h"
#include "idatabasecreator.h"

#include <iomanip>
#include <sstream>
#include <string>
#include <vector>

class CRecordingCreator final : public IDatabaseCreatorMgr, public IDatabaseCreatorUnpackedMgr
{
public:
    using Handle = CreatorHandle;
    using Number = std::int32_t;
    using Text = const char*;
    using Vector = const float*;

    std::vector<std::string> m_Calls;
    // The call, counted from 0, that is refused; none by default.
    std::size_t m_nRefusedCall = static_cast<std::size_t>(-1);

    Handle CreateDatabase() override { return 1; }
    void ReleaseDatabase(Handle) override {}
    bool SaveDatabase(Handle, IZROutConverter*) override { return true; }
    bool SaveDatabase(Handle, Text, Text) override { return true; }
    Handle CreateCategory(Handle, Text, Text) override { return 1; }
    Handle CreateRecord(Handle, Text) override { return 1; }

    // The tests make one attribute at a time: its handle is 42.
    Handle CreateAttribute(Handle record, Text name, Number type, Number kind, Number count) override
    {
        return Take("CreateAttribute", record, name, type, kind, count) ? 42 : 0;
    }
    void SetInteger(Handle a, Number i, Number value) override { Take("SetInteger", a, i, value); }
    void SetFloat(Handle a, Number i, float value) override { Take("SetFloat", a, i, value); }
    void SetText(Handle a, Number i, Text value) override { Take("SetText", a, i, value); }
    void SetWideText(Handle a, Number i, const char16_t* s) override
    {
        Take("SetWideText", a, i, ToNarrow(s));
    }
    void SetVector2(Handle a, Number i, Vector v) override { Take("SetVector2", a, i, Join(v, 2)); }
    void SetVector3(Handle a, Number i, Vector v) override { Take("SetVector3", a, i, Join(v, 3)); }
    void SetVector4(Handle a, Number i, Vector v) override { Take("SetVector4", a, i, Join(v, 4)); }
    void SetBoolean(Handle a, Number i, bool value) override { Take("SetBoolean", a, i, value); }
    void SetRecordLink(Handle a, Number i, Handle record) override { Take("SetRecordLink", a, i, record); }

    Handle CreateAttribute(Handle database, Text help, Number type, Text name, Text data, Text typeName,
                           Number one, Number count) override
    {
        return Take("CreateAttribute", database, help, type, name, data, typeName, one, count) ? 42 : 0;
    }
    bool SetIntegerLimits(Handle a, Number x, Number y) override { return Take("SetIntegerLimits", a, x, y); }
    bool SetFloatLimits(Handle a, float x, float y) override { return Take("SetFloatLimits", a, x, y); }
    bool SetTextLimits(Handle a, Number x, Number y) override { return Take("SetTextLimits", a, x, y); }
    bool SetInteger(Handle a, Number value) override { return Take("SetInteger", a, value); }
    bool SetFloat(Handle a, float value) override { return Take("SetFloat", a, value); }
    bool SetText(Handle a, Text value) override { return Take("SetText", a, value); }
    bool SetBoolean(Handle a, bool value) override { return Take("SetBoolean", a, value); }
    bool SetVector2(Handle a, Vector v) override { return Take("SetVector2", a, Join(v, 2)); }
    bool SetVector3(Handle a, Vector v) override { return Take("SetVector3", a, Join(v, 3)); }
    bool SetVector4(Handle a, Vector v) override { return Take("SetVector4", a, Join(v, 4)); }

private:
    // False when the call is refused.
    template <class... Args> bool Take(Text operation, const Args&... arguments)
    {
        std::ostringstream call;
        call << std::boolalpha << std::setprecision(9) << operation;
        ((call << ' ' << arguments), ...);
        m_Calls.push_back(call.str());
        return m_Calls.size() - 1 != m_nRefusedCall;
    }
    static std::string Join(Vector values, int count)
    {
        std::ostringstream text;
        for (int i = 0; i < count; ++i)
            text << std::setprecision(9) << (i > 0 ? "," : "") << values[i];
        return text.str();
    }
};
