#include "Measurement.h"

#include "AllocationCount.h"
#include "BenchHost.h"
#include "CountingFileSystem.h"
#include "DatabaseForms.h"
#include "DatabaseGenerator.h"
#include "DiskFileSystem.h"
#include "EditMeasurement.h"
#include "LinkMeasurement.h"
#include "PlainReading.h"
#include "SaveMeasurement.h"

#include <chrono>
#include <cstdio>
#include <fstream>
#include <malloc.h>
#include <sstream>

namespace
{
using CClock = std::chrono::steady_clock;

struct SField
{
    std::string_view m_sName;
    double SMeasurement::*m_pValue;
};

constexpr SField kFields[] = {
    {"files", &SMeasurement::m_nFiles},
    {"bytes", &SMeasurement::m_nBytes},
    {"plain_ms", &SMeasurement::m_nPlainMs},
    {"load_ms", &SMeasurement::m_nLoadMs},
    {"pack_ms", &SMeasurement::m_nPackMs},
    {"close_ms", &SMeasurement::m_nCloseMs},
    {"edit_us", &SMeasurement::m_nEditUs},
    {"far_edit_us", &SMeasurement::m_nFarEditUs},
    {"packed_bytes", &SMeasurement::m_nPackedBytes},
    {"start_bytes", &SMeasurement::m_nStartBytes},
    {"loaded_bytes", &SMeasurement::m_nLoadedBytes},
    {"peak_bytes", &SMeasurement::m_nPeakBytes},
    {"load_opens", &SMeasurement::m_nLoadOpens},
    {"load_listings", &SMeasurement::m_nLoadListings},
    {"load_infos", &SMeasurement::m_nLoadInfos},
    {"load_blocks", &SMeasurement::m_nLoadBlocks},
    {"pack_opens", &SMeasurement::m_nPackOpens},
    {"pack_blocks", &SMeasurement::m_nPackBlocks},
    {"text_pass_ms", &SMeasurement::m_nTextPassMs},
    {"link_pass_ms", &SMeasurement::m_nLinkPassMs},
    {"near_link_pass_ms", &SMeasurement::m_nNearLinkPassMs},
    {"first_question_ms", &SMeasurement::m_nFirstQuestionMs},
    {"question_ms", &SMeasurement::m_nQuestionMs},
    {"insert_ms", &SMeasurement::m_nInsertMs},
    {"delete_ms", &SMeasurement::m_nDeleteMs},
    {"round_ms", &SMeasurement::m_nRoundMs},
    {"save_ms", &SMeasurement::m_nSaveMs},
    {"plain_save_ms", &SMeasurement::m_nPlainSaveMs},
    {"refresh_ms", &SMeasurement::m_nRefreshMs},
    {"plain_stat_ms", &SMeasurement::m_nPlainStatMs},
    {"refresh_lookups", &SMeasurement::m_nRefreshInfos},
    {"refresh_opens", &SMeasurement::m_nRefreshOpens},
};

double MillisecondsSince(CClock::time_point start)
{
    return std::chrono::duration<double, std::milli>(CClock::now() - start).count();
}

// A line of the process's own status, such as "VmHWM:", in bytes.
double ReadOwnMemory(std::string_view key)
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
    {
        if (line.starts_with(key))
            return std::stod(line.substr(key.size())) * 1024;
    }
    return 0;
}

// What is timed must be the whole database: a load that left records out would be a fast one.
bool HoldsAll(const CCorvaneMgr& manager, std::size_t records)
{
    std::size_t found = 0;
    std::size_t attributes = 0;
    manager.EnumerateRecords(
        [&](CCorvaneRecord& record)
        {
            ++found;
            attributes += record.GetAttributeList().size();
            return true;
        });
    if (found == records && attributes == records * kAttributesPerRecord)
        return true;
    std::fprintf(stderr, "The load gave %zu records with %zu attributes, not %zu with %zu.\n", found,
                 attributes, records, records * kAttributesPerRecord);
    return false;
}

