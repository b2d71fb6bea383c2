#include "OverridesCommand.h"

#include "BuildOption.h"
#include "CreatorLibrary.h"
#include "FormatText.h"
#include "LoadedDatabase.h"
#include "NameCompare.h"
#include "Output.h"
#include "OverrideOutput.h"
#include "ProgramStart.h"
#include "SignalHold.h"
#include "TargetFile.h"
#include "Unicode.h"
#include "host/Interrupt.h"

#include <optional>

namespace
{
constexpr SOption kOptions[] = {{u"--build", true}, {u"--database", true}, {u"--constraints", true}};

constexpr std::string_view kHelp =
    "  ROOT                the database's root file (*.Gamdb00s)\n"
    "  --build N           the build whose attributes go in; without it the game's own number\n"
    "  --database FILE     the text to edit; without it the root file's own (MPCustomizations.txt)\n"
    "  --constraints FILE  the limits; without it the root file's own (DBConstraints.dat)\n"
    "  --help              this text\n"
    "\n"
    "Exit status: 0 both files are written, 3 the database could not be loaded, 4 wrong usage, or the files\n"
    "could not be written.\n";

struct SRequest
{
    std::optional<std::uint32_t> m_nBuild;
    std::optional<std::u16string_view> m_sDatabase;
    std::optional<std::u16string_view> m_sConstraints;
};

std::u16string TakeRequest(const CArguments& arguments, SRequest& request)
{
    request.m_sDatabase = arguments.Find(u"--database");
    request.m_sConstraints = arguments.Find(u"--constraints");
    if (request.m_sDatabase && request.m_sDatabase->empty())
        return u"The option '--database' needs a file.";
    if (request.m_sConstraints && request.m_sConstraints->empty())
        return u"The option '--constraints' needs a file.";
    return TakeBuild(arguments, request.m_nBuild);
}

SOverridePaths GetPaths(const COverrideOutput& output, const SRequest& request)
{
    SOverridePaths paths = output.GetDefaultPaths();
    if (request.m_sDatabase)
        paths.m_sDatabase = MakeDocumentPath(*request.m_sDatabase);
    if (request.m_sConstraints)
        paths.m_sConstraints = MakeDocumentPath(*request.m_sConstraints);
    return paths;
}

std::u16string FindMistake(CLoadedDatabase& database, const SOverridePaths& paths)
{
    IFileSystem& files = database.GetFiles();
    for (const std::u16string& path : {paths.m_sDatabase, paths.m_sConstraints})
    {
        if (IsSameFile(files, path, database.GetRootFile()))
            return FormatText(u"'%s' is the root file.", path);
    }
    const bool same = EqualNames(paths.m_sDatabase, paths.m_sConstraints) ||
                      IsSameFile(files, paths.m_sDatabase, paths.m_sConstraints);
    return same ? u"The text and the limits cannot be one file." : std::u16string();
}

// The creator library says only that it could not write: the cause is found here, before it is asked. Nothing
// stays behind.
bool CanBeWritten(IFileSystem& files, std::u16string_view path)
{
    CTargetFile target(files, path);
    CFileError error = target.Check();
    // The output makes a read-only file writable.
    if (error.m_Code == EFileError::ReadOnly)
        error = {};
    if (error.IsOk())
    {
        target.SetWritten();
        error = files.WriteFile(target.GetTemporary(), {});
    }
    if (!error.IsOk())
        TellNotWritten(path, error);
    return error.IsOk();
}

bool HasCreator(const CCorvaneMgr& manager)
{
    const std::u16string& library = manager.GetProject().m_sGameDatabase;
    if (LoadUnpackedDatabaseCreator(manager.GetContext().m_Modules, library) != nullptr)
        return true;
    PrintError(ToNarrow(FormatText(u"The creator library '%s' is missing or writes no overrides.", library)));
    return false;
}

int WriteOverrides(CLoadedDatabase& database, const SRequest& request, std::u16string& mistake)
{
    CCorvaneMgr& manager = database.GetManager();
    // Members of structs go by the active build.
    if (request.m_nBuild)
        manager.SetActiveBuild(*request.m_nBuild);
    COverrideOutput output(manager);
    const SOverridePaths paths = GetPaths(output, request);
    mistake = FindMistake(database, paths);
    if (!mistake.empty())
        return kStatusUsage;
    if (!HasCreator(manager) || !CanBeWritten(database.GetFiles(), paths.m_sDatabase) ||
        !CanBeWritten(database.GetFiles(), paths.m_sConstraints))
        return kStatusNotWritten;
    // SIGINT cancels the walk; the signals that would end the run at once wait, since the two files belong
    // together.
    CInterrupt::Install();
    const CSignalHold hold({SIGTERM, SIGHUP});
    if (!output.CreateOverrideOutput(paths, manager.GetActiveBuild()))
        return kStatusNotWritten;
    PrintError(ToNarrow(FormatText(u"The overrides of build %u are in '%s', their limits in '%s'.",
                                   manager.GetActiveBuild(), paths.m_sDatabase, paths.m_sConstraints)));
    return kStatusOk;
}

int RunOverrides(const CArguments& arguments, std::u16string& mistake)
{
    SRequest request;
    mistake = TakeRequest(arguments, request);
    if (!mistake.empty())
        return kStatusUsage;
    CLoadedDatabase database(arguments.GetParameters().front());
    if (!database.Load())
        return TellNotLoaded(database, false);
    return WriteOverrides(database, request, mistake);
}
} // namespace

const SCommand kOverridesCommand = {
    u"overrides",
    "overrides ROOT [--build N] [--database FILE] [--constraints FILE]",
    "Writes the files by which the administrator of a game server changes values.",
    kHelp,
    kOptions,
    1,
    &RunOverrides,
};
