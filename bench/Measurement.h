// One load and one pack of a generated database in a process of their own, as a build machine runs them, so
// that neither time nor memory is helped or spoiled by what ran before.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

// Numbers that travel from the measuring process to its parent. Zero where a kind of run does not measure it.
struct SMeasurement
{
    double m_nFiles = 0;
    double m_nBytes = 0;
    double m_nPlainMs = 0;
    double m_nLoadMs = 0;
    double m_nPackMs = 0;
    double m_nCloseMs = 0;
    double m_nEditUs = 0;    // An edit of one value and its undo, the same value over and over.
    double m_nFarEditUs = 0; // The same with values all over the database.
    double m_nPackedBytes = 0;
    double m_nStartBytes = 0;  // Memory before the load.
    double m_nLoadedBytes = 0; // Memory after the load.
    double m_nPeakBytes = 0;   // Most memory of the whole run.
    double m_nLoadOpens = 0;
    double m_nLoadListings = 0;
    double m_nLoadInfos = 0;
    double m_nLoadBlocks = 0;
    double m_nPackOpens = 0;
    double m_nPackBlocks = 0;
    // Of databases of their own, whose attributes are all links or all texts of the same length.
    double m_nTextPassMs = 0; // The attribute pass of a pack.
    double m_nLinkPassMs = 0;
    double m_nNearLinkPassMs = 0;
    double m_nFirstQuestionMs = 0; // Whether a record may be deleted, with the making of the index.
    double m_nQuestionMs = 0;      // The same with the index.
    double m_nRoundMs = 0;         // The same by a round over all links.
    double m_nInsertMs = 0;        // One of a thousand records that are inserted into one category.
    double m_nDeleteMs = 0;        // A record that nothing links to, with its restore point.
    // Of a database whose records all changed, and of one in which nothing did.
    double m_nSaveMs = 0;
    double m_nPlainSaveMs = 0;
    double m_nRefreshMs = 0;
    double m_nPlainStatMs = 0;
    double m_nRefreshInfos = 0;
    double m_nRefreshOpens = 0;
};

enum class EMeasure
{
    Times,  // Plain reading, load, pack and close by the clock.
    Counts, // Load and pack with memory, file opens and heap blocks.
    Saves,  // A refresh without changes, and a save with every record changed.
    Links,  // Record links beside texts; makes its own databases below the tree's directory.
};

// The child's side. `records` is what the database must turn out to hold; false has told why.
[[nodiscard]] bool Measure(EMeasure kind, const std::filesystem::path& tree, std::size_t records,
                           SMeasurement& out);

// The form in which the numbers travel: lines of "name value".
[[nodiscard]] std::string FormatMeasurement(const SMeasurement& measurement);
// Nothing when a number is missing.
[[nodiscard]] std::optional<SMeasurement> ParseMeasurement(std::string_view text);