bool ReadFloor(const std::filesystem::path& tree, SMeasurement& out)
{
    {
        const std::vector<std::string> files = ListSourceFiles(tree / "Database");
        out.m_nFiles = static_cast<double>(files.size());
        if (ReadPlainly(files) < 0) // Brings every file into the system's cache.
            return false;
        const CClock::time_point start = CClock::now();
        out.m_nBytes = static_cast<double>(ReadPlainly(files));
        out.m_nPlainMs = MillisecondsSince(start);
    }
    // The load starts with the heap of a fresh process.
    ::malloc_trim(0);
    return out.m_nBytes > 0;
}

bool MeasureTimes(const std::filesystem::path& tree, std::size_t records, SMeasurement& out)
{
    if (!ReadFloor(tree, out))
        return false;
    const std::filesystem::path target = tree / "Bench.Gamdb00p";
    std::filesystem::remove(target);
    CDiskFileSystem disk;
    CBenchHost host(disk, tree);
    CClock::time_point start = CClock::now();
    if (!host.Load(tree / kGeneratedRoot))
        return false;
    out.m_nLoadMs = MillisecondsSince(start);
    if (!HoldsAll(host.GetManager(), records))
        return false;
    start = CClock::now();
    if (!host.Pack(target))
        return false;
    out.m_nPackMs = MillisecondsSince(start);
    out.m_nPackedBytes = static_cast<double>(std::filesystem::file_size(target));
    if (!MeasureEdits(host, out))
        return false;
    start = CClock::now();
    host.Close();
    out.m_nCloseMs = MillisecondsSince(start);
    return true;
}

bool MeasureCounts(const std::filesystem::path& tree, std::size_t records, SMeasurement& out)
{
    CDiskFileSystem disk;
    CCountingFileSystem files(disk);
    CBenchHost host(files, tree);
    CAllocationCount blocks;
    out.m_nStartBytes = ReadOwnMemory("VmRSS:");
    static_cast<void>(blocks.Take());
    if (!host.Load(tree / kGeneratedRoot))
        return false;
    out.m_nLoadBlocks = static_cast<double>(blocks.Take());
    const SFileCounts load = files.Take();
    out.m_nLoadOpens = static_cast<double>(load.m_nOpens);
    out.m_nLoadListings = static_cast<double>(load.m_nListings);
    out.m_nLoadInfos = static_cast<double>(load.m_nInfos);
    out.m_nLoadedBytes = ReadOwnMemory("VmRSS:");
    if (!HoldsAll(host.GetManager(), records))
        return false;
    static_cast<void>(blocks.Take());
    if (!host.Pack(tree / "Bench.Gamdb00p"))
        return false;
    out.m_nPackBlocks = static_cast<double>(blocks.Take());
    out.m_nPackOpens = static_cast<double>(files.Take().m_nOpens);
    out.m_nPeakBytes = ReadOwnMemory("VmHWM:");
    return true;
}
} // namespace

bool Measure(EMeasure kind, const std::filesystem::path& tree, std::size_t records, SMeasurement& out)
{
    if (kind == EMeasure::Links)
        return MeasureLinks(tree, records, out);
    if (kind == EMeasure::Saves)
        return MeasureSaves(tree, records, out);
    const bool good =
        kind == EMeasure::Times ? MeasureTimes(tree, records, out) : MeasureCounts(tree, records, out);
    if (!good)
        std::fprintf(stderr, "The database of %zu records could not be read, loaded or packed.\n", records);
    return good;
}

std::string FormatMeasurement(const SMeasurement& measurement)
{
    std::ostringstream out;
    out.precision(15);
    for (const SField& field : kFields)
        out << field.m_sName << ' ' << measurement.*field.m_pValue << '\n';
    return out.str();
}

std::optional<SMeasurement> ParseMeasurement(std::string_view text)
{
    std::istringstream in{std::string(text)};
    SMeasurement measurement;
    for (const SField& field : kFields)
    {
        std::string name;
        if (!(in >> name >> measurement.*field.m_pValue) || name != field.m_sName)
            return std::nullopt;
    }
    return measurement;
}
