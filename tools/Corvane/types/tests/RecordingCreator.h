// Two creator libraries for tests. Each keeps its calls as texts, "SetInteger 42 0 5" for attribute 42, index
// 0 and value 5, and can refuse.
#pragma once

#include "Unicode.h"
#include "idatabasecreator.h"

#include <cstddef>
#include <cstdio>
#include <string>
#include <type_traits>
#include <vector>

class CCallLog
{
public:
    template <class... Args> void Add(const char* operation, const Args&... arguments)
    {
        m_Calls.emplace_back(operation);
        ((m_Calls.back() += ' ' + ToText(arguments)), ...);
    }

    std::vector<std::string> m_Calls;

protected:
    // The handle of every attribute; the tests make one attribute at a time.
    static constexpr CreatorHandle kAttribute = 42;

    [[nodiscard]] static std::string ToText(const float* values, int count)
    {
        std::string text = ToText(values[0]);
        for (int i = 1; i < count; ++i)
            text += ',' + ToText(values[i]);
        return text;
    }

private:
    [[nodiscard]] static std::string ToText(const std::string& value) { return value; }
    template <class T, class = std::enable_if_t<std::is_arithmetic_v<T>>>
    [[nodiscard]] static std::string ToText(T value)
    {
        if constexpr (std::is_same_v<T, bool>)
            return value ? "true" : "false";
        if constexpr (std::is_integral_v<T>)
            return std::to_string(value);
        char buffer[64];
        std::snprintf(buffer, sizeof buffer, "%.9g", static_cast<double>(value));
        return buffer;
    }
};

class CRecordingCreator final : public IDatabaseCreatorMgr, public CCallLog
{
public:
    bool m_bRefuse = false;

    [[nodiscard]] CreatorHandle CreateDatabase() override { return 1; }
    void ReleaseDatabase(CreatorHandle) override {}
    [[nodiscard]] bool SaveDatabase(CreatorHandle, IZROutConverter*) override { return true; }
    [[nodiscard]] CreatorHandle CreateCategory(CreatorHandle, const char*, const char*) override { return 1; }
    [[nodiscard]] CreatorHandle CreateRecord(CreatorHandle, const char*) override { return 1; }
    [[nodiscard]] CreatorHandle CreateAttribute(CreatorHandle record, const char* name, std::int32_t type,
                                                std::int32_t kind, std::int32_t valueCount) override
    {
        Add("CreateAttribute", record, name, type, kind, valueCount);
        return m_bRefuse ? 0 : kAttribute;
    }

    void SetInteger(CreatorHandle a, std::int32_t i, std::int32_t value) override
    {
        Add("SetInteger", a, i, value);
    }
    void SetFloat(CreatorHandle a, std::int32_t i, float value) override { Add("SetFloat", a, i, value); }
    void SetText(CreatorHandle a, std::int32_t i, const char* value) override { Add("SetText", a, i, value); }
    void SetWideText(CreatorHandle a, std::int32_t i, const char16_t* value) override
    {
        Add("SetWideText", a, i, ToNarrow(value));
    }
    void SetVector2(CreatorHandle a, std::int32_t i, const float v[2]) override
    {
        Add("SetVector2", a, i, ToText(v, 2));
    }
    void SetVector3(CreatorHandle a, std::int32_t i, const float v[3]) override
    {
        Add("SetVector3", a, i, ToText(v, 3));
    }
    void SetVector4(CreatorHandle a, std::int32_t i, const float v[4]) override
    {
        Add("SetVector4", a, i, ToText(v, 4));
    }
    void SetBoolean(CreatorHandle a, std::int32_t i, bool value) override { Add("SetBoolean", a, i, value); }
    void SetRecordLink(CreatorHandle a, std::int32_t i, CreatorHandle record) override
    {
        Add("SetRecordLink", a, i, record);
    }
};

class CRecordingUnpackedCreator final : public IDatabaseCreatorUnpackedMgr, public CCallLog
{
public:
    // The call, counted from 0, that is refused; none by default.
    std::size_t m_nRefusedCall = static_cast<std::size_t>(-1);

    [[nodiscard]] CreatorHandle CreateDatabase() override { return 1; }
    void ReleaseDatabase(CreatorHandle) override {}
    [[nodiscard]] bool SaveDatabase(CreatorHandle, const char*, const char*) override { return true; }
    [[nodiscard]] CreatorHandle CreateAttribute(CreatorHandle database, const char* help, std::int32_t type,
                                                const char* fullName, const char* data, const char* typeName,
                                                std::int32_t one, std::int32_t valueCount) override
    {
        return Take("CreateAttribute", database, help, type, fullName, data, typeName, one, valueCount)
                   ? kAttribute
                   : 0;
    }

    bool SetIntegerLimits(CreatorHandle a, std::int32_t minimum, std::int32_t maximum) override
    {
        return Take("SetIntegerLimits", a, minimum, maximum);
    }
    bool SetFloatLimits(CreatorHandle a, float minimum, float maximum) override
    {
        return Take("SetFloatLimits", a, minimum, maximum);
    }
    bool SetTextLimits(CreatorHandle a, std::int32_t minimum, std::int32_t maximum) override
    {
        return Take("SetTextLimits", a, minimum, maximum);
    }
    bool SetInteger(CreatorHandle a, std::int32_t value) override { return Take("SetInteger", a, value); }
    bool SetFloat(CreatorHandle a, float value) override { return Take("SetFloat", a, value); }
    bool SetText(CreatorHandle a, const char* value) override { return Take("SetText", a, value); }
    bool SetBoolean(CreatorHandle a, bool value) override { return Take("SetBoolean", a, value); }
    bool SetVector2(CreatorHandle a, const float v[2]) override
    {
        return Take("SetVector2", a, ToText(v, 2));
    }
    bool SetVector3(CreatorHandle a, const float v[3]) override
    {
        return Take("SetVector3", a, ToText(v, 3));
    }
    bool SetVector4(CreatorHandle a, const float v[4]) override
    {
        return Take("SetVector4", a, ToText(v, 4));
    }

private:
    template <class... Args> [[nodiscard]] bool Take(const char* operation, const Args&... arguments)
    {
        Add(operation, arguments...);
        return m_Calls.size() - 1 != m_nRefusedCall;
    }
};
