#include "ValidateCommand.h"

#include "BuildOption.h"
#include "FindingReport.h"
#include "FormatText.h"
#include "LoadedDatabase.h"
#include "Output.h"
#include "ValidateCore.h"

#include <optional>

namespace
{
constexpr SOption kOptions[] = {
    {u"--build", true}, {u"--strict", false}, {u"--format", true}, {u"--output", true}};

constexpr std::string_view kHelp =
    "  ROOT           the database's root file (*.Gamdb00s)\n"
    "  --build N      the build to check for; without it the game's own number\n"
    "  --strict       warnings alone give status 1\n"
    "  --format FORM  'text' (a line a finding; the default) or 'json'\n"
    "  --output FILE  write the report to FILE instead of standard output\n"
    "  --help         this text\n"
    "\n"
    "Exit status: 0 nothing critical, 1 warnings (with --strict), 2 critical findings, 3 the database could\n"
    "not be loaded, 4 wrong usage, or the report could not be written.\n";

struct SRequest
{
    std::optional<std::uint32_t> m_nBuild;
    bool m_bStrict = false;
    bool m_bJson = false;
    std::optional<std::u16string_view> m_sOutput;
};

std::u16string TakeRequest(const CArguments& arguments, SRequest& request)
{
    request.m_bStrict = arguments.Has(u"--strict");
    request.m_sOutput = arguments.Find(u"--output");
    if (request.m_sOutput && request.m_sOutput->empty())
        return u"The option '--output' needs a file.";
    const std::u16string_view form = arguments.Find(u"--format").value_or(u"text");
    request.m_bJson = form == u"json";
    if (!request.m_bJson && form != u"text")
        return FormatText(u"There is no format '%s'.", form);
    return TakeBuild(arguments, request.m_nBuild);
}

std::size_t Check(CCorvaneMgr& manager, std::optional<std::uint32_t> build, CValidateCore& core)
{
    const auto progress = manager.GetContext().m_Questions.CreateProgress(u"Validate");
    progress->SetText(u"Checking Records...");
    // The counts tell what the result would.
    static_cast<void>(core.ValidateDatabase(manager, build.value_or(manager.GetActiveBuild())));
    std::size_t records = 0;
    manager.EnumerateRecords(
        [&records](CCorvaneRecord&)
        {
            ++records;
            return true;
        });
    return records;
}

int GetStatus(const CValidateCore& core, bool strict)
{
    if (core.GetCriticalCount() > 0)
        return kStatusCritical;
    return strict && core.GetWarningCount() > 0 ? kStatusWarnings : kStatusOk;
}

bool Deliver(IFileSystem& files, const SRequest& request, const SValidation& validation)
{
    // A text without a line would look like that of a clean database.
    if (!request.m_bJson && validation.m_pCore == nullptr)
        return true;
    const std::string report = request.m_bJson ? FormatFindingsJson(validation) : FormatFindings(validation);
    return request.m_sOutput ? WriteResult(files, *request.m_sOutput, report)
                             : PrintResult(report) == kStatusOk;
}

int RunValidate(const CArguments& arguments, std::u16string& mistake)
{
    SRequest request;
    mistake = TakeRequest(arguments, request);
    if (!mistake.empty())
        return kStatusUsage;

    // The findings go before the database.
    CLoadedDatabase database(arguments.GetParameters().front());
    CValidateCore core;
    SValidation validation;
    validation.m_sRootFile = database.GetRootFile();
    int status = kStatusNotLoaded;
    if (database.Load())
    {
        validation.m_nRecords = Check(database.GetManager(), request.m_nBuild, core);
        validation.m_pCore = &core;
        status = GetStatus(core, request.m_bStrict);
    }
    validation.m_Messages = database.GetMessages();
    if (!Deliver(database.GetFiles(), request, validation))
        return kStatusNotWritten;
    PrintError(validation.m_pCore ? FormatSummary(validation) : std::string(kNotLoaded));
    return status;
}
} // namespace

const SCommand kValidateCommand = {
    u"validate",
    "validate ROOT [--build N] [--strict] [--format text|json] [--output FILE]",
    "Checks every record of a database and reports the values that are not usable.",
    kHelp,
    kOptions,
    1,
    &RunValidate,
};
