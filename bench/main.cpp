// corvane-bench: how long a load and a pack take against plain reading of the same files, and what they cost
// in memory, file opens and heap blocks.
#include "BenchOptions.h"
#include "ChildRun.h"
#include "GeneratedTree.h"
#include "Results.h"
#include "WorkDirectory.h"

#include <fstream>
#include <iostream>
#include <stdexcept>

namespace
{
constexpr int kFailed = 1;
constexpr int kWrongUse = 2;

SMeasurement MeasureInChild(EMeasure kind, const std::filesystem::path& tree, std::size_t records)
{
    const std::optional<std::string> text =
        RunSelf(MakeMeasureArguments(kind, tree, records), tree / "config");
    const std::optional<SMeasurement> measurement = text ? ParseMeasurement(*text) : std::nullopt;
    if (!measurement)
        throw std::runtime_error("The measurement of " + std::to_string(records) + " records failed.");
    return *measurement;
}

SSizeResult MeasureSize(const SBenchOptions& options, const std::filesystem::path& directory,
                        std::size_t records)
{
    std::cerr << records << " records: making the database" << std::endl;
    const CGeneratedTree tree(directory, records, options.m_bKeep);
    SSizeResult result;
    result.m_nRecords = records;
    result.m_Counts = MeasureInChild(EMeasure::Counts, tree.GetPath(), records);
    for (std::size_t round = 1; round <= options.m_nRepeat; ++round)
    {
        std::cerr << records << " records: round " << round << std::endl;
        result.m_Rounds.push_back(MeasureInChild(EMeasure::Times, tree.GetPath(), records));
    }
    return result;
}

SSaveResult MeasureSaveSize(const SBenchOptions& options, const std::filesystem::path& directory,
                            std::size_t records)
{
    const std::filesystem::path trees = directory / "corvane-bench-saves";
    SSaveResult result;
    result.m_nRecords = records;
    for (std::size_t round = 1; round <= options.m_nRepeat; ++round)
    {
        std::cerr << records << " changed records: round " << round << std::endl;
        // Its files change, so that no tree is kept for another run.
        const CGeneratedTree tree(trees, records, false);
        result.m_Rounds.push_back(MeasureInChild(EMeasure::Saves, tree.GetPath(), records));
    }
    std::filesystem::remove_all(trees);
    return result;
}

SLinkResult MeasureLinkSize(const SBenchOptions& options, const std::filesystem::path& directory,
                            std::size_t records)
{
    const std::filesystem::path tree = directory / "corvane-bench-links";
    SLinkResult result;
    result.m_nRecords = records;
    for (std::size_t round = 1; round <= options.m_nRepeat; ++round)
    {
        std::cerr << records << " records with links: round " << round << std::endl;
        result.m_Rounds.push_back(MeasureInChild(EMeasure::Links, tree, records));
    }
    std::filesystem::remove_all(tree);
    return result;
}

void WriteOutput(const std::filesystem::path& file, const SBenchResults& results)
{
    std::ofstream out(file);
    WriteJson(out, results);
    out.close();
    if (!out)
        throw std::runtime_error("The file " + file.string() + " could not be written.");
}

void RunAll(const SBenchOptions& options)
{
    const CWorkDirectory directory(options.m_Directory);
    SBenchResults results;
    for (const std::size_t records : options.m_Sizes)
        results.m_Sizes.push_back(MeasureSize(options, directory.GetPath(), records));
    for (const std::size_t records : options.m_SaveSizes)
        results.m_Saves.push_back(MeasureSaveSize(options, directory.GetPath(), records));
    for (const std::size_t records : options.m_LinkSizes)
        results.m_Links.push_back(MeasureLinkSize(options, directory.GetPath(), records));
    std::cerr << "references" << std::endl;
    results.m_References = MeasureReferences(options.m_ReferenceSizes, options.m_nRepeat);
    std::cerr << "compressed streams" << std::endl;
    results.m_Compression = MeasureCompression(options.m_nStreamBytes, options.m_nRepeat);
    PrintTable(std::cout, results);
    if (!options.m_Output.empty())
        WriteOutput(options.m_Output, results);
}

int RunMeasurement(const SBenchOptions& options)
{
    SMeasurement measurement;
    if (!Measure(*options.m_Measure, options.m_Tree, options.m_nRecords, measurement))
        return kFailed;
    std::cout << FormatMeasurement(measurement);
    return 0;
}
} // namespace

int main(int argc, char** argv)
{
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    std::string error;
    const std::optional<SBenchOptions> options = ParseBenchOptions(arguments, error);
    if (!options)
    {
        std::cerr << error << '\n' << GetBenchHelp();
        return kWrongUse;
    }
    if (options->m_bHelp)
    {
        std::cout << GetBenchHelp();
        return 0;
    }
    try
    {
        if (options->m_Measure)
            return RunMeasurement(*options);
        RunAll(*options);
        return 0;
    }
    catch (const std::exception& failure)
    {
        std::cerr << failure.what() << '\n';
        return kFailed;
    }
}
