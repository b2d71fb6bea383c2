#include "ListCommand.h"

#include "FormatText.h"
#include "JsonReport.h"
#include "LoadedDatabase.h"
#include "NearNames.h"
#include "Output.h"
#include "PathPattern.h"
#include "RecordSearch.h"
#include "Unicode.h"

#include <algorithm>
#include <optional>

namespace
{
constexpr SOption kOptions[] = {{u"--schema", true}, {u"--json", false}};

constexpr std::string_view kHelp =
    "  ROOT           the database's root file (*.Gamdb00s)\n"
    "  PATTERN        the records to list; without it all of them. '?' is one character, '*' any run within\n"
    "                 a name, '**' any run. Without '/' the record's name is meant, with '/' its whole "
    "path;\n"
    "                 behind a last '/' everything below. Letter case does not count.\n"
    "  --schema NAME  only records of this schema and of those that derive from it\n"
    "  --json         one object with path, schema and file of each record\n"
    "  --help         this text\n"
    "\n"
    "Exit status: 0 done, 1 nothing fits, 3 the database could not be loaded, 4 wrong usage, or the list\n"
    "could not be written.\n";

struct SFilter
{
    std::optional<CPathPattern> m_Pattern;
    const CCorvaneSchema* m_pSchema = nullptr; // Null for any.

    [[nodiscard]] bool Takes(const CCorvaneRecord& record) const
    {
        if (m_pSchema != nullptr && !(record.GetSchema() && record.GetSchema()->IsDerivedFrom(*m_pSchema)))
            return false;
        return !m_Pattern || m_Pattern->Matches(GetDisplayPath(record));
    }
};

std::string FormatList(const std::vector<CCorvaneRecord*>& records)
{
    std::string text;
    for (const CCorvaneRecord* record : records)
        text += ToNarrow(MakeLine(GetDisplayPath(*record))) + '\n';
    return text;
}

std::string FormatListJson(const CLoadedDatabase& database, const std::vector<CCorvaneRecord*>& records)
{
    CJsonReport report(database.GetRootFile(), true);
    report.BeginList("records");
    for (const CCorvaneRecord* record : records)
    {
        report.BeginObject(CJsonReport::ELayout::Inline);
        report.Text("record", GetDisplayPath(*record));
        report.Text("schema", record->GetSchema() ? record->GetSchema()->GetName() : u"");
        report.Text("file", record->GetFile());
        report.EndObject();
    }
    report.EndList();
    return report.Finish(database.GetMessages());
}

int TellUnknownSchema(const CCorvaneMgr& manager, std::u16string_view name)
{
    std::vector<std::u16string> names;
    for (const CRef<CCorvaneSchema>& schema : manager.GetSchemas())
        names.push_back(schema->GetName());
    TellNotFound(FormatText(u"There is no schema '%s'.", name), name, names);
    return kStatusNotFound;
}

int RunList(const CArguments& arguments, std::u16string&)
{
    CLoadedDatabase database(arguments.GetParameters().front());
    const bool json = arguments.Has(u"--json");
    if (!database.Load())
        return TellNotLoaded(database, json);
    SFilter filter;
    if (const auto schema = arguments.Find(u"--schema"))
    {
        filter.m_pSchema = database.GetManager().FindSchema(*schema);
        if (filter.m_pSchema == nullptr)
            return TellUnknownSchema(database.GetManager(), *schema);
    }
    const bool all = arguments.GetParameters().size() < 2;
    if (!all)
        filter.m_Pattern.emplace(arguments.GetParameters()[1]);

    std::vector<CCorvaneRecord*> records = GetAllRecords(database.GetManager());
    std::erase_if(records, [&](const CCorvaneRecord* record) { return !filter.Takes(*record); });
    const int status = PrintResult(json ? FormatListJson(database, records) : FormatList(records));
    if (status != kStatusOk || !records.empty() || (all && filter.m_pSchema == nullptr))
        return status;
    PrintError(all ? "There is no record of this schema." : "No record fits the pattern.");
    return kStatusNotFound;
}
} // namespace

const SCommand kListCommand = {
    u"list",
    "list ROOT [PATTERN] [--schema NAME] [--json]",
    "Lists the records of a database.",
    kHelp,
    kOptions,
    1,
    &RunList,
    1,
};
