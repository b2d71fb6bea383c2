#include "FindingReport.h"

#include "FindingPlace.h"
#include "FormatText.h"
#include "JsonWriter.h"
#include "Unicode.h"
#include "ValidateCore.h"

#include <algorithm>
#include <sstream>

namespace
{
using ELayout = CJsonWriter::ELayout;

constexpr std::int64_t kFormat = 1;

// A finding is one line, and a value must not drive a terminal.
void ReplaceControls(std::u16string& text)
{
    std::replace_if(
        text.begin(), text.end(), [](char16_t unit) { return unit < 0x20 || (unit >= 0x7F && unit < 0xA0); },
        u' ');
}

std::u16string FormatLine(std::u16string_view rootFile, const CValidateError& error)
{
    const SFindingPlace place = DescribePlace(error.m_pAttrib.Get());
    std::u16string line(place.m_sFile.empty() ? rootFile : place.m_sFile);
    line += error.m_Severity == ESeverity::Critical ? u": error: " : u": warning: ";
    if (error.m_pAttrib)
        line += FormatText(u"%s, %s[%u]: ", place.m_sRecord, place.m_sAttribute, error.m_nValueIndex);
    line += FormatText(u"%s: %s", error.m_sType, error.m_sDescription);
    ReplaceControls(line);
    return line;
}

void WriteText(CJsonWriter& json, std::string_view key, std::u16string_view text)
{
    json.Key(key);
    json.Text(text);
}

void WriteNumber(CJsonWriter& json, std::string_view key, std::size_t number)
{
    json.Key(key);
    json.Integer(static_cast<std::int64_t>(number));
}

void WriteFinding(CJsonWriter& json, const CValidateError& error)
{
    json.BeginObject(ELayout::Lines);
    WriteText(json, "severity", error.m_Severity == ESeverity::Critical ? u"critical" : u"warning");
    WriteText(json, "error", error.m_sType);
    WriteText(json, "description", error.m_sDescription);
    if (error.m_pAttrib)
    {
        const SFindingPlace place = DescribePlace(error.m_pAttrib.Get());
        WriteText(json, "file", place.m_sFile);
        WriteText(json, "record", place.m_sRecord);
        WriteText(json, "attribute", place.m_sAttribute);
        WriteNumber(json, "attributeBuild", error.m_pAttrib->GetBuild());
        WriteText(json, "type", place.m_sTypeName);
        WriteNumber(json, "value", error.m_nValueIndex);
    }
    json.EndObject();
}

void WriteCore(CJsonWriter& json, const CValidateCore& core, std::size_t records)
{
    WriteNumber(json, "build", core.GetBuild());
    WriteNumber(json, "records", records);
    WriteNumber(json, "critical", core.GetCriticalCount());
    WriteNumber(json, "warnings", core.GetWarningCount());
    json.Key("findings");
    json.BeginArray(ELayout::Lines);
    for (const CValidateError& error : core.GetErrors())
        WriteFinding(json, error);
    json.EndArray();
}

std::string Count(std::size_t number, const std::string& thing)
{
    return std::to_string(number) + " " + thing + (number == 1 ? "" : "s");
}
} // namespace

std::string FormatFindings(const SValidation& validation)
{
    std::string text;
    for (const CValidateError& error : validation.m_pCore->GetErrors())
        text += ToNarrow(FormatLine(validation.m_sRootFile, error)) + '\n';
    return text;
}

std::string FormatFindingsJson(const SValidation& validation)
{
    std::ostringstream out;
    CJsonWriter json(out);
    json.BeginObject(ELayout::Lines);
    json.Key("format");
    json.Integer(kFormat);
    WriteText(json, "root", validation.m_sRootFile);
    json.Key("loaded");
    json.Boolean(validation.m_pCore != nullptr);
    if (validation.m_pCore)
        WriteCore(json, *validation.m_pCore, validation.m_nRecords);
    json.Key("messages");
    json.BeginArray(ELayout::Lines);
    for (const CMessageCollector::SMessage& message : validation.m_Messages)
    {
        json.BeginObject(ELayout::Inline);
        WriteText(json, "title", message.m_sTitle);
        WriteText(json, "text", message.m_sText);
        json.EndObject();
    }
    json.EndArray();
    json.EndObject();
    return out.str();
}

std::string FormatSummary(const SValidation& validation)
{
    const CValidateCore& core = *validation.m_pCore;
    return Count(validation.m_nRecords, "record") + " checked for build " + std::to_string(core.GetBuild()) +
           ": " + Count(core.GetCriticalCount(), "critical finding") + ", " +
           Count(core.GetWarningCount(), "warning") + ".";
}
