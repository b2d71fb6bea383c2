// A sub-command of corvanectl: a row of the table in Tool.cpp and a handler in a file of its own.
#pragma once

#include "Arguments.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

// Statuses that every sub-command shares; those below kStatusUsage are the sub-command's own results.
inline constexpr int kStatusOk = 0;
inline constexpr int kStatusWarnings = 1;
inline constexpr int kStatusNotFound = 1;
inline constexpr int kStatusCritical = 2;
inline constexpr int kStatusNotLoaded = 3;
// Wrong usage, or a result that could not be written: in both cases the run has no result to trust.
inline constexpr int kStatusUsage = 4;
inline constexpr int kStatusNotWritten = 4;

struct SCommand
{
    std::u16string_view m_sName;
    std::string_view m_sUsage; // The command line behind the program's name, in UTF-8 like the texts below.
    std::string_view m_sSummary;
    std::string_view m_sHelp; // Whole lines: the options and the statuses.
    std::span<const SOption> m_Options;
    std::size_t m_nParameters; // How many arguments that are no options there must be.
    // The result is the exit status. A handler that finds a mistake in the arguments puts it into `mistake`,
    // a full sentence, and does nothing else.
    int (*m_pRun)(const CArguments& arguments, std::u16string& mistake);
    std::size_t m_nOptionalParameters = 0; // How many more there may be.
};
