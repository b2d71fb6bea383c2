#include "ReferenceMeasurement.h"

#include "AssetLibrarySource.h"
#include "ZRAHeapAllocator.h"
#include "ZRANodeBuilder.h"
#include "ZRANodePtr.h"

#include <algorithm>
#include <ctime>
#include <stdexcept>
#include <string>

namespace
{
constexpr std::size_t kReferencesPerRecord = 5;

// Processor time: nothing here waits, and what else runs on the machine shall not count.
double MillisecondsSince(std::clock_t start)
{
    return static_cast<double>(std::clock() - start) * 1000 / CLOCKS_PER_SEC;
}

void Require(bool condition, const char* message)
{
    if (!condition)
        throw std::runtime_error(std::string("The references: ") + message + ".");
}

std::vector<std::string> MakeNames(const std::string& head, const std::string& tail, std::size_t count)
{
    std::vector<std::string> names;
    names.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
        names.push_back(head + std::to_string(i / 100) + "/thing " + std::to_string(i) + tail);
    return names;
}

// The references of a database's records, five each, to files that several records share.
class CReferences
{
public:
    explicit CReferences(std::size_t count)
        : m_nCount(count), m_Records(MakeNames("Units/", "", count / kReferencesPerRecord + 1)),
          m_Files(MakeNames("Models/", ".mesh", count / 2 + kReferencesPerRecord))
    {
    }

    void AddTo(CAssetLibrarySource& list) const
    {
        for (std::size_t i = 0; i < m_nCount; ++i)
        {
            const std::string& file = m_Files[(i / kReferencesPerRecord * 7919 + i) % m_Files.size()];
            list.AddDependency(m_Records[i / kReferencesPerRecord].c_str(), file.c_str(), "File", "", "");
        }
    }

private:
    std::size_t m_nCount;
    std::vector<std::string> m_Records;
    std::vector<std::string> m_Files;
};

SReferenceRound MeasureRound(const CReferences& references, std::size_t count)
{
    SReferenceRound round;
    CAssetLibrarySource list;
    std::clock_t start = std::clock();
    references.AddTo(list);
    round.m_nAddMs = MillisecondsSince(start);
    Require(list.GetDependencyCount() == count, "they are not as many as were added");
    start = std::clock();
    references.AddTo(list);
    round.m_nCountMs = MillisecondsSince(start);
    Require(list.GetDependencyCount() == count, "one that was there was added again");

    CZRAHeapAllocator allocator;
    CZRANodeBuilder builder(&allocator);
    start = std::clock();
    Require(list.Save(builder), "the node tree cannot hold them");
    const CZRANodePtr tree(builder.DetachHead(), {&allocator});
    round.m_nTreeMs = MillisecondsSince(start);
    return round;
}
} // namespace

double SReferenceResult::GetNanoseconds(double SReferenceRound::*time) const
{
    const auto least = std::min_element(m_Rounds.begin(), m_Rounds.end(),
                                        [time](const SReferenceRound& a, const SReferenceRound& b)
                                        { return a.*time < b.*time; });
    return ((*least).*time) * 1e6 / static_cast<double>(m_nReferences);
}

std::vector<SReferenceResult> MeasureReferences(std::span<const std::size_t> sizes, std::size_t rounds)
{
    std::vector<CReferences> references(sizes.begin(), sizes.end());
    std::vector<SReferenceResult> results(sizes.size());
    for (std::size_t round = 0; round < rounds; ++round)
    {
        for (std::size_t i = 0; i < sizes.size(); ++i)
        {
            results[i].m_nReferences = sizes[i];
            results[i].m_Rounds.push_back(MeasureRound(references[i], sizes[i]));
        }
    }
    return results;
}
