// What a reference costs on its way into a resource database, and whether that stays so when there are many.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

// One pass over the references, in milliseconds of processor time.
struct SReferenceRound
{
    double m_nAddMs = 0;   // Into the list.
    double m_nCountMs = 0; // Once more each, which only counts.
    double m_nTreeMs = 0;  // From the list into a node tree.
};

struct SReferenceResult
{
    std::size_t m_nReferences = 0;
    std::vector<SReferenceRound> m_Rounds; // Never empty.

    // For one reference, from the least time of a round.
    [[nodiscard]] double GetNanoseconds(double SReferenceRound::*time) const;
};

struct SReferenceTime
{
    const char* m_pName; // In the table.
    const char* m_pJson;
    double SReferenceRound::*m_pValue;
};

inline constexpr std::array<SReferenceTime, 3> kReferenceTimes = {{
    {"a new reference", "add", &SReferenceRound::m_nAddMs},
    {"a reference that is there", "count", &SReferenceRound::m_nCountMs},
    {"a reference into the node tree", "tree", &SReferenceRound::m_nTreeMs},
}};

// The rounds of the sizes take turns, so that a slow spell of the machine meets all of them. Throws when the
// list does not hold what was added.
[[nodiscard]] std::vector<SReferenceResult> MeasureReferences(std::span<const std::size_t> sizes,
                                                              std::size_t rounds);
