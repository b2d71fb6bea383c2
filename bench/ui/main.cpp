// corvane-ui-bench: how long a person waits for the windows over databases of different sizes, on the
// offscreen platform.
#include "ChildRun.h"
#include "GeneratedTree.h"
#include "RegisterTypeViews.h"
#include "Theme.h"
#include "TypeViewRegistry.h"
#include "WindowMeasurement.h"
#include "WorkDirectory.h"

#include <QApplication>
#include <charconv>
#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <stdexcept>
#include <vector>

namespace
{
constexpr int kFailed = 1;
constexpr int kWrongUse = 2;
constexpr const char* kHelp = "Usage: corvane-ui-bench [RECORDS...]\n"
                              "Measures the windows over generated databases of so many records; 1000 and "
                              "100000 unless told otherwise.\n";

struct SSizeResult
{
    std::size_t m_nRecords;
    SWindowMeasurement m_Measurement;
};

// A number, its limit, and whether it is held against that.
struct SRow
{
    const char* m_pName;
    const char* m_pUnit;
    double m_nLimit; // 0 for none.
    double (*m_Get)(const SWindowMeasurement&);
};

constexpr SRow kRows[] = {
    {"window usable after the load", "ms", 300, [](const SWindowMeasurement& m) { return m.m_nUsableMs; }},
    {"opening a record, median", "ms", 0, [](const SWindowMeasurement& m) { return m.m_Open.m_nMedian; }},
    {"opening a record, 99th percentile", "ms", 50,
     [](const SWindowMeasurement& m) { return m.m_Open.m_nP99; }},
    {"expanding 5,000 records, median", "ms", 0,
     [](const SWindowMeasurement& m) { return m.m_Expand.m_nMedian; }},
    {"expanding 5,000 records, 99th percentile", "ms", 50,
     [](const SWindowMeasurement& m) { return m.m_Expand.m_nP99; }},
    {"an edit with its typing, median", "ms", 0,
     [](const SWindowMeasurement& m) { return m.m_Edit.m_nMedian; }},
    {"an edit with its typing, 99th percentile", "ms", 16,
     [](const SWindowMeasurement& m) { return m.m_Edit.m_nP99; }},
    {"longest wait of a key while filtering", "ms", 0,
     [](const SWindowMeasurement& m) { return m.m_nSliceMs; }},
    {"a letter to its whole result", "ms", 0, [](const SWindowMeasurement& m) { return m.m_nFilterMs; }},
    {"tree, for each record not looked at", "bytes", 64,
     [](const SWindowMeasurement& m) { return m.m_nTreeBytes; }},
    {"heap growth a record opened and closed", "bytes", 0,
     [](const SWindowMeasurement& m) { return m.m_nGrowthBytes; }},
};

SSizeResult MeasureSize(const std::filesystem::path& directory, std::size_t records)
{
    std::cerr << records << " records" << std::endl;
    const CGeneratedTree tree(directory, records, false);
    const std::optional<std::string> text =
        RunSelf({"--measure", tree.GetPath().string()}, directory / "config");
    const std::optional<SWindowMeasurement> measurement = text ? ParseWindowMeasurement(*text) : std::nullopt;
    if (!measurement)
        throw std::runtime_error("The measurement of " + std::to_string(records) + " records failed.");
    return {records, *measurement};
}

void Print(const std::vector<SSizeResult>& results)
{
    constexpr int kNameWidth = 44;
    constexpr int kWidth = 11;
    std::cout << std::fixed << std::setprecision(2) << std::left << std::setw(kNameWidth) << "records"
              << std::right;
    for (const SSizeResult& result : results)
        std::cout << std::setw(kWidth) << result.m_nRecords;
    std::cout << std::setw(kWidth) << "limit" << '\n';
    for (const SRow& row : kRows)
    {
        std::cout << std::left << std::setw(kNameWidth) << row.m_pName << std::right;
        bool met = true;
        for (const SSizeResult& result : results)
        {
            const double value = row.m_Get(result.m_Measurement);
            met = met && value <= row.m_nLimit;
            std::cout << std::setw(kWidth) << value;
        }
        if (row.m_nLimit > 0)
            std::cout << std::setw(kWidth) << row.m_nLimit << ' ' << row.m_pUnit
                      << (met ? "  met" : "  missed") << '\n';
        else
            std::cout << std::setw(kWidth) << "" << ' ' << row.m_pUnit << '\n';
    }
}

int RunMeasurement(const char* tree)
{
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    int count = 1;
    char name[] = "corvane-ui-bench";
    char* arguments[] = {name, nullptr};
    const QApplication application(count, arguments);
    CTheme::Get().Install();
    RegisterTypeViews(GetTypeViews());
    const std::optional<SWindowMeasurement> measurement = MeasureWindows(tree);
    if (!measurement)
        return kFailed;
    std::cout << FormatWindowMeasurement(*measurement);
    return 0;
}

bool ParseSizes(int count, char** texts, std::vector<std::size_t>& sizes)
{
    for (int i = 0; i < count; ++i)
    {
        const std::string_view text = texts[i];
        std::size_t size = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), size);
        if (error != std::errc() || end != text.data() + text.size() || size == 0)
            return false;
        sizes.push_back(size);
    }
    if (sizes.empty())
        sizes = {1000, 100000};
    return true;
}
} // namespace

int main(int argc, char** argv)
{
    if (argc == 3 && std::string_view(argv[1]) == "--measure")
        return RunMeasurement(argv[2]);
    std::vector<std::size_t> sizes;
    if (!ParseSizes(argc - 1, argv + 1, sizes))
    {
        std::cerr << kHelp;
        return kWrongUse;
    }
    try
    {
        const CWorkDirectory directory;
        std::vector<SSizeResult> results;
        for (const std::size_t records : sizes)
            results.push_back(MeasureSize(directory.GetPath(), records));
        Print(results);
        return 0;
    }
    catch (const std::exception& failure)
    {
        std::cerr << failure.what() << '\n';
        return kFailed;
    }
}
