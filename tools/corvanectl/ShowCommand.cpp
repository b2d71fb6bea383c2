#include "ShowCommand.h"

#include "BuildOption.h"
#include "FormatText.h"
#include "JsonReport.h"
#include "LoadedDatabase.h"
#include "NearNames.h"
#include "Output.h"
#include "RecordReport.h"
#include "RecordSearch.h"
#include "ShownRecord.h"
#include "Unicode.h"

#include <optional>

namespace
{
constexpr SOption kOptions[] = {{u"--build", true}, {u"--attribute", true}, {u"--json", false}};

constexpr std::string_view kHelp =
    "  ROOT              the database's root file (*.Gamdb00s)\n"
    "  RECORD            the record: its path as 'list' prints it, its path without virtual categories, its\n"
    "                    file, or its name alone where no other record has it\n"
    "  --build N         the build to look at; without it the game's own number\n"
    "  --attribute NAME  only the entries of this attribute\n"
    "  --json            one object\n"
    "  --help            this text\n"
    "\n"
    "Exit status: 0 done, 1 no such record or attribute, or several such records, 3 the database could not "
    "be\n"
    "loaded, 4 wrong usage, or the text could not be written.\n";

int TellUnknownRecord(const CCorvaneMgr& manager, std::u16string_view name)
{
    std::vector<std::u16string> paths;
    for (const CCorvaneRecord* record : GetAllRecords(manager))
        paths.push_back(GetDisplayPath(*record));
    TellNotFound(FormatText(u"There is no record '%s'.", name), name, paths);
    return kStatusNotFound;
}

int TellAmbiguous(std::u16string_view name, const std::vector<CCorvaneRecord*>& records)
{
    std::u16string text = FormatText(u"'%s' names %u records:", MakeLine(name), records.size());
    for (const CCorvaneRecord* record : records)
        text += u"\n  " + MakeLine(FormatText(u"%s (%s)", GetDisplayPath(*record), record->GetFile()));
    PrintError(ToNarrow(text));
    return kStatusNotFound;
}

int TellUnknownAttribute(const CCorvaneRecord& record, std::u16string_view name)
{
    std::vector<std::u16string> names;
    for (const CRef<CCorvaneAttrib>& attrib : record.GetAttributeList())
    {
        // Entries of one name are neighbours.
        if (names.empty() || names.back() != attrib->GetName())
            names.push_back(attrib->GetName());
    }
    TellNotFound(FormatText(u"The record has no attribute '%s'.", name), name, names);
    return kStatusNotFound;
}

int RunShow(const CArguments& arguments, std::u16string& mistake)
{
    std::optional<std::uint32_t> build;
    mistake = TakeBuild(arguments, build);
    if (!mistake.empty())
        return kStatusUsage;
    const std::u16string& name = arguments.GetParameters()[1];
    const std::u16string_view attribute = arguments.Find(u"--attribute").value_or(u"");
    const bool json = arguments.Has(u"--json");

    CLoadedDatabase database(arguments.GetParameters().front());
    if (!database.Load())
        return TellNotLoaded(database, json);
    CCorvaneMgr& manager = database.GetManager();
    const std::vector<CCorvaneRecord*> records = FindRecords(manager, name);
    if (records.empty())
        return TellUnknownRecord(manager, name);
    if (records.size() > 1)
        return TellAmbiguous(name, records);
    const SShownRecord shown =
        ShowRecord(*records.front(), build.value_or(manager.GetActiveBuild()), attribute);
    if (shown.m_Attributes.empty() && !attribute.empty())
        return TellUnknownAttribute(*records.front(), attribute);
    if (!json)
        return PrintResult(FormatRecord(shown));
    CJsonReport report(database.GetRootFile(), true);
    WriteRecord(report, shown);
    return PrintResult(report.Finish(database.GetMessages()));
}
} // namespace

const SCommand kShowCommand = {
    u"show",
    "show ROOT RECORD [--build N] [--attribute NAME] [--json]",
    "Shows a record's values and where each of them comes from.",
    kHelp,
    kOptions,
    2,
    &RunShow,
};
