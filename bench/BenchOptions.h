// What the benchmark's command line says.
#pragma once

#include "Measurement.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

struct SBenchOptions
{
    std::vector<std::size_t> m_Sizes{1000, 10000, 100000};
    std::vector<std::size_t> m_SaveSizes{5000};
    std::vector<std::size_t> m_LinkSizes{1000, 100000};
    std::vector<std::size_t> m_ReferenceSizes{100000, 1000000};
    std::size_t m_nStreamBytes = 4000000;
    std::size_t m_nRepeat = 5;
    std::filesystem::path m_Directory; // Empty: a fresh one below the system's temporary directory.
    bool m_bKeep = false;              // The trees stay, and trees that are there are used.
    std::filesystem::path m_Output;    // Empty: only the table.
    bool m_bHelp = false;

    // A process that measures for another one: the kind, the tree and its count of records.
    std::optional<EMeasure> m_Measure;
    std::filesystem::path m_Tree;
    std::size_t m_nRecords = 0;
};

// `arguments` are those behind the program's name. Nothing with the cause in `error` when one is wrong.
[[nodiscard]] std::optional<SBenchOptions> ParseBenchOptions(std::span<const std::string> arguments,
                                                             std::string& error);
[[nodiscard]] std::string_view GetBenchHelp();
// The arguments with which a measuring process is started.
[[nodiscard]] std::vector<std::string> MakeMeasureArguments(EMeasure kind, const std::filesystem::path& tree,
                                                            std::size_t records);
