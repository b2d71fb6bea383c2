#include "DependenciesCommand.h"

#include "BuildOption.h"
#include "DependencyOutput.h"
#include "FormatText.h"
#include "LoadedDatabase.h"
#include "Output.h"
#include "Path.h"
#include "SignalHold.h"
#include "Unicode.h"
#include "host/Interrupt.h"

namespace
{
constexpr SOption kOptions[] = {{u"--build", true}, {u"--output", true}};
constexpr std::u16string_view kExtension = u"Gamdb00dc";
constexpr int kStatusInexact = 1;

constexpr std::string_view kHelp =
    "  ROOT           the database's root file (*.Gamdb00s)\n"
    "  --build N      the build whose attributes count; without it the game's own number\n"
    "  --output FILE  the file to write: compressed when its name ends in 'c', else text; without it a\n"
    "                 *.Gamdb00dc file beside ROOT\n"
    "  --help         this text\n"
    "\n"
    "Exit status: 0 done, 1 written, but with names that a reader does not get back, 3 the database could "
    "not\n"
    "be loaded, 4 wrong usage, or the file could not be written.\n";

// SIGINT cancels the walk and removes what was begun; signals that would end the run at once wait for the end
// of the file.
std::int32_t Save(CDependencyOutput& output, std::u16string_view target)
{
    CInterrupt::Install();
    const CSignalHold hold({SIGTERM, SIGHUP});
    return output.SaveDependencies(target);
}

void TellInexactNames(const CDependencyOutput& output, std::u16string_view target)
{
    for (const std::string& name : output.GetInexactNames())
        PrintError(ToNarrow(
            MakeLine(FormatText(u"'%s' holds a name that its form cannot: '%s'.", target, ToWide(name)))));
}

int RunDependencies(const CArguments& arguments, std::u16string& mistake)
{
    std::optional<std::uint32_t> build;
    mistake = TakeBuild(arguments, build);
    const std::optional<std::u16string_view> given = arguments.Find(u"--output");
    if (mistake.empty() && given && given->empty())
        mistake = u"The option '--output' needs a file.";
    if (!mistake.empty())
        return kStatusUsage;

    CLoadedDatabase database(arguments.GetParameters().front());
    const std::u16string target =
        given ? std::u16string(*given) : WithExtension(database.GetRootFile(), kExtension);
    if (IsSameFile(database.GetFiles(), target, database.GetRootFile()))
        mistake = FormatText(u"'%s' is the root file.", target);
    if (!mistake.empty())
        return kStatusUsage;
    if (!database.Load())
        return TellNotLoaded(database, false);
    CCorvaneMgr& manager = database.GetManager();
    manager.SetActiveBuild(build.value_or(manager.GetActiveBuild()));
    CDependencyOutput output(manager);
    const std::int32_t result = Save(output, target);
    if (result == kResultCancelled)
        PrintError("Cancelled.");
    else if (result < 0)
        PrintError(
            ToNarrow(FormatText(u"The file '%s' could not be written: %s.", target, output.GetFailure())));
    if (result < 0)
        return kStatusNotWritten;
    TellInexactNames(output, target);
    return output.GetInexactNames().empty() ? kStatusOk : kStatusInexact;
}
} // namespace

const SCommand kDependenciesCommand = {
    u"dependencies",
    "dependencies ROOT [--build N] [--output FILE]",
    "Writes the list of all files, sounds, effects, strings and records that the records refer to.",
    kHelp,
    kOptions,
    1,
    &RunDependencies,
};
