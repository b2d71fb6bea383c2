#include "Tool.h"

#include "Command.h"
#include "DependenciesCommand.h"
#include "FormatText.h"
#include "InfoCommand.h"
#include "ListCommand.h"
#include "Output.h"
#include "OverridesCommand.h"
#include "ShowCommand.h"
#include "Unicode.h"
#include "ValidateCommand.h"

#include <algorithm>

namespace
{
constexpr std::string_view kUsage = "Usage: corvanectl COMMAND [ARGUMENTS]\n";

std::span<const SCommand> GetCommands()
{
    static const SCommand kCommands[] = {
        kDependenciesCommand,
        kInfoCommand,
        kListCommand,
        kOverridesCommand,
        kShowCommand,
        kValidateCommand,
    };
    return kCommands;
}

const SCommand* FindCommand(std::u16string_view name)
{
    const std::span<const SCommand> commands = GetCommands();
    const auto found = std::find_if(commands.begin(), commands.end(),
                                    [&](const SCommand& command) { return command.m_sName == name; });
    return found == commands.end() ? nullptr : &*found;
}

std::string GetUsage(const SCommand* command)
{
    return command ? "Usage: corvanectl " + std::string(command->m_sUsage) + "\n" : std::string(kUsage);
}

int TellMistake(const SCommand* command, std::u16string_view mistake)
{
    PrintError(ToNarrow(mistake) + "\n" + GetUsage(command));
    return kStatusUsage;
}

int ShowHelp(const SCommand& command)
{
    return PrintResult(GetUsage(&command) + "\n" + std::string(command.m_sSummary) + "\n\n" +
                       std::string(command.m_sHelp));
}

int ShowHelp()
{
    std::string text(kUsage);
    text += "\nWhat scripts do with a Corvane database.\n\n";
    for (const SCommand& command : GetCommands())
    {
        std::string name = ToNarrow(command.m_sName);
        name.resize(std::max<std::size_t>(name.size(), 12), ' ');
        text += "  " + name + " " + std::string(command.m_sSummary) + "\n";
    }
    return PrintResult(text + "  help         this text; with a command, that command's arguments\n\n"
                              "  --help       this text\n  --version    the version of the tool\n");
}

int RunHelp(std::span<const std::u16string> arguments)
{
    if (arguments.empty())
        return ShowHelp();
    if (const SCommand* command = FindCommand(arguments.front()))
        return ShowHelp(*command);
    return TellMistake(nullptr, FormatText(u"There is no command '%s'.", arguments.front()));
}

int RunCommand(const SCommand& command, std::span<const std::u16string> given)
{
    CArguments arguments;
    std::u16string mistake;
    if (!arguments.Parse(given, command.m_Options, mistake))
        return TellMistake(&command, mistake);
    if (arguments.Has(u"--help"))
        return ShowHelp(command);
    const std::vector<std::u16string>& parameters = arguments.GetParameters();
    if (parameters.size() < command.m_nParameters)
        return TellMistake(&command, u"A parameter is missing.");
    const std::size_t most = command.m_nParameters + command.m_nOptionalParameters;
    if (parameters.size() > most)
        return TellMistake(&command, FormatText(u"'%s' is one parameter too many.", parameters[most]));
    const int status = command.m_pRun(arguments, mistake);
    return mistake.empty() ? status : TellMistake(&command, mistake);
}
} // namespace

int RunTool(std::span<const std::u16string> arguments)
{
    if (arguments.empty())
        return TellMistake(nullptr, u"There is no command.");
    const std::u16string& first = arguments.front();
    if (first == u"--help" || first == u"help")
        return RunHelp(arguments.subspan(1));
    if (first == u"--version")
        return PrintResult("corvanectl " CORVANE_VERSION "\n");
    if (const SCommand* command = FindCommand(first))
        return RunCommand(*command, arguments.subspan(1));
    return TellMistake(nullptr, FormatText(u"There is no command '%s'.", first));
}
