// Parsing of one record file, beside a copy of its bytes.
#include "MemoryFileSystem.h"
#include "MicroDatabase.h"
#include "UnicodeFileParse_ReadOnly.h"

#include <benchmark/benchmark.h>

#include <cstring>

namespace
{
constexpr std::u16string_view kFile = u"/typical.record";

void CountBytes(benchmark::State& state, std::size_t size)
{
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(size));
}

void CopyRecordFile(benchmark::State& state)
{
    const std::string bytes = GetTypicalRecordFile();
    std::string copy(bytes.size(), '\0');
    for ([[maybe_unused]] auto _ : state)
    {
        std::memcpy(copy.data(), bytes.data(), bytes.size());
        benchmark::DoNotOptimize(copy.data());
        benchmark::ClobberMemory();
    }
    CountBytes(state, bytes.size());
}
BENCHMARK(CopyRecordFile);

void ParseRecordFile(benchmark::State& state)
{
    const std::string bytes = GetTypicalRecordFile();
    CMemoryFileSystem files;
    if (!files.WriteFile(kFile, std::as_bytes(std::span(bytes))).IsOk())
        state.SkipWithError("The file could not be written.");
    CUnicodeFileParse_ReadOnly parser(files);
    for ([[maybe_unused]] auto _ : state)
    {
        if (!parser.Import(kFile, 0))
            state.SkipWithError("The file could not be parsed.");
        benchmark::DoNotOptimize(parser.GetSectionCount());
    }
    CountBytes(state, bytes.size());
}
BENCHMARK(ParseRecordFile);
} // namespace
