#include "FindingReport.h"

#include "FindingPlace.h"
#include "FormatText.h"
#include "JsonReport.h"
#include "Output.h"
#include "Unicode.h"
#include "ValidateCore.h"

namespace
{
std::u16string FormatLine(std::u16string_view rootFile, const CValidateError& error)
{
    const SFindingPlace place = DescribePlace(error.m_pAttrib.Get());
    std::u16string line(place.m_sFile.empty() ? rootFile : place.m_sFile);
    line += error.m_Severity == ESeverity::Critical ? u": error: " : u": warning: ";
    if (error.m_pAttrib)
        line += FormatText(u"%s, %s[%u]: ", place.m_sRecord, place.m_sAttribute, error.m_nValueIndex);
    line += FormatText(u"%s: %s", error.m_sType, error.m_sDescription);
    return MakeLine(line);
}

void WriteFinding(CJsonReport& report, const CValidateError& error)
{
    report.BeginObject();
    report.Text("severity", error.m_Severity == ESeverity::Critical ? u"critical" : u"warning");
    report.Text("error", error.m_sType);
    report.Text("description", error.m_sDescription);
    if (error.m_pAttrib)
    {
        const SFindingPlace place = DescribePlace(error.m_pAttrib.Get());
        report.Text("file", place.m_sFile);
        report.Text("record", place.m_sRecord);
        report.Text("attribute", place.m_sAttribute);
        report.Number("attributeBuild", error.m_pAttrib->GetBuild());
        report.Text("type", place.m_sTypeName);
        report.Number("value", static_cast<std::int64_t>(error.m_nValueIndex));
    }
    report.EndObject();
}

void WriteCore(CJsonReport& report, const CValidateCore& core, std::size_t records)
{
    report.Number("build", core.GetBuild());
    report.Number("records", static_cast<std::int64_t>(records));
    report.Number("critical", static_cast<std::int64_t>(core.GetCriticalCount()));
    report.Number("warnings", static_cast<std::int64_t>(core.GetWarningCount()));
    report.BeginList("findings");
    for (const CValidateError& error : core.GetErrors())
        WriteFinding(report, error);
    report.EndList();
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
    CJsonReport report(validation.m_sRootFile, validation.m_pCore != nullptr);
    if (validation.m_pCore)
        WriteCore(report, *validation.m_pCore, validation.m_nRecords);
    return report.Finish(validation.m_Messages);
}

std::string FormatSummary(const SValidation& validation)
{
    const CValidateCore& core = *validation.m_pCore;
    return Count(validation.m_nRecords, "record") + " checked for build " + std::to_string(core.GetBuild()) +
           ": " + Count(core.GetCriticalCount(), "critical finding") + ", " +
           Count(core.GetWarningCount(), "warning") + ".";
}
