// The results as a program reads them.
#include "DatabaseForms.h"
#include "LinkMeasurement.h"
#include "Results.h"

#include <cstdlib>
#include <fstream>
#include <iomanip>
#include <ostream>
#include <string>
#include <string_view>
#include <thread>
#include <unistd.h>

namespace
{
// Members of one object, one a line, with the commas between them.
class CJsonObject
{
public:
    CJsonObject(std::ostream& out, int depth) : m_Out(out), m_nDepth(depth) { m_Out << '{'; }
    ~CJsonObject() { m_Out << '\n' << std::string(static_cast<std::size_t>(m_nDepth) * 2, ' ') << '}'; }
    CJsonObject(const CJsonObject&) = delete;
    CJsonObject& operator=(const CJsonObject&) = delete;

    std::ostream& Name(std::string_view name)
    {
        m_Out << (m_bFirst ? "\n" : ",\n") << std::string(static_cast<std::size_t>(m_nDepth + 1) * 2, ' ')
              << '"' << name << "\": ";
        m_bFirst = false;
        return m_Out;
    }
    void Number(std::string_view name, double value) { Name(name) << value; }
    void Text(std::string_view name, std::string_view value)
    {
        Name(name) << '"';
        for (const char unit : value)
        {
            if (unit == '"' || unit == '\\')
                m_Out << '\\';
            if (static_cast<unsigned char>(unit) >= 0x20)
                m_Out << unit;
        }
        m_Out << '"';
    }

private:
    std::ostream& m_Out;
    int m_nDepth;
    bool m_bFirst = true;
};

std::string ReadProcessorName()
{
    std::ifstream info("/proc/cpuinfo");
    for (std::string line; std::getline(info, line);)
    {
        const std::size_t colon = line.find(": ");
        if (line.starts_with("model name") && colon != std::string::npos)
            return line.substr(colon + 2);
    }
    return "unknown";
}

constexpr bool IsSanitized()
{
#ifdef CORVANE_SANITIZED
    return true;
#else
    return false;
#endif
}

void WriteMachine(std::ostream& out)
{
    double load[1] = {0};
    CJsonObject machine(out, 1);
    machine.Number("cpus", std::thread::hardware_concurrency());
    machine.Text("cpu", ReadProcessorName());
    machine.Number("memory_bytes", static_cast<double>(::sysconf(_SC_PHYS_PAGES)) *
                                       static_cast<double>(::sysconf(_SC_PAGESIZE)));
    machine.Number("load_average", ::getloadavg(load, 1) == 1 ? load[0] : -1);
    machine.Text("compiler", __VERSION__);
    machine.Text("build_type", CORVANE_BUILD_TYPE);
    machine.Name("sanitized") << (IsSanitized() ? "true" : "false");
}

void WriteSpread(CJsonObject& object, std::string_view name, const SSpread& spread)
{
    CJsonObject member(object.Name(name), 3);
    member.Number("least", spread.m_nLeast);
    member.Number("median", spread.m_nMedian);
    member.Number("most", spread.m_nMost);
}

void WriteSize(std::ostream& out, const SSizeResult& result)
{
    const auto records = static_cast<double>(result.m_nRecords);
    const SMeasurement& round = result.m_Rounds.front();
    const SMeasurement& counts = result.m_Counts;
    CJsonObject size(out, 2);
    size.Number("records", records);
    size.Number("attributes", result.GetAttributes());
    size.Number("files", round.m_nFiles);
    size.Number("source_bytes", round.m_nBytes);
    size.Number("packed_bytes", round.m_nPackedBytes);
    size.Number("rounds", static_cast<double>(result.m_Rounds.size()));
    WriteSpread(size, "plain_ms", result.GetSpread(&SMeasurement::m_nPlainMs));
    WriteSpread(size, "load_ms", result.GetSpread(&SMeasurement::m_nLoadMs));
    WriteSpread(size, "pack_ms", result.GetSpread(&SMeasurement::m_nPackMs));
    WriteSpread(size, "close_ms", result.GetSpread(&SMeasurement::m_nCloseMs));
    WriteSpread(size, "edit_us", result.GetSpread(&SMeasurement::m_nEditUs));
    WriteSpread(size, "far_edit_us", result.GetSpread(&SMeasurement::m_nFarEditUs));
    size.Number("load_ratio", result.GetLoadRatio());
    size.Number("load_and_pack_ratio", result.GetLoadAndPackRatio());
    size.Number("start_bytes", counts.m_nStartBytes);
    size.Number("loaded_bytes", counts.m_nLoadedBytes);
    size.Number("peak_bytes", counts.m_nPeakBytes);
    size.Number("peak_bytes_per_attribute", result.GetPeakPerAttribute());
    size.Number("own_bytes_per_attribute", result.GetOwnPeakPerAttribute());
    size.Number("load_opens_per_record", counts.m_nLoadOpens / records);
    size.Number("load_listings_per_record", counts.m_nLoadListings / records);
    size.Number("load_lookups_per_record", counts.m_nLoadInfos / records);
    size.Number("load_allocations_per_record", counts.m_nLoadBlocks / records);
    size.Number("pack_opens", counts.m_nPackOpens);
    size.Number("pack_allocations_per_record", counts.m_nPackBlocks / records);
}

void WriteSaves(std::ostream& out, const SSaveResult& result)
{
    CJsonObject saves(out, 2);
    saves.Number("records", static_cast<double>(result.m_nRecords));
    saves.Number("files", result.m_Rounds.front().m_nFiles);
    saves.Number("rounds", static_cast<double>(result.m_Rounds.size()));
    WriteSpread(saves, "save_ms", result.GetSpread(&SMeasurement::m_nSaveMs));
    WriteSpread(saves, "plain_save_ms", result.GetSpread(&SMeasurement::m_nPlainSaveMs));
    WriteSpread(saves, "refresh_ms", result.GetSpread(&SMeasurement::m_nRefreshMs));
    WriteSpread(saves, "plain_stat_ms", result.GetSpread(&SMeasurement::m_nPlainStatMs));
    saves.Number("save_ratio", result.GetSaveRatio());
    saves.Number("refresh_lookups_per_file", result.GetLookUpsPerFile());
    saves.Number("refresh_opens", result.m_Rounds.front().m_nRefreshOpens);
}

void WriteLinks(std::ostream& out, const SLinkResult& result)
{
    CJsonObject links(out, 2);
    links.Number("records", static_cast<double>(result.m_nRecords));
    links.Number("links", static_cast<double>(result.m_nRecords * kLinksPerRecord));
    links.Number("rounds", static_cast<double>(result.m_Rounds.size()));
    WriteSpread(links, "text_pass_ms", result.GetSpread(&SMeasurement::m_nTextPassMs));
    WriteSpread(links, "link_pass_ms", result.GetSpread(&SMeasurement::m_nLinkPassMs));
    WriteSpread(links, "near_link_pass_ms", result.GetSpread(&SMeasurement::m_nNearLinkPassMs));
    links.Number("text_ns", result.GetNanoseconds(&SMeasurement::m_nTextPassMs));
    links.Number("link_ns", result.GetNanoseconds(&SMeasurement::m_nLinkPassMs));
    links.Number("near_link_ns", result.GetNanoseconds(&SMeasurement::m_nNearLinkPassMs));
    WriteSpread(links, "first_question_ms", result.GetSpread(&SMeasurement::m_nFirstQuestionMs));
    WriteSpread(links, "question_ms", result.GetSpread(&SMeasurement::m_nQuestionMs));
    WriteSpread(links, "question_by_round_ms", result.GetSpread(&SMeasurement::m_nRoundMs));
    WriteSpread(links, "insert_ms", result.GetSpread(&SMeasurement::m_nInsertMs));
    WriteSpread(links, "delete_ms", result.GetSpread(&SMeasurement::m_nDeleteMs));
}

void WriteReferences(std::ostream& out, const SReferenceResult& result)
{
    CJsonObject references(out, 2);
    references.Number("references", static_cast<double>(result.m_nReferences));
    references.Number("rounds", static_cast<double>(result.m_Rounds.size()));
    for (const SReferenceTime& time : kReferenceTimes)
        references.Number(std::string(time.m_pJson) + "_ns", result.GetNanoseconds(time.m_pValue));
}

void WriteCompression(std::ostream& out, const SCompressionResult& result)
{
    CJsonObject compression(out, 2);
    compression.Text("input", result.m_sInput);
    compression.Number("bytes", static_cast<double>(result.m_nBytes));
    compression.Number("stream_bytes", static_cast<double>(result.m_nStreamBytes));
    compression.Number("zlib_bytes", static_cast<double>(result.m_nZlibBytes));
    compression.Number("rounds", static_cast<double>(result.m_Rounds.size()));
    for (const SCompressionTime& time : kCompressionTimes)
        compression.Number(std::string(time.m_pJson) + "_bytes_per_second", result.GetSpeed(time.m_pValue));
}

void WriteGoal(std::ostream& out, const SGoal& goal)
{
    CJsonObject object(out, 2);
    object.Text("name", goal.m_sName);
    object.Number("records", static_cast<double>(goal.m_nRecords));
    object.Number("value", goal.m_nValue);
    object.Number("limit", goal.m_nLimit);
    object.Name("met") << (goal.IsMet() ? "true" : "false");
}

template <class T>
void WriteList(std::ostream& out, const std::vector<T>& items, void (*write)(std::ostream&, const T&))
{
    out << '[';
    for (std::size_t i = 0; i < items.size(); ++i)
    {
        out << (i == 0 ? "\n    " : ",\n    ");
        write(out, items[i]);
    }
    out << "\n  ]";
}
} // namespace

void WriteJson(std::ostream& out, const SBenchResults& results)
{
    out << std::setprecision(12);
    {
        CJsonObject top(out, 0);
        top.Number("format", 1);
        WriteMachine(top.Name("machine"));
        WriteList(top.Name("sizes"), results.m_Sizes, WriteSize);
        WriteList(top.Name("saves"), results.m_Saves, WriteSaves);
        WriteList(top.Name("links"), results.m_Links, WriteLinks);
        WriteList(top.Name("references"), results.m_References, WriteReferences);
        WriteList(top.Name("compression"), results.m_Compression, WriteCompression);
        WriteList(top.Name("goals"), MakeGoals(results), WriteGoal);
    }
    out << '\n';
}
