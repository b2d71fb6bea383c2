// zrc: compresses, expands and shows node files. docs/zrc.md describes it.
#pragma once

#include <span>
#include <string>
#include <string_view>

class CArguments;

inline constexpr int kStatusOk = 0;
inline constexpr int kStatusFailed = 1; // A file could not be read, converted or written.
inline constexpr int kStatusUsage = 2;

// A sub-command: a row of the table in Tool.cpp.
struct SCommand
{
    std::u16string_view m_sName;
    std::string_view m_sUsage; // The command line behind the program's name. UTF-8, as the text below.
    std::string_view m_sHelp;  // Whole lines.
    // The exit status. A mistake in the arguments goes into `mistake`, a full sentence, and nothing is done.
    int (*m_pRun)(const CArguments& arguments, std::u16string& mistake);
};

// The arguments are those behind the program's name; the result is the exit status.
[[nodiscard]] int RunTool(std::span<const std::u16string> arguments);
