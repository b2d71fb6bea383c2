#include "Tool.h"

#include "Arguments.h"
#include "ConvertCommand.h"
#include "FormatText.h"
#include "Streams.h"
#include "Unicode.h"
#include "ViewCommand.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <unistd.h>

namespace
{
constexpr std::string_view kHelp = "Usage: zrc COMMAND [ARGUMENTS]\n"
                                   "\n"
                                   "Compresses, expands and shows node files.\n"
                                   "\n"
                                   "  compress   makes the compressed form of files\n"
                                   "  expand     makes the plain form of files\n"
                                   "  view       shows a file of either form, indented\n"
                                   "  --help     this text; behind a command, that command's arguments\n"
                                   "  --version  the version of the tool\n"
                                   "\n"
                                   "Exit status: 0 done, 1 a file failed, 2 wrong usage.\n";

constexpr SOption kOptions[] = {{u"-o", true}, {u"--force", false}};

const SCommand* FindCommand(std::u16string_view name)
{
    static const std::array<const SCommand*, 3> kCommands = {&kCompressCommand, &kExpandCommand,
                                                             &kViewCommand};
    const auto found = std::find_if(kCommands.begin(), kCommands.end(),
                                    [&](const SCommand* command) { return command->m_sName == name; });
    return found == kCommands.end() ? nullptr : *found;
}

std::string GetUsage(const SCommand* command)
{
    return "Usage: zrc " + std::string(command ? command->m_sUsage : "COMMAND [ARGUMENTS]");
}

int TellMistake(const SCommand* command, std::u16string_view mistake)
{
    TellError(ToNarrow(mistake) + '\n' + GetUsage(command));
    return kStatusUsage;
}

int Print(std::string_view text)
{
    if (WriteDescriptor(STDOUT_FILENO, text))
        return kStatusOk;
    TellError("The output could not be written: " + ToNarrow(CFileError::FromErrno(errno).GetText()) + '.');
    return kStatusFailed;
}

int RunCommand(const SCommand& command, std::span<const std::u16string> given)
{
    CArguments arguments;
    std::u16string mistake;
    if (!arguments.Parse(given, kOptions, mistake))
        return TellMistake(&command, mistake);
    if (arguments.Has(u"--help"))
        return Print(GetUsage(&command) + "\n\n" + std::string(command.m_sHelp));
    if (arguments.GetParameters().empty())
        return TellMistake(&command, u"There is no file.");
    const int status = command.m_pRun(arguments, mistake);
    return mistake.empty() ? status : TellMistake(&command, mistake);
}
} // namespace

int RunTool(std::span<const std::u16string> arguments)
{
    // A full disk and a reader that has gone are errors of a write, and no end of the program.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    if (arguments.empty())
        return TellMistake(nullptr, u"There is no command.");
    const std::u16string& first = arguments.front();
    if (first == u"--help")
        return Print(kHelp);
    if (first == u"--version")
        return Print("zrc " CORVANE_VERSION "\n");
    if (const SCommand* command = FindCommand(first))
        return RunCommand(*command, arguments.subspan(1));
    return TellMistake(nullptr, FormatText(u"There is no command '%s'.", first));
}
