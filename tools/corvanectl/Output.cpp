#include "Output.h"

#include "Command.h"
#include "FileSystem.h"
#include "SignalHold.h"
#include "Unicode.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <span>

void PrintError(std::string_view text)
{
    std::fflush(stdout);
    const std::string line = "corvanectl: " + std::string(text) + (text.ends_with('\n') ? "" : "\n");
    std::fputs(line.c_str(), stderr);
}

std::u16string MakeLine(std::u16string_view text)
{
    std::u16string line(text);
    std::replace_if(
        line.begin(), line.end(), [](char16_t unit) { return unit < 0x20 || (unit >= 0x7F && unit < 0xA0); },
        u' ');
    return line;
}

std::string Count(std::size_t number, std::string_view thing)
{
    return std::to_string(number) + ' ' + std::string(thing) + (number == 1 ? "" : "s");
}

int PrintResult(std::string_view text)
{
    const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    if (written && std::fflush(stdout) == 0)
        return kStatusOk;
    const std::string cause = ToNarrow(CFileError::FromErrno(errno).GetText());
    PrintError("The output could not be written: " + cause + ".");
    return kStatusNotWritten;
}

bool IsSameFile(IFileSystem& files, std::u16string_view a, std::u16string_view b)
{
    SFileInfo first;
    SFileInfo second;
    return files.GetInfo(a, first).IsOk() && files.GetInfo(b, second).IsOk() && first.m_bExists &&
           second.m_bExists && first.m_nDevice == second.m_nDevice && first.m_nNode == second.m_nNode;
}

void TellNotWritten(std::u16string_view path, const CFileError& error)
{
    PrintError("The file '" + ToNarrow(path) + "' could not be written: " + ToNarrow(error.GetText()) + ".");
}

bool WriteResult(IFileSystem& files, std::u16string_view path, std::string_view text)
{
    const CSignalHold hold;
    const CFileError error = files.WriteFile(path, std::as_bytes(std::span(text)));
    if (error.IsOk())
        return true;
    TellNotWritten(path, error);
    return false;
}
