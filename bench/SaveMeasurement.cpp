#include "SaveMeasurement.h"

#include "BenchHost.h"
#include "CountingFileSystem.h"
#include "DatabaseGenerator.h"
#include "DiskFileSystem.h"
#include "FormatText.h"
#include "Measurement.h"
#include "PlainWriting.h"

#include <chrono>
#include <cstdio>
#include <span>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
using CClock = std::chrono::steady_clock;

double MillisecondsSince(CClock::time_point start)
{
    return std::chrono::duration<double, std::milli>(CClock::now() - start).count();
}

// Replacing a file that never came to the disk costs less than one that did.
void SettleDisk()
{
    ::sync();
}

void Require(bool done, const char* what)
{
    if (!done)
        throw std::runtime_error(what);
}

// The files of all schemas, categories and records, as the system's paths.
struct SFiles
{
    std::vector<std::string> m_All;
    std::vector<std::string> m_Records;
};

SFiles ListFiles(const CCorvaneMgr& manager, IFileSystem& disk)
{
    SFiles files;
    manager.EnumerateSchemas(
        [&](CCorvaneSchema& schema)
        {
            files.m_All.push_back(disk.GetNativePath(schema.GetFile()));
            return true;
        });
    manager.EnumerateCategories(
        [&](CCorvaneCategory& category)
        {
            if (!category.GetFile().empty())
                files.m_All.push_back(disk.GetNativePath(category.GetFile()));
        });
    manager.EnumerateRecords(
        [&](CCorvaneRecord& record)
        {
            files.m_Records.push_back(disk.GetNativePath(record.GetFile()));
            return true;
        });
    files.m_All.insert(files.m_All.end(), files.m_Records.begin(), files.m_Records.end());
    return files;
}

void MeasureRefresh(CCorvaneMgr& manager, CCountingFileSystem& counting, const SFiles& files,
                    SMeasurement& out)
{
    static_cast<void>(counting.Take());
    CClock::time_point start = CClock::now();
    Require(manager.RefreshDatabase(), "The database could not be refreshed.");
    out.m_nRefreshMs = MillisecondsSince(start);
    const SFileCounts counts = counting.Take();
    out.m_nRefreshInfos = static_cast<double>(counts.m_nInfos);
    out.m_nRefreshOpens = static_cast<double>(counts.m_nOpens);
    out.m_nFiles = static_cast<double>(files.m_All.size());
    start = CClock::now();
    for (const std::string& path : files.m_All)
    {
        struct stat status
        {
        };
        Require(::stat(path.c_str(), &status) == 0, "A file of the database is not there.");
    }
    out.m_nPlainStatMs = MillisecondsSince(start);
}

// A part of the records: the save of the whole database, then the plain replacing of the same files.
void MeasurePart(CCorvaneMgr& manager, std::span<CCorvaneRecord* const> records,
                 std::span<const std::string> paths, SMeasurement& out)
{
    for (std::size_t i = 0; i < records.size(); ++i)
        Require(records[i]->SetComment(FormatText(u"Changed as number %d.", i)), "A record was not changed.");
    SettleDisk();
    CClock::time_point start = CClock::now();
    Require(manager.SaveDatabase({}, false), "The database could not be saved.");
    out.m_nSaveMs += MillisecondsSince(start);
    for (const CCorvaneRecord* record : records)
        Require(!record->TestFlag(RECORD_FLAG_MODIFIED), "A record was not saved.");
    const std::vector<SPlainFile> plain = ReadLines(paths);
    SettleDisk();
    start = CClock::now();
    Require(ReplacePlainly(plain), "A file could not be replaced.");
    out.m_nPlainSaveMs += MillisecondsSince(start);
}

// Part by part, so that both meet the same weather: how long a flush takes hangs on what else uses the disk.
void MeasureSave(CCorvaneMgr& manager, const SFiles& files, SMeasurement& out)
{
    constexpr std::size_t kParts = 10;
    std::vector<CCorvaneRecord*> records;
    manager.EnumerateRecords(
        [&](CCorvaneRecord& record)
        {
            records.push_back(&record);
            return true;
        });
    for (std::size_t part = 0; part < kParts; ++part)
    {
        const std::size_t begin = records.size() * part / kParts;
        const std::size_t count = records.size() * (part + 1) / kParts - begin;
        MeasurePart(manager, std::span(records).subspan(begin, count),
                    std::span(files.m_Records).subspan(begin, count), out);
    }
}
} // namespace

bool MeasureSaves(const std::filesystem::path& tree, std::size_t records, SMeasurement& out)
{
    try
    {
        CDiskFileSystem disk;
        CCountingFileSystem counting(disk);
        CBenchHost host(counting, tree);
        Require(host.Load(tree / kGeneratedRoot), "The database could not be loaded.");
        const SFiles files = ListFiles(host.GetManager(), disk);
        Require(files.m_Records.size() == records, "The load left records out.");
        MeasureRefresh(host.GetManager(), counting, files, out);
        MeasureSave(host.GetManager(), files, out);
        return true;
    }
    catch (const std::exception& failure)
    {
        std::fprintf(stderr, "%s\n", failure.what());
        return false;
    }
}
