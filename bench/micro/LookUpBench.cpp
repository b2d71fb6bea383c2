// Look-ups in a loaded database. Their time must not grow with the count of records.
#include "MicroDatabase.h"

#include <benchmark/benchmark.h>

namespace
{
// A stride that no count here is a multiple of, so that neighbours in time are far apart in the tree.
constexpr std::size_t kStride = 7919;

void FindRecordByPath(benchmark::State& state)
{
    CMicroDatabase& database = CMicroDatabase::GetPlain(static_cast<std::size_t>(state.range(0)));
    const CCorvaneMgr& manager = database.GetManager();
    std::vector<std::u16string> paths;
    for (const CCorvaneRecord* record : database.GetRecords())
        manager.GetRecordPath(record, paths.emplace_back());
    std::size_t next = 0;
    for ([[maybe_unused]] auto _ : state)
    {
        next = (next + kStride) % paths.size();
        if (manager.FindRecord(paths[next], nullptr) == nullptr)
            state.SkipWithError("A record was not found.");
    }
}
BENCHMARK(FindRecordByPath)->Arg(1000)->Arg(100000);

void FindSymmetricAttribute(benchmark::State& state)
{
    CMicroDatabase& database = CMicroDatabase::GetGenerated(200);
    const CCorvaneMgr& manager = database.GetManager();
    const CCorvaneRecord* from = database.GetRecords()[0];
    const CCorvaneRecord* to = database.GetRecords()[1];
    const auto attributes = from->GetAttributeList();
    std::size_t next = 0;
    for ([[maybe_unused]] auto _ : state)
    {
        next = (next + 1) % attributes.size();
        CCorvaneAttrib* found = nullptr;
        if (!manager.FindSymmetricAttribute(from, attributes[next].Get(), to, found))
            state.SkipWithError("An attribute has no like one.");
        benchmark::DoNotOptimize(found);
    }
}
BENCHMARK(FindSymmetricAttribute);
} // namespace
