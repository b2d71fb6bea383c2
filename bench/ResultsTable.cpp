// The results as a person reads them.
#include "LinkMeasurement.h"
#include "Results.h"

#include <iomanip>
#include <ostream>

namespace
{
constexpr int kNameWidth = 46;
constexpr double kMegabyte = 1024 * 1024;

struct STimeRow
{
    const char* m_pName;
    double SMeasurement::*m_pValue;
};

constexpr STimeRow kTimes[] = {
    {"plain reading", &SMeasurement::m_nPlainMs},
    {"load", &SMeasurement::m_nLoadMs},
    {"pack", &SMeasurement::m_nPackMs},
    {"close", &SMeasurement::m_nCloseMs},
};

void PrintRow(std::ostream& out, const char* name, double value, const char* unit)
{
    out << "  " << std::left << std::setw(kNameWidth) << name << std::right << std::setw(11) << value << "  "
        << unit << '\n';
}

void PrintSize(std::ostream& out, const SSizeResult& result)
{
    const auto records = static_cast<double>(result.m_nRecords);
    const SMeasurement& counts = result.m_Counts;
    const SMeasurement& round = result.m_Rounds.front();
    out << '\n'
        << result.m_nRecords << " records, " << static_cast<std::size_t>(round.m_nFiles) << " files, "
        << round.m_nBytes / kMegabyte << " MB; packed " << round.m_nPackedBytes / kMegabyte << " MB\n";
    for (const STimeRow& row : kTimes)
    {
        const SSpread spread = result.GetSpread(row.m_pValue);
        out << "  " << std::left << std::setw(kNameWidth) << row.m_pName << std::right << std::setw(11)
            << spread.m_nLeast << "  ms  (median " << spread.m_nMedian << ", most " << spread.m_nMost
            << ")\n";
    }
    PrintRow(out, "an edit of a value and its undo", result.GetSpread(&SMeasurement::m_nEditUs).m_nLeast,
             "us");
    PrintRow(out, "  all over the database", result.GetSpread(&SMeasurement::m_nFarEditUs).m_nLeast, "us");
    PrintRow(out, "memory before the load", counts.m_nStartBytes / kMegabyte, "MB");
    PrintRow(out, "memory after the load", counts.m_nLoadedBytes / kMegabyte, "MB");
    PrintRow(out, "peak memory of load and pack", counts.m_nPeakBytes / kMegabyte, "MB");
    PrintRow(out, "peak memory an attribute", result.GetPeakPerAttribute(), "bytes");
    PrintRow(out, "  without that before the load", result.GetOwnPeakPerAttribute(), "bytes");
    PrintRow(out, "file opens a record, load", counts.m_nLoadOpens / records, "");
    PrintRow(out, "directory listings a record, load", counts.m_nLoadListings / records, "");
    PrintRow(out, "other look-ups of a file a record, load", counts.m_nLoadInfos / records, "");
    PrintRow(out, "allocations a record, load", counts.m_nLoadBlocks / records, "");
    PrintRow(out, "allocations a record, pack", counts.m_nPackBlocks / records, "");
}

void PrintSaves(std::ostream& out, const SSaveResult& result)
{
    const auto least = [&](double SMeasurement::*value) { return result.GetSpread(value).m_nLeast; };
    out << '\n' << result.m_nRecords << " changed records\n";
    PrintRow(out, "save", least(&SMeasurement::m_nSaveMs), "ms");
    PrintRow(out, "plain replacing of the same files", least(&SMeasurement::m_nPlainSaveMs), "ms");
    PrintRow(out, "refresh without changes", least(&SMeasurement::m_nRefreshMs), "ms");
    PrintRow(out, "plain look at the same files", least(&SMeasurement::m_nPlainStatMs), "ms");
    PrintRow(out, "look-ups a file, refresh without changes", result.GetLookUpsPerFile(), "");
    PrintRow(out, "file opens, refresh without changes", result.m_Rounds.front().m_nRefreshOpens, "");
}

void PrintLinks(std::ostream& out, const SLinkResult& result)
{
    const double text = result.GetNanoseconds(&SMeasurement::m_nTextPassMs);
    const double link = result.GetNanoseconds(&SMeasurement::m_nLinkPassMs);
    const double near = result.GetNanoseconds(&SMeasurement::m_nNearLinkPassMs);
    out << '\n' << result.m_nRecords << " records with " << kLinksPerRecord << " links each\n";
    PrintRow(out, "a text in the attribute pass", text, "ns");
    PrintRow(out, "a link in the attribute pass", link, "ns");
    PrintRow(out, "  against the text", link / text, "");
    PrintRow(out, "a link to a near record", near, "ns");
    PrintRow(out, "  against the text", near / text, "");
    const auto least = [&](double SMeasurement::*value) { return result.GetSpread(value).m_nLeast; };
    PrintRow(out, "first question before a delete", least(&SMeasurement::m_nFirstQuestionMs), "ms");
    PrintRow(out, "a later question", least(&SMeasurement::m_nQuestionMs) * 1000, "us");
    PrintRow(out, "a question by a round over all links", least(&SMeasurement::m_nRoundMs) * 1000, "us");
    PrintRow(out, "an insert of a record", least(&SMeasurement::m_nInsertMs) * 1000, "us");
    PrintRow(out, "a delete of a record without links to it", least(&SMeasurement::m_nDeleteMs) * 1000, "us");
}

// Behind the first size, each time stands beside that of the first.
void PrintReferences(std::ostream& out, const std::vector<SReferenceResult>& results)
{
    for (const SReferenceResult& result : results)
    {
        out << '\n' << result.m_nReferences << " references in a resource database\n";
        for (const SReferenceTime& time : kReferenceTimes)
        {
            const double own = result.GetNanoseconds(time.m_pValue);
            PrintRow(out, time.m_pName, own, "ns");
            if (&result != &results.front())
                PrintRow(out, "  against the first size", own / results.front().GetNanoseconds(time.m_pValue),
                         "");
        }
    }
}

void PrintCompression(std::ostream& out, const SCompressionResult& result)
{
    const auto bytes = static_cast<double>(result.m_nBytes);
    out << '\n' << result.m_sInput << ", " << bytes / kMegabyte << " MB\n";
    for (const SCompressionTime& time : kCompressionTimes)
        PrintRow(out, time.m_pName, result.GetSpeed(time.m_pValue) / kMegabyte, "MB/s");
    PrintRow(out, "size of the stream", static_cast<double>(result.m_nStreamBytes) * 100 / bytes, "%");
    PrintRow(out, "size by zlib", static_cast<double>(result.m_nZlibBytes) * 100 / bytes, "%");
}
} // namespace

void PrintTable(std::ostream& out, const SBenchResults& results)
{
    out << std::fixed << std::setprecision(2);
    for (const SSizeResult& result : results.m_Sizes)
        PrintSize(out, result);
    for (const SSaveResult& result : results.m_Saves)
        PrintSaves(out, result);
    for (const SLinkResult& result : results.m_Links)
        PrintLinks(out, result);
    PrintReferences(out, results.m_References);
    for (const SCompressionResult& result : results.m_Compression)
        PrintCompression(out, result);
    out << '\n'
        << "  " << std::left << std::setw(kNameWidth) << "goal" << std::right << std::setw(9) << "records"
        << std::setw(11) << "value" << std::setw(9) << "limit" << '\n';
    for (const SGoal& goal : MakeGoals(results))
        out << "  " << std::left << std::setw(kNameWidth) << goal.m_sName << std::right << std::setw(9)
            << goal.m_nRecords << std::setw(11) << goal.m_nValue << std::setw(9) << goal.m_nLimit << "  "
            << (goal.IsMet() ? "met" : "missed") << '\n';
}
