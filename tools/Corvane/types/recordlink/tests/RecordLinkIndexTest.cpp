// The index behind the reactions of links answers as a round over all links does.
#include "CorvaneMgr.h"
#include "TestAttribute.h"
#include "Unicode.h"
#include "recordlink/CorvaneTypeRecordLink.h"
#include "recordlink/RecordLinkList.h"

#include <gtest/gtest.h>
#include <random>

namespace
{
// The round over all links, one after the other.
int RunLinear(CCorvaneMgr& manager, const CCorvaneEvent& event)
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

// A life of records and links from one seed, with the events of a few operations. Returns what happened and
// what the links hold in the end.
class CRandomLife
{
public:
    CRandomLife(unsigned seed, bool linear) : m_Random(seed), m_bLinear(linear)
    {
        m_Test.AddSchema("Base", "[Attrib.Many.0]\nType=RecordLink\nValues=-1\n");
        m_Test.AddSchema("Thing",
                         "[Attrib.Old.5]\nType=RecordLink\nValues=2\n\n"
                         "[Attrib.Old.0]\nType=RecordLink\nValues=2\n\n[Attrib.Note.0]\nType=Text\n",
                         "Base");
        m_Test.AddCategory("Store", "Thing");
        m_Test.AddCategory("Store/Shop", "Thing");
        EXPECT_TRUE(m_Test.Open());
        // As a deferred entry leaves them: two builds of one identity.
        const auto list = m_Test.Schema("Thing").GetTemplate()->GetAttributeList();
        list[2]->AdoptIdentity(*list[1]);
        m_Categories = {&m_Test.Category("Store"), &m_Test.Category("Store/Shop")};
        m_Categories.push_back(m_Test.Get().CreateVirtualRelativeCategory(m_Categories[0], u"Deep"));
        m_Categories.push_back(m_Test.Get().CreateVirtualRelativeCategory(m_Categories[2], u"Low"));
        for (int i = 0; i < 5; ++i)
            Place(m_Test.Schema("Thing").CloneRecordFromTemplate());
    }
    ~CRandomLife()
    {
        for (const CRef<CCorvaneRecord>& record : m_Records)
            record->Clear();
        m_Test.Get().SetDirty(false);
    }

    std::string Run()
    {
        for (int step = 0; step < 250; ++step)
            Step(PickRecord());
        for (const CRef<CCorvaneRecord>& record : m_Records)
        {
            m_sLog += ToNarrow(record->GetName());
            for (const CRef<CCorvaneAttrib>& attrib : record->GetAttributeList())
            {
                m_sLog += attrib->GetInherit() ? " i" : " -";
                for (std::size_t i = 0; i < attrib->GetOwnValues().GetCount(); ++i)
                    m_sLog += "," + ToNarrow(attrib->GetOwnValues().Get(i));
            }
        }
        for (const CQuestion& question : m_Test.m_Questions.GetQuestions())
            m_sLog += ToNarrow(question.m_sText) + "\n";
        return m_sLog;
    }

private:
    std::size_t Pick(std::size_t count) { return m_Random() % count; }
    CCorvaneRecord& PickRecord() { return *m_Records[Pick(m_Records.size())]; }
    CCorvaneCategory* PickCategory() { return m_Categories[Pick(m_Categories.size())]; }
    std::u16string PickText()
    {
        static const std::u16string others[] = {u"<none>", u"", u"Store/Gone"};
        if (Pick(6) == 0)
            return others[Pick(3)];
        std::u16string path;
        if (Pick(2) == 0)
            m_Test.Get().GetRecordPath(&PickRecord(), path);
        else
            m_Test.Get().GetRecordDisplayPath(&PickRecord(), path);
        if (Pick(4) == 0)
            path[0] = u's';
        return path;
    }
    int Send(const CCorvaneEvent& event)
    {
        const int answer = m_bLinear ? RunLinear(m_Test.Get(), event) : m_Test.Get().Notify(event);
        m_sLog += std::to_string(static_cast<int>(event.GetCode())) + ":" + std::to_string(answer) + "\n";
        return answer;
    }

