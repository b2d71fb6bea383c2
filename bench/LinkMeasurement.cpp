#include "LinkMeasurement.h"

#include "BenchHost.h"
#include "CorvaneCategory.h"
#include "CorvaneSchema.h"
#include "CorvaneType.h"
#include "DiskFileSystem.h"
#include "FormatText.h"
#include "Measurement.h"
#include "UndoScope.h"
#include "recordlink/CorvaneTypeRecordLink.h"
#include "recordlink/RecordLinkList.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <vector>

namespace
{
using CClock = std::chrono::steady_clock;

constexpr std::size_t kRecordsPerCategory = 100;
constexpr int kPacks = 3;
constexpr std::size_t kQuestions = 1000;
// How far away a near link's record lies at most, counted in records.
constexpr std::size_t kNear = 500;

enum class EReach
{
    Database,
    Neighbourhood,
};

double MillisecondsSince(CClock::time_point start)
{
    return std::chrono::duration<double, std::milli>(CClock::now() - start).count();
}

void WriteText(const std::filesystem::path& file, const std::string& text)
{
    std::filesystem::create_directories(file.parent_path());
    std::ofstream out(file, std::ios::binary);
    out << "\xff\xfe";
    for (const char unit : text)
        out << unit << '\0';
    out.close();
    if (!out)
        throw std::runtime_error("The file " + file.string() + " could not be written.");
}

// Records with five attributes of one type. Their values are paths of other records, whatever the type is;
// the records are made in memory, since a pack reads no source file.
class CLinkedRecords
{
public:
    CLinkedRecords(const std::filesystem::path& directory, const std::string& type, std::size_t records,
                   EReach reach = EReach::Database)
        : m_Directory(directory / type), m_nRecords(records), m_Reach(reach), m_Host(m_Disk, m_Directory)
    {
        WriteFiles(type);
        if (!m_Host.Load(m_Directory / "Database/Links.Gamdb00s"))
            throw std::runtime_error("The database of " + type + " attributes could not be loaded.");
        for (std::size_t i = 0; i < records; ++i)
            AddRecord(i);
    }
    ~CLinkedRecords()
    {
        GetManager().SetDirty(false);
        m_Host.Close();
        std::error_code error;
        std::filesystem::remove_all(m_Directory, error);
    }
    CLinkedRecords(const CLinkedRecords&) = delete;
    CLinkedRecords& operator=(const CLinkedRecords&) = delete;

    [[nodiscard]] CBenchHost& GetHost() { return m_Host; }
    [[nodiscard]] CCorvaneMgr& GetManager() { return m_Host.GetManager(); }
    [[nodiscard]] CCorvaneRecord& GetRecord(std::size_t index) { return *m_Records[index]; }
    [[nodiscard]] std::size_t GetCount() const { return m_nRecords; }
    // The least time of the attribute pass, in milliseconds; negative when a pack failed.
    [[nodiscard]] double MeasurePass()
    {
        double least = -1;
        for (int i = 0; i < kPacks; ++i)
        {
            const double time = MeasureOnePass();
            if (time < 0)
                return time;
            least = least < 0 ? time : std::min(least, time);
        }
        return least;
    }

private:
    void WriteFiles(const std::string& type)
    {
        std::filesystem::create_directories(m_Directory);
        std::ofstream(m_Directory / "Links.proj00")
            << "[Project Binaries]\nGameDatabase=CorvaneCreator.dll\n";
        WriteText(m_Directory / "Database/Links.Gamdb00s",
                  "[General]\r\nVersion=1\r\nName=Links\r\n"
                  "Database={0C4E6A92-7D15-4B38-A6F1-93D2E85B7041}\r\n");
        std::string schema = "[Schema]\r\nName=Thing\r\n";
        for (std::size_t i = 0; i < kLinksPerRecord; ++i)
            schema += "[Attrib.Link" + std::to_string(i) + ".0]\r\nType=" + type + "\r\nData=Thing\r\n";
        WriteText(m_Directory / "Database/Thing.schema", schema);
    }

    void AddRecord(std::size_t index)
    {
        const CRef<CCorvaneSchema> schema(GetManager().FindSchema(u"Thing"));
        if (index % kRecordsPerCategory == 0)
        {
            const std::u16string name = FormatText(u"Things %d", index / kRecordsPerCategory);
            m_pCategory = GetManager().AddCategory(CRef<CCorvaneCategory>(new CCorvaneCategory(
                GetManager(), name, {}, {}, schema.Get(), nullptr, CATEGORY_FLAG_SYSTEM)));
        }
        const CRef<CCorvaneRecord> record = schema->CloneRecordFromTemplate();
        bool good = record->SetCategory(m_pCategory, true) && record->SetName(FormatText(u"Thing %d", index));
        m_pCategory->AddRecord(*record);
        for (std::size_t i = 0; i < kLinksPerRecord; ++i)
        {
            const std::size_t target = GetTarget(index, i);
            const CRef<CCorvaneAttrib>& attrib = record->GetAttributeList()[i];
            good = attrib->SetValue(
                       0, FormatText(u"Things %d/Thing %d", target / kRecordsPerCategory, target)) &&
                   good;
        }
        if (!good)
            throw std::runtime_error("A record could not be made.");
        m_Records.push_back(record.Get());
    }

