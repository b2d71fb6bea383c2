// What a run of the benchmark found: one entry a size, and the goals held against them.
#pragma once

#include "CompressionMeasurement.h"
#include "Measurement.h"
#include "ReferenceMeasurement.h"

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

// The rounds of one number.
struct SSpread
{
    double m_nLeast = 0;
    double m_nMedian = 0;
    double m_nMost = 0;
};

struct SRounds
{
    std::size_t m_nRecords = 0;
    std::vector<SMeasurement> m_Rounds; // Timed; never empty.

    [[nodiscard]] SSpread GetSpread(double SMeasurement::*value) const;
};

struct SSizeResult : SRounds
{
    SMeasurement m_Counts;

    // The least time of a round against the least plain reading: what disturbs a round only adds to it.
    [[nodiscard]] double GetLoadRatio() const;
    [[nodiscard]] double GetLoadAndPackRatio() const;
    [[nodiscard]] double GetAttributes() const;
    [[nodiscard]] double GetPeakPerAttribute() const;
    // Without the memory that the process has before the load, which is the same whatever it loads.
    [[nodiscard]] double GetOwnPeakPerAttribute() const;
};

struct SLinkResult : SRounds
{
    // The attribute pass for each attribute, in nanoseconds, from the least time of a round.
    [[nodiscard]] double GetNanoseconds(double SMeasurement::*pass) const;
};

struct SSaveResult : SRounds
{
    // Against the plain replacement of the same files, from the least times.
    [[nodiscard]] double GetSaveRatio() const;
    // Of a refresh without changes, for each file of the database.
    [[nodiscard]] double GetLookUpsPerFile() const;
};

struct SBenchResults
{
    std::vector<SSizeResult> m_Sizes;
    std::vector<SSaveResult> m_Saves;
    std::vector<SLinkResult> m_Links;
    std::vector<SReferenceResult> m_References;
    std::vector<SCompressionResult> m_Compression;
};

struct SGoal
{
    std::string m_sName;
    std::size_t m_nRecords = 0;
    double m_nValue = 0;
    double m_nLimit = 0;

    [[nodiscard]] bool IsMet() const { return m_nValue <= m_nLimit; }
};

// The goals that these sizes can be held against. Memory is judged from 10,000 records up: below, the program
// itself is most of it.
[[nodiscard]] std::vector<SGoal> MakeGoals(const SBenchResults& results);

void PrintTable(std::ostream& out, const SBenchResults& results);
// No paths and no dates, so that two runs differ only in what was measured.
void WriteJson(std::ostream& out, const SBenchResults& results);
