// What the windows cost over one database: how long a person waits, and what the panes keep.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

// Times of one thing that was done over and over, in milliseconds.
struct SWait
{
    double m_nMedian = 0;
    double m_nP99 = 0;
    double m_nMost = 0;
};

struct SWindowMeasurement
{
    double m_nUsableMs = 0;    // From the end of the load to a main window that is painted and idle.
    SWait m_Open;              // A record in the main window, painted.
    SWait m_Expand;            // A category of 5,000 records for the first time, painted.
    SWait m_Edit;              // An editor opened, a text typed, accepted and painted.
    double m_nSliceMs = 0;     // The longest wait of a keystroke while the filter works.
    double m_nFilterMs = 0;    // From a letter to the last row of its result.
    double m_nTreeBytes = 0;   // Kept by the tree for each record before anybody looks.
    double m_nGrowthBytes = 0; // For each record opened and closed, between the 500th and the 1,000th.
};

// Opens the generated database below `tree` in a main window. Nothing, having told why, when something could
// not be done.
[[nodiscard]] std::optional<SWindowMeasurement> MeasureWindows(const std::filesystem::path& tree);

// The form in which the numbers travel between processes.
[[nodiscard]] std::string FormatWindowMeasurement(const SWindowMeasurement& measurement);
[[nodiscard]] std::optional<SWindowMeasurement> ParseWindowMeasurement(std::string_view text);