    // Only every second record is linked to.
    [[nodiscard]] std::size_t GetTarget(std::size_t record, std::size_t link) const
    {
        const std::size_t step = record * 7919 + link * 104729;
        const std::size_t target =
            m_Reach == EReach::Database ? step : record + (m_nRecords - 1) * kNear + step % (2 * kNear);
        return target % m_nRecords / 2 * 2;
    }

    [[nodiscard]] double MeasureOnePass()
    {
        CClock::time_point start;
        double time = -1;
        const CObserverHandle observer = GetManager().AddObserver(
            [&](const CCorvaneEvent& event)
            {
                if (event.GetCode() == ECorvaneEvent::CompileAttributesBegin)
                    start = CClock::now();
                else if (event.GetCode() == ECorvaneEvent::CompileAttributesEnd)
                    time = MillisecondsSince(start);
                return 0;
            });
        return m_Host.Pack(m_Directory / "Links.Gamdb00p") ? time : -1;
    }

    std::filesystem::path m_Directory;
    std::size_t m_nRecords;
    EReach m_Reach;
    CDiskFileSystem m_Disk;
    CBenchHost m_Host;
    CCorvaneCategory* m_pCategory = nullptr;
    std::vector<CCorvaneRecord*> m_Records; // The tree holds them.
};

// The question by a round over all links, one after the other.
int AskAll(CCorvaneMgr& manager, const CCorvaneEvent& event)
{
    const CLinkTarget target(event);
    int answer = 0;
    manager.GetTypeState<CRecordLinkList>().ForEach(
        [&](CCorvaneTypeRecordLink& link)
        {
            if (answer == 0)
                answer = link.OnManagerEvent(event, target);
        });
    return answer;
}

CCorvaneEvent MakeQuestionEvent(CLinkedRecords& records, std::size_t index)
{
    return CCorvaneEvent(ECorvaneEvent::RecordDeleting, &records.GetRecord(index));
}

// Asks about records all over the database. Both ways must answer alike, with and without a link to the
// record.
bool MeasureQuestions(CLinkedRecords& records, SMeasurement& out)
{
    CCorvaneMgr& manager = records.GetManager();
    // Nobody is asked in a silent run. The host stays silent: it answers the messages.
    records.GetHost().GetRunState().m_bSilent = false;
    CClock::time_point start = CClock::now();
    bool good = manager.Notify(MakeQuestionEvent(records, 1)) == 0;
    out.m_nFirstQuestionMs = MillisecondsSince(start);

    // An even step from an odd number meets records that nothing links to; a round would visit every link.
    const std::size_t step = std::max<std::size_t>(records.GetCount() / kQuestions / 2, 1) * 2;
    std::size_t asked = 0;
    start = CClock::now();
    for (std::size_t i = 1; i < records.GetCount(); i += step, ++asked)
        good = manager.Notify(MakeQuestionEvent(records, i)) == 0 && good;
    out.m_nQuestionMs = MillisecondsSince(start) / static_cast<double>(asked);

    start = CClock::now();
    good = AskAll(manager, MakeQuestionEvent(records, 1)) == 0 && good;
    out.m_nRoundMs = MillisecondsSince(start);
    return good && manager.Notify(MakeQuestionEvent(records, 0)) != 0 &&
           AskAll(manager, MakeQuestionEvent(records, 0)) != 0;
}

// Inserts all into one category, where each has to find a name of its own; deletes records all over the
// database that nothing links to. Both give restore points, as a user's commands do.
bool MeasureOperations(CLinkedRecords& records, SMeasurement& out)
{
    CCorvaneMgr& manager = records.GetManager();
    CUndoScope scope(records.GetHost().GetUndo());
    bool good = scope.IsOpen();
    CClock::time_point start = CClock::now();
    for (std::size_t i = 0; i < kQuestions; ++i)
        good = manager.InsertRecord(records.GetRecord(0).GetCategory()) != nullptr && good;
    out.m_nInsertMs = MillisecondsSince(start) / static_cast<double>(kQuestions);

    const std::size_t step = std::max<std::size_t>(records.GetCount() / kQuestions / 2, 1) * 2;
    std::size_t deleted = 0;
    start = CClock::now();
    for (std::size_t i = 1; i < records.GetCount(); i += step, ++deleted)
        good = manager.DeleteRecord(records.GetRecord(i), true) && good;
    out.m_nDeleteMs = MillisecondsSince(start) / static_cast<double>(deleted);
    scope.Accept(u"");
    return good;
}
} // namespace

bool MeasureLinks(const std::filesystem::path& directory, std::size_t records, SMeasurement& out)
{
    try
    {
        {
            CLinkedRecords texts(directory, "Text", records);
            out.m_nTextPassMs = texts.MeasurePass();
        }
        {
            CLinkedRecords links(directory, "RecordLink", records, EReach::Neighbourhood);
            out.m_nNearLinkPassMs = links.MeasurePass();
        }
        CLinkedRecords links(directory, "RecordLink", records);
        out.m_nLinkPassMs = links.MeasurePass();
        return out.m_nTextPassMs > 0 && out.m_nNearLinkPassMs > 0 && out.m_nLinkPassMs > 0 &&
               MeasureQuestions(links, out) && MeasureOperations(links, out);
    }
    catch (const std::exception& failure)
    {
        std::fprintf(stderr, "%s\n", failure.what());
        return false;
    }
}
