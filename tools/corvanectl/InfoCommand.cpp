#include "InfoCommand.h"

#include "DatabaseSummary.h"
#include "FormatText.h"
#include "JsonReport.h"
#include "LoadedDatabase.h"
#include "Output.h"
#include "Path.h"
#include "Unicode.h"

#include <algorithm>
#include <vector>

namespace
{
constexpr SOption kOptions[] = {{u"--json", false}};

constexpr std::string_view kHelp =
    "  ROOT    the database's root file (*.Gamdb00s)\n"
    "  --json  one object\n"
    "  --help  this text\n"
    "\n"
    "Exit status: 0 done, 3 the database could not be loaded, 4 wrong usage, or "
    "the text could not be\nwritten.\n";

// A row of the report: the words of the text form and the key of the JSON form.
template <class Value> struct SRow
{
    std::u16string_view m_sLabel;
    std::string_view m_sKey;
    Value m_Value;
};

// A binary that the locator does not name is the directory that it would lie in.
std::u16string_view GetBinary(std::u16string_view path)
{
    return EndsInSeparator(path) ? std::u16string_view(u"") : path;
}

std::vector<SRow<std::u16string_view>> GetSettings(const CCorvaneMgr& manager)
{
    const SRootFile& root = manager.GetRootFile();
    const CProjectInfo& project = manager.GetProject();
    return {
        {u"Name", "name", root.m_sName},
        {u"Identifier", "identifier", root.m_sDatabase},
        {u"Packed output", "packedOutput", root.m_sBuild},
        {u"String database", "stringDatabase", root.m_sStringDatabase},
        {u"Post-build step", "postBuildStep", root.m_sPostBuildStep},
        {u"Override database", "overrideDatabase", root.m_sOverrideDatabase},
        {u"Override constraints", "overrideConstraints", root.m_sOverrideConstraints},
        {u"Game", "game", project.m_sGame},
        {u"Project", "project", project.m_sProjectDirectory},
        {u"Resource root", "resourceRoot", project.m_sResourceRoot},
        {u"Tools", "tools", project.m_sToolsRoot},
        {u"Game server", "gameServer", GetBinary(project.m_sGameServer)},
        {u"Creator library", "creatorLibrary", GetBinary(project.m_sGameDatabase)},
    };
}

std::vector<SRow<std::size_t>> GetCounts(const SDatabaseSummary& summary)
{
    return {
        {u"Schemas", "schemas", summary.m_Schemas.size()},
        {u"Schema entries", "schemaEntries", summary.m_nEntries},
        {u"Deprecated entries", "deprecatedEntries", summary.m_nDeprecated},
        {u"Deleted entries", "deletedEntries", summary.m_nDeleted},
        {u"System categories", "systemCategories", summary.m_nSystemCategories},
        {u"Virtual categories", "virtualCategories", summary.m_nVirtualCategories},
        {u"Records", "records", summary.m_nRecords},
        {u"Inheriting records", "inheritingRecords", summary.m_nInheriting},
        {u"Attributes", "attributes", summary.m_nAttributes},
    };
}

std::vector<SRow<SFileCount>> GetFiles(const SDatabaseSummary& summary)
{
    return {
        {u"Root file", "root", summary.m_RootFile},
        {u"Schemas", "schemas", summary.m_SchemaFiles},
        {u"Struct files", "structs", summary.m_CustomFiles},
        {u"Categories", "categories", summary.m_CategoryFiles},
        {u"Records", "records", summary.m_RecordFiles},
    };
}

class CInfoText
{
public:
    [[nodiscard]] std::string Format(const CCorvaneMgr& manager, const SDatabaseSummary& summary);

private:
    void AddLine(std::u16string_view text) { m_sText.append(MakeLine(text)) += u'\n'; }
    void AddRow(std::u16string_view label, std::u16string_view value)
    {
        std::u16string line = u"  " + std::u16string(label) + u':';
        line.resize(std::max<std::size_t>(line.size() + 1, 25), u' ');
        AddLine(line.append(value));
    }
    void AddBuilds(std::uint32_t active, const std::set<std::uint32_t>& builds);
    void AddSchema(const SSchemaSummary& schema);