    void Place(const CRef<CCorvaneRecord>& record)
    {
        m_Records.push_back(record);
        EXPECT_TRUE(record->SetCategory(PickCategory(), true));
        EXPECT_TRUE(record->SetName(u"R" + std::u16string(1, static_cast<char16_t>(u'a' + m_nNames++ % 26))));
        record->GetCategory()->AddRecord(*record);
    }
    void Rename(CCorvaneRecord& record)
    {
        std::u16string before, after;
        m_Test.Get().GetRecordDisplayPath(&record, before);
        EXPECT_TRUE(
            record.SetName(Pick(3) == 0 ? u"r" + record.GetName().substr(1) : record.GetName() + u"x"));
        m_Test.Get().GetRecordDisplayPath(&record, after);
        Send(CCorvaneEvent(ECorvaneEvent::RecordRenamed, SRecordRenamed{&record, before, after}));
    }
    void Delete(CCorvaneRecord& record)
    {
        Send(CCorvaneEvent(ECorvaneEvent::RecordDeleting, &record));
        if (record.GetCategory()->RemoveRecord(record) && Pick(2) == 0)
            Send(CCorvaneEvent(ECorvaneEvent::RecordDeleted, &record));
        if (Pick(4) == 0)
            record.GetCategory()->AddRecord(record); // An undo.
    }
    void Move(CCorvaneRecord& record)
    {
        const bool refused = Send(CCorvaneEvent(ECorvaneEvent::RecordMoving, &record)) != 0;
        if (refused || !record.GetCategory()->RemoveRecord(record))
            return;
        EXPECT_TRUE(record.SetCategory(PickCategory(), true));
        record.GetCategory()->AddRecord(record);
    }
    void Drop(const CRef<CCorvaneRecord> record)
    {
        if (m_Records.size() < 4 || Pick(3) != 0)
            return;
        record->GetCategory()->RemoveRecord(*record);
        record->Clear();
        std::erase(m_Records, record);
    }
    void ChangeLink(CCorvaneAttrib& link)
    {
        switch (Pick(5))
        {
        case 0:
            return link.SetInherit(Pick(3) != 0, false);
        case 1:
            return static_cast<void>(link.AddValue(PickText()));
        case 2:
            return static_cast<void>(link.RemoveValue(0));
        default:
            return static_cast<void>(link.SetValue(Pick(2), PickText()));
        }
    }
    void Step(CCorvaneRecord& record)
    {
        switch (Pick(12))
        {
        case 0:
            return Place(m_Test.Schema("Thing").CloneRecordFromTemplate());
        case 1:
        case 2:
            return Place(record.CreateReference());
        case 3:
            return Rename(record);
        case 4:
            return Delete(record);
        case 5:
            return Move(record);
        case 6:
            return Drop(CRef<CCorvaneRecord>(&record));
        default:
            return ChangeLink(*record.GetAttributeList()[Pick(3)]);
        }
    }

    std::mt19937 m_Random;
    bool m_bLinear;
    unsigned m_nNames = 0;
    CTestDatabase m_Test;
    std::vector<CCorvaneCategory*> m_Categories;
    std::vector<CRef<CCorvaneRecord>> m_Records;
    std::string m_sLog;
};

TEST(RecordLinkIndex, AnswersAsARoundOverAllLinks)
{
    std::size_t refused = 0;
    for (unsigned seed = 1; seed <= 40; ++seed)
    {
        const std::string linear = CRandomLife(seed, true).Run();
        ASSERT_EQ(CRandomLife(seed, false).Run(), linear) << "seed " << seed;
        refused += linear.find(":1\n") != std::string::npos ? 1 : 0;
    }
    EXPECT_GT(refused, 30u); // Else the lives hold too few links to tell anything.
}
} // namespace
