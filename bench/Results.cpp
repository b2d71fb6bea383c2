#include "Results.h"

#include "DatabaseForms.h"
#include "LinkMeasurement.h"

#include <algorithm>

namespace
{
constexpr double kLoadLimit = 3;
constexpr double kLoadAndPackLimit = 5;
constexpr double kGrowthLimit = 1.3;
constexpr double kBytesLimit = 250;
constexpr double kSaveLimit = 1.3;
// One look at each file, and a few at the root for the whole refresh.
constexpr double kLookUpLimit = 1.05;
constexpr std::size_t kMemoryFrom = 10000;
constexpr std::size_t kGrowthFrom = 10000;
constexpr std::size_t kGrowthTo = 100000;
constexpr std::size_t kEditGrowthFrom = 1000;

const SSizeResult* FindSize(const std::vector<SSizeResult>& results, std::size_t records)
{
    const auto found = std::find_if(results.begin(), results.end(),
                                    [&](const SSizeResult& result) { return result.m_nRecords == records; });
    return found == results.end() ? nullptr : &*found;
}
} // namespace

SSpread SRounds::GetSpread(double SMeasurement::*value) const
{
    std::vector<double> values;
    for (const SMeasurement& round : m_Rounds)
        values.push_back(round.*value);
    std::sort(values.begin(), values.end());
    return {values.front(), values[values.size() / 2], values.back()};
}

double SLinkResult::GetNanoseconds(double SMeasurement::*pass) const
{
    return GetSpread(pass).m_nLeast * 1e6 / static_cast<double>(m_nRecords * kLinksPerRecord);
}

double SSaveResult::GetSaveRatio() const
{
    return GetSpread(&SMeasurement::m_nSaveMs).m_nLeast / GetSpread(&SMeasurement::m_nPlainSaveMs).m_nLeast;
}

double SSaveResult::GetLookUpsPerFile() const
{
    return m_Rounds.front().m_nRefreshInfos / m_Rounds.front().m_nFiles;
}

double SSizeResult::GetLoadRatio() const
{
    return GetSpread(&SMeasurement::m_nLoadMs).m_nLeast / GetSpread(&SMeasurement::m_nPlainMs).m_nLeast;
}

double SSizeResult::GetLoadAndPackRatio() const
{
    return GetLoadRatio() +
           GetSpread(&SMeasurement::m_nPackMs).m_nLeast / GetSpread(&SMeasurement::m_nPlainMs).m_nLeast;
}

double SSizeResult::GetAttributes() const
{
    return static_cast<double>(m_nRecords * kAttributesPerRecord);
}

double SSizeResult::GetPeakPerAttribute() const
{
    return m_Counts.m_nPeakBytes / GetAttributes();
}

double SSizeResult::GetOwnPeakPerAttribute() const
{
    return (m_Counts.m_nPeakBytes - m_Counts.m_nStartBytes) / GetAttributes();
}

std::vector<SGoal> MakeGoals(const SBenchResults& results)
{
    std::vector<SGoal> goals;
    for (const SSizeResult& result : results.m_Sizes)
    {
        goals.push_back({"load / plain reading", result.m_nRecords, result.GetLoadRatio(), kLoadLimit});
        goals.push_back({"load and pack / plain reading", result.m_nRecords, result.GetLoadAndPackRatio(),
                         kLoadAndPackLimit});
        if (result.m_nRecords >= kMemoryFrom)
            goals.push_back(
                {"peak bytes an attribute", result.m_nRecords, result.GetPeakPerAttribute(), kBytesLimit});
    }
    const SSizeResult* small = FindSize(results.m_Sizes, kGrowthFrom);
    const SSizeResult* large = FindSize(results.m_Sizes, kGrowthTo);
    if (small != nullptr && large != nullptr)
    {
        goals.push_back({"growth of the load ratio from 10,000", large->m_nRecords,
                         large->GetLoadRatio() / small->GetLoadRatio(), kGrowthLimit});
        goals.push_back({"growth of the load and pack ratio from 10,000", large->m_nRecords,
                         large->GetLoadAndPackRatio() / small->GetLoadAndPackRatio(), kGrowthLimit});
    }
    const SSizeResult* least = FindSize(results.m_Sizes, kEditGrowthFrom);
    if (least != nullptr && large != nullptr)
        goals.push_back({"growth of an edit from 1,000", large->m_nRecords,
                         large->GetSpread(&SMeasurement::m_nEditUs).m_nLeast /
                             least->GetSpread(&SMeasurement::m_nEditUs).m_nLeast,
                         kGrowthLimit});
    for (const SSaveResult& result : results.m_Saves)
    {
        goals.push_back({"save / plain replacing", result.m_nRecords, result.GetSaveRatio(), kSaveLimit});
        goals.push_back({"look-ups a file, refresh without changes", result.m_nRecords,
                         result.GetLookUpsPerFile(), kLookUpLimit});
    }
    return goals;
}
