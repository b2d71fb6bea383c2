#include "CorvaneCommandLineInfo.h"

#include "FileSystem.h"
#include "NameCompare.h"
#include "NumberText.h"
#include "Unicode.h"

#include <algorithm>

namespace
{
struct SSwitch
{
    std::u16string_view m_sName;
    // The state that the switch sets; None for a plain flag, which leaves the state as it is.
    EParameterState m_State;
    bool CCorvaneCommandLineInfo::*m_pFlag;
    std::u16string_view m_sHelp;
};

constexpr SSwitch kSwitches[] = {
    {u"Silent", EParameterState::None, &CCorvaneCommandLineInfo::m_bSilent,
     u"  -Silent                 show nothing"},
    {u"Pack", EParameterState::None, &CCorvaneCommandLineInfo::m_bPack,
     u"  -Pack                   compile and exit"},
    {u"Output", EParameterState::Output, nullptr, u"  -Output <file>          target of the pack"},
    {u"BuildNumber", EParameterState::BuildNumber, nullptr, u"  -BuildNumber <number>   build of the pack"},
    {u"Log", EParameterState::Log, nullptr, u"  -Log <file>             where validation writes"},
    {u"UpdateDependency", EParameterState::UpdateDependency, nullptr,
     u"  -UpdateDependency <dir> write dependency files and exit"},
    {u"Window", EParameterState::Window, nullptr, u"  -Window <handle>        window to attach to"},
};

const SSwitch* FindSwitch(std::u16string_view name)
{
    const auto found = std::find_if(std::begin(kSwitches), std::end(kSwitches),
                                    [&](const SSwitch& entry) { return EqualNames(entry.m_sName, name); });
    return found == std::end(kSwitches) ? nullptr : found;
}

// The spelling that the disk has; the text as typed for what does not exist yet, such as a new output.
std::u16string ExpandPath(IFileSystem& files, std::u16string_view path)
{
    return !path.empty() && files.Exists(path) ? ToWide(files.GetNativePath(path)) : std::u16string(path);
}

int GetHexValue(char16_t unit)
{
    if (unit >= u'0' && unit <= u'9')
        return unit - u'0';
    const char16_t folded = FoldUnit(unit);
    return folded >= u'a' && folded <= u'f' ? folded - u'a' + 10 : -1;
}

// Handles are 32 bits wide; higher digits run out of them.
std::uint32_t ParseHexadecimal(std::u16string_view text)
{
    std::uint32_t value = 0;
    for (const char16_t unit : text)
    {
        const int digit = GetHexValue(unit);
        if (digit < 0)
            break;
        value = value << 4U | static_cast<std::uint32_t>(digit);
    }
    return value;
}
} // namespace

void CCorvaneCommandLineInfo::ParseCommandLine(IFileSystem& files, std::span<const std::u16string> arguments)
{
    for (const std::u16string& argument : arguments)
    {
        if (!TakeSwitch(argument))
            TakeParameter(files, argument);
    }
    if (m_nShellCommand == EShellCommand::FileNew && !m_strFileName.empty())
        m_nShellCommand = EShellCommand::FileOpen;
}

bool CCorvaneCommandLineInfo::TakeSwitch(std::u16string_view argument)
{
    if (argument.empty() || (argument.front() != u'-' && argument.front() != u'/'))
        return false;
    const SSwitch* found = FindSwitch(argument.substr(1));
    if (found == nullptr)
        return argument.front() == u'-'; // An absolute path begins with '/' too.
    if (found->m_pFlag != nullptr)
        this->*found->m_pFlag = true;
    else
        m_nParameterState = found->m_State;
    return true;
}

void CCorvaneCommandLineInfo::TakeParameter(IFileSystem& files, std::u16string_view argument)
{
    std::u16string* field = GetField();
    if (field == nullptr || !field->empty())
        field = &m_strFileName;
    if (!field->empty())
        return;
    const bool isPath = field == &m_strFileName || field == &m_sOutput;
    *field = isPath ? ExpandPath(files, argument) : std::u16string(argument);
}

std::u16string* CCorvaneCommandLineInfo::GetField()
{
    switch (m_nParameterState)
    {
    case EParameterState::Output:
        return &m_sOutput;
    case EParameterState::Window:
        return &m_sWindow;
    case EParameterState::BuildNumber:
        return &m_sBuildNumber;
    case EParameterState::Log:
        return &m_sLog;
    case EParameterState::UpdateDependency:
        return &m_sUpdateDependency;
    case EParameterState::None:
        break;
    }
    return nullptr;
}

std::uint32_t ParseWindowHandle(std::u16string_view text)
{
    if (text.size() > 2 && BeginsWithName(text, u"0x"))
        return ParseHexadecimal(text.substr(2));
    return static_cast<std::uint32_t>(ParseInteger(text));
}

std::u16string GetSwitchList()
{
    std::u16string list;
    for (const SSwitch& entry : kSwitches)
        list.append(entry.m_sHelp).append(u"\n");
    return list;
}