    std::u16string m_sText;
};

std::u16string FormatBuildList(const std::set<std::uint32_t>& builds)
{
    std::u16string text;
    for (const std::uint32_t build : builds)
        text += FormatText(text.empty() ? u"%u" : u", %u", build);
    return text;
}

std::string CInfoText::Format(const CCorvaneMgr& manager, const SDatabaseSummary& summary)
{
    AddLine(manager.GetRootFilePath());
    AddRow(u"Version", FormatText(u"%d", manager.GetRootFile().m_nVersion));
    for (const auto& row : GetSettings(manager))
    {
        if (!row.m_Value.empty())
            AddRow(row.m_sLabel, row.m_Value);
    }
    AddLine(u"Builds");
    AddBuilds(manager.GetActiveBuild(), summary.m_Builds);
    AddLine(u"Counts");
    for (const auto& row : GetCounts(summary))
        AddRow(row.m_sLabel, FormatText(u"%u", row.m_Value));
    AddLine(u"Files");
    for (const auto& row : GetFiles(summary))
        AddRow(row.m_sLabel, FormatText(u"%s, %u bytes", ToWide(Count(row.m_Value.m_nFiles, "file")),
                                        row.m_Value.m_nBytes));
    AddLine(u"Schemas");
    for (const SSchemaSummary& schema : summary.m_Schemas)
        AddSchema(schema);
    return ToNarrow(m_sText);
}

void CInfoText::AddBuilds(std::uint32_t active, const std::set<std::uint32_t>& builds)
{
    AddRow(u"Active", FormatText(u"%u", active));
    AddRow(u"Entries begin in", FormatBuildList(builds));
}

void CInfoText::AddSchema(const SSchemaSummary& schema)
{
    std::u16string text =
        ToWide(Count(schema.m_nRecords, "record") + ", " + Count(schema.m_nAttributes, "attribute"));
    if (!schema.m_sParent.empty())
        text += u", derives from " + schema.m_sParent;
    if (!schema.m_Builds.empty() && *schema.m_Builds.rbegin() > 0)
        text += u", builds " + FormatBuildList(schema.m_Builds);
    AddRow(schema.m_sName, text);
}

void WriteBuilds(CJsonReport& report, const std::set<std::uint32_t>& builds)
{
    report.BeginList("builds", CJsonReport::ELayout::Inline);
    for (const std::uint32_t build : builds)
        report.GetWriter().Integer(build);
    report.EndList();
}

void WriteSchema(CJsonReport& report, const SSchemaSummary& schema)
{
    report.BeginObject(CJsonReport::ELayout::Inline);
    report.Text("name", schema.m_sName);
    report.Text("parent", schema.m_sParent);
    report.Text("file", schema.m_sFile);
    report.Number("records", static_cast<std::int64_t>(schema.m_nRecords));
    report.Number("entries", static_cast<std::int64_t>(schema.m_nEntries));
    report.Number("attributes", static_cast<std::int64_t>(schema.m_nAttributes));
    WriteBuilds(report, schema.m_Builds);
    report.EndObject();
}

void WriteInfo(CJsonReport& report, const CCorvaneMgr& manager, const SDatabaseSummary& summary)
{
    report.Number("version", manager.GetRootFile().m_nVersion);
    for (const auto& row : GetSettings(manager))
        report.Text(row.m_sKey, row.m_Value);
    report.Number("activeBuild", manager.GetActiveBuild());
    WriteBuilds(report, summary.m_Builds);
    report.BeginObject("counts", CJsonReport::ELayout::Lines);
    for (const auto& row : GetCounts(summary))
        report.Number(row.m_sKey, static_cast<std::int64_t>(row.m_Value));
    report.EndObject();
    report.BeginObject("files", CJsonReport::ELayout::Lines);
    for (const auto& row : GetFiles(summary))
    {
        report.BeginObject(row.m_sKey, CJsonReport::ELayout::Inline);
        report.Number("files", static_cast<std::int64_t>(row.m_Value.m_nFiles));
        report.Number("bytes", static_cast<std::int64_t>(row.m_Value.m_nBytes));
        report.EndObject();
    }
    report.EndObject();
    report.BeginList("schemas");
    for (const SSchemaSummary& schema : summary.m_Schemas)
        WriteSchema(report, schema);
    report.EndList();
}

int RunInfo(const CArguments& arguments, std::u16string&)
{
    CLoadedDatabase database(arguments.GetParameters().front());
    const bool json = arguments.Has(u"--json");
    if (!database.Load())
        return TellNotLoaded(database, json);
    CCorvaneMgr& manager = database.GetManager();
    const SDatabaseSummary summary = SummarizeDatabase(manager);
    if (!json)
        return PrintResult(CInfoText().Format(manager, summary));
    CJsonReport report(database.GetRootFile(), true);
    WriteInfo(report, manager, summary);
    return PrintResult(report.Finish(database.GetMessages()));
}
} // namespace

const SCommand kInfoCommand = {
    u"info",
    "info ROOT [--json]",
    "Tells what a database consists of and how it is set up.",
    kHelp,
    kOptions,
    1,
    &RunInfo,
};
