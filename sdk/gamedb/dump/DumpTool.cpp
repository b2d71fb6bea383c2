#include "DumpTool.h"

#include "DatabaseDump.h"
#include "GameDatabase.h"
#include "PackedLayout.h"

#include <ostream>

namespace
{
constexpr std::string_view kUsage = "Usage: gamedb-dump [--summary | --attributes | --record PATH] FILE\n";
constexpr std::string_view kHelp =
    "\n"
    "Shows a packed database. Without an option: the whole database as JSON.\n"
    "\n"
    "  --summary      counts, sizes and the number of records of each schema\n"
    "  --attributes   the attributes of each schema with their types, sorted lines for a comparison\n"
    "  --record PATH  one record as JSON; PATH is its category's path, a '/' and its name\n"
    "  --help         this text\n"
    "  --version      the versions of the tool and of the format\n"
    "\n"
    "A link is shown as the path of its record, or null. Values that JSON lacks are texts: \"inf\", "
    "\"-inf\", "
    "\"nan\".\n"
    "\n"
    "Exit status: 0 done, 1 no such record, 2 wrong arguments, 3 the file cannot be read or is not a sound\n"
    "packed database, 4 the output could not be written.\n";

struct SArguments
{
    bool isHelp = false;
    bool isVersion = false;
    bool isSummary = false;
    bool isAttributes = false;
    const char* record = nullptr;
    const char* file = nullptr;
};

// Returns what is wrong, empty when nothing is.
std::string Parse(std::span<const char* const> arguments, SArguments& parsed)
{
    bool onlyFiles = false;
    for (std::size_t i = 0; i < arguments.size(); ++i)
    {
        const std::string_view argument = arguments[i];
        const bool isOption = !onlyFiles && argument.size() > 1 && argument.front() == '-';
        if (isOption && argument == "--")
            onlyFiles = true;
        else if (isOption && argument == "--help")
            parsed.isHelp = true;
        else if (isOption && argument == "--version")
            parsed.isVersion = true;
        else if (isOption && argument == "--summary")
            parsed.isSummary = true;
        else if (isOption && argument == "--attributes")
            parsed.isAttributes = true;
        else if (isOption && argument == "--record" && i + 1 < arguments.size())
            parsed.record = arguments[++i];
        else if (isOption && argument == "--record")
            return "--record needs the path of a record.";
        else if (isOption)
            return "Unknown option '" + std::string(argument) + "'.";
        else if (parsed.file)
            return "More than one file.";
        else
            parsed.file = arguments[i];
    }
    if (parsed.isHelp || parsed.isVersion)
        return {};
    if (parsed.isSummary + parsed.isAttributes + (parsed.record != nullptr) > 1)
        return "--summary, --attributes and --record exclude each other.";
    return parsed.file ? std::string() : "No file.";
}

int Show(const SArguments& arguments, std::ostream& out, std::ostream& error)
{
    std::string cause;
    const std::optional<CGameDatabase> database = CGameDatabase::Open(arguments.file, cause);
    if (!database)
    {
        error << "gamedb-dump: " << cause << '\n';
        return DUMP_INVALID_FILE;
    }
    if (arguments.isSummary)
        DumpSummary(*database, out);
    else if (arguments.isAttributes)
        DumpAttributes(*database, out);
    else if (!arguments.record)
        DumpDatabase(*database, out);
    else if (const CGameRecord record = database->FindRecord(arguments.record))
        DumpRecord(record, out);
    else
    {
        error << "gamedb-dump: The database '" << arguments.file << "' has no record '" << arguments.record
              << "'.\n";
        return DUMP_RECORD_NOT_FOUND;
    }
    return DUMP_OK;
}

int Run(std::span<const char* const> arguments, std::ostream& out, std::ostream& error)
{
    SArguments parsed;
    const std::string mistake = Parse(arguments, parsed);
    if (!mistake.empty())
    {
        error << "gamedb-dump: " << mistake << '\n' << kUsage;
        return DUMP_USAGE;
    }
    if (parsed.isHelp)
        out << kUsage << kHelp;
    else if (parsed.isVersion)
        out << "gamedb-dump " << CORVANE_VERSION << " (packed format " << packed::kFormatVersion << ")\n";
    else
        return Show(parsed, out, error);
    return DUMP_OK;
}
} // namespace

int RunDumpTool(std::span<const char* const> arguments, std::ostream& out, std::ostream& error)
{
    const int status = Run(arguments, out, error);
    if (status == DUMP_OK && !out.flush())
    {
        error << "gamedb-dump: The output could not be written.\n";
        return DUMP_OUTPUT_FAILED;
    }
    return status;
}
