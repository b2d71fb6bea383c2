// What the command line asks for: seven switches, in any case, with '-' or '/', and a root file.
// The rules are described in docs/command-line.md.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

class IFileSystem;

enum class EShellCommand
{
    FileNew,
    FileOpen,
};

// The last switch that takes a parameter. It is never reset.
enum class EParameterState : std::int32_t
{
    None = 0,
    Output = 1,
    Window = 2,
    BuildNumber = 3,
    Log = 4,
    UpdateDependency = 5,
};

class CCorvaneCommandLineInfo
{
public:
    // Takes one argument after the other, the program's name left out. `files` is asked for the spelling that
    // the disk has for the root file and the output.
    void ParseCommandLine(IFileSystem& files, std::span<const std::u16string> arguments);

    EShellCommand m_nShellCommand = EShellCommand::FileNew;
    std::u16string m_strFileName;
    EParameterState m_nParameterState = EParameterState::None;
    bool m_bSilent = false;
    bool m_bPack = false;
    // The parameters as typed; empty when not given.
    std::u16string m_sOutput;
    std::u16string m_sWindow;
    std::u16string m_sBuildNumber;
    std::u16string m_sLog;
    std::u16string m_sUpdateDependency;

    // A run that ends by itself.
    [[nodiscard]] bool IsBatch() const { return m_bPack || !m_sUpdateDependency.empty(); }

private:
    // False for an argument that is no switch. One that begins with '-' is always a switch, known or not.
    bool TakeSwitch(std::u16string_view argument);
    void TakeParameter(IFileSystem& files, std::u16string_view argument);
    [[nodiscard]] std::u16string* GetField();
};

// A window handle: hexadecimal behind "0x", otherwise decimal; 0 for none and for what is no number.
[[nodiscard]] std::uint32_t ParseWindowHandle(std::u16string_view text);

// The seven switches, one a line, for a message to the user.
[[nodiscard]] std::u16string GetSwitchList();
