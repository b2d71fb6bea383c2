// What links do when records are deleted, moved, renamed and read again; and that the index behind it answers
// as a round over all links does.
#include "CorvaneMgr.h"
#include "CorvaneTypeMgr.h"
#include "TestDatabase.h"
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

// Records Store/A to Store/D of one schema; D lies in the virtual category "Deep". Each has the links Many
// (any count) and Pair (two values).
class CReactionTest : public testing::Test
{
protected:
    CReactionTest()
    {
        m_Test.AddSchema("Thing", "[Attrib.Many.0]\nType=RecordLink\nValues=-1\nData=Thing\n\n"
                                  "[Attrib.Pair.0]\nType=RecordLink\nValues=2\nData=Thing\n");
        m_Test.AddCategory("Store", "Thing");
        for (const char* name : {"A", "B", "C"})
            m_Test.AddRecord(std::string("Store/") + name, "Thing");
        m_Test.AddRecord("Store/D", "Thing", {}, "VirtualRelativeCategory=Deep\n");
        EXPECT_TRUE(m_Test.Open());
    }

    CCorvaneType& Link(std::string_view record, std::string_view name)
    {
        return m_Test.Attrib(std::string("Store/") + std::string(record), name);
    }
    CCorvaneRecord& Get(std::string_view record)
    {
        return m_Test.Record(std::string("Store/") + std::string(record));
    }
    void Set(std::string_view record, std::string_view name, std::size_t index, std::u16string_view value)
    {
        ASSERT_TRUE(Link(record, name).SetValue(index, value));
    }
    // The values as they show, separated by blanks.
    std::string Show(std::string_view record, std::string_view name)
    {
        std::string values;
        for (std::size_t i = 0; i < Link(record, name).GetValueCount(); ++i)
            values += (i ? " " : "") + ToNarrow(Link(record, name).GetValue(i));
        return values;
    }
    int Notify(ECorvaneEvent code, CCorvaneRecord& record)
    {
        return m_Test.Get().Notify(CCorvaneEvent(code, &record));
    }
    void Rename(CCorvaneRecord& record, std::u16string_view name)
    {
        CCorvaneMgr& manager = m_Test.Get();
        std::u16string before, after;
        manager.GetRecordDisplayPath(&record, before);
        ASSERT_TRUE(record.SetName(name));
        manager.GetRecordDisplayPath(&record, after);
        manager.Notify(CCorvaneEvent(ECorvaneEvent::RecordRenamed, SRecordRenamed{&record, before, after}));
    }

    CTestDatabase m_Test;
};

TEST_F(CReactionTest, ALinkedRecordRefusesToGo)
{
    struct SCase
    {
        const char16_t* m_sValue;
        const char* m_sTarget;
        bool m_bRefused;
    };
    const SCase cases[] = {{u"Store/B", "B", true},    {u"store/b", "B", true},      {u"Store/B", "C", false},
                           {u"Store/D", "D", true},    {u"Store/Deep/D", "D", true}, {u"<none>", "B", false},
                           {u"Store/Gone", "B", false}};
    for (const SCase& entry : cases)
    {
        Set("A", "Pair", 1, entry.m_sValue);
        for (const auto& [code, word] :
             {std::pair{ECorvaneEvent::RecordDeleting, "delete"}, {ECorvaneEvent::RecordMoving, "move"}})
        {
            m_Test.m_Questions.Clear();
            EXPECT_EQ(Notify(code, Get(entry.m_sTarget)) != 0, entry.m_bRefused) << ToNarrow(entry.m_sValue);
            EXPECT_EQ(m_Test.GetQuestion("RecordLink Dependency"),
                      entry.m_bRefused
                          ? "The record 'Store/A' contains a RecordLink attribute 'Pair' that has "
                            "a value linked to the record you are trying to " +
                                std::string(word) + "."
                          : "");
        }
    }
    // Nobody is asked where nobody can answer.
    Set("A", "Pair", 1, u"Store/B");
    m_Test.m_Questions.Clear();
    for (const std::uint32_t state : {0u, std::uint32_t{APP_RELOADING}, std::uint32_t{APP_CLOSING}})
    {
        const CStateScope scope(m_Test.m_Run, state);
        m_Test.m_Run.m_bSilent = state == 0;
        EXPECT_EQ(Notify(ECorvaneEvent::RecordDeleting, Get("B")), 0);
        EXPECT_EQ(Notify(ECorvaneEvent::RecordMoving, Get("B")), 0);
    }
    m_Test.m_Run.m_bSilent = false;
    EXPECT_EQ(m_Test.GetTitles(), "");
}

TEST_F(CReactionTest, DefaultsAndRecordsOutsideTheTreeDoNotRefuseButAreRepaired)
{
    Set("A", "Pair", 0, u"Store/B");
    CCorvaneType& fallback =
        static_cast<CCorvaneType&>(*m_Test.Schema("Thing").GetTemplate()->GetAttributeList()[1]);
    ASSERT_TRUE(fallback.SetValue(1, u"Store/B"));
    const CRef<CCorvaneRecord> removed(&Get("A"));
    m_Test.Category("Store").RemoveRecord(*removed);
    EXPECT_EQ(Notify(ECorvaneEvent::RecordDeleting, Get("B")), 0);
    m_Test.m_Undo.m_bRecording = true;
    EXPECT_EQ(Notify(ECorvaneEvent::RecordDeleted, Get("B")), 0);
    EXPECT_EQ(removed->GetAttributeList()[1]->GetValue(0), u"<none>");
    EXPECT_EQ(fallback.GetValue(1), u"<none>");
    // The repair belongs to the step that the delete is part of.
    ASSERT_EQ(m_Test.m_Undo.m_Points.size(), 2u);
    EXPECT_TRUE(m_Test.m_Undo.m_Points[1]->Undo(true));
    EXPECT_EQ(removed->GetAttributeList()[1]->GetValue(0), u"Store/B");
    m_Test.m_Undo.m_bRecording = false;
    m_Test.m_Undo.Clear();
    m_Test.Category("Store").AddRecord(*removed);
    EXPECT_NE(Notify(ECorvaneEvent::RecordDeleting, Get("B")), 0);
}

TEST_F(CReactionTest, ARenameGivesEachFormItsOwnNewText)
{
    Set("A", "Pair", 0, u"store/d");
    Set("A", "Pair", 1, u"STORE/DEEP/D");
    Set("D", "Pair", 0, u"Store/Deep/D"); // A link to the record that it lies in.
    Set("B", "Pair", 0, u"Store/C");
    Rename(Get("D"), u"E/F");
    EXPECT_EQ(Show("A", "Pair"), "Store/E/F Store/Deep/E/F");
    EXPECT_EQ(Show("B", "Pair"), "Store/C <none>");
    // A change of letter case reaches a link that inherits through its parent only.
    const CRef<CCorvaneRecord> child = Get("B").CreateReference();
    Rename(Get("C"), u"c");
    EXPECT_EQ(Show("B", "Pair"), "Store/c <none>");
    EXPECT_TRUE(child->GetAttributeList()[1]->GetInherit());
    EXPECT_EQ(child->GetAttributeList()[1]->GetValue(0), u"Store/c");
    child->Clear();
}

TEST_F(CReactionTest, RepairsOfOneRoundAreInForceWithinIt)
{
    // Links stand in the order in which their files are read.
    m_Test.Close();
    for (const char* heir : {"Store/0", "Store/Z"})
        m_Test.AddRecord(heir, "Thing", "[Hierarchy]\nRecord=Store/A\n");
    ASSERT_TRUE(m_Test.Open());
    Set("A", "Pair", 1, u"Store/B");
    EXPECT_EQ(Show("0", "Pair"), "<none> Store/B");
    EXPECT_EQ(Show("Z", "Pair"), "<none> Store/B");
    Notify(ECorvaneEvent::RecordDeleted, Get("B"));
    // The heir before the parent showed the old value and was given one of its own; the heir behind it shows
    // the repaired one.
    EXPECT_FALSE(Link("0", "Pair").GetInherit());
    EXPECT_TRUE(Link("Z", "Pair").GetInherit());
    for (const char* record : {"0", "A", "Z"})
        EXPECT_EQ(Show(record, "Pair"), "<none> <none>");
}

TEST_F(CReactionTest, ARecordThatWasReadAgainAsksForItsLostValuesOnce)
{
    Set("A", "Pair", 0, u"Store/Gone");
    Set("A", "Pair", 1, u"Store/B");
    ASSERT_TRUE(Link("A", "Many").SetValue(0, u"Lost"));
    ASSERT_TRUE(Link("A", "Many").AddValue(u"Store/Gone"));
    Set("B", "Pair", 0, u"Store/Gone");
    m_Test.m_Questions.Prepare(u"Invalid RecordLink", {EAnswer::No, EAnswer::Yes, EAnswer::No});
    Notify(ECorvaneEvent::RecordReloaded, Get("A"));
    EXPECT_EQ(m_Test.m_Questions.Count(u"Invalid RecordLink"), 3u);
    EXPECT_EQ(m_Test.m_Questions.GetQuestions()[0].m_sText,
              u"The following RecordLink value is no longer valid.  Would you like to change the value to "
              u"'<none>'?\n\nThis Record:\t\tStore/A\nThis Attribute:\t\tMany\n\nInvalid RecordLink "
              u"Value:\tLost");
    EXPECT_EQ(Show("A", "Many"), "Lost <none>");
    EXPECT_EQ(Show("A", "Pair"), "Store/Gone Store/B");
    EXPECT_EQ(Show("B", "Pair"), "Store/Gone <none>");

    m_Test.m_Questions.Clear();
    Set("A", "Pair", 0, u"STORE/GONE"); // Accepted in any letter case, by this link only.
    Notify(ECorvaneEvent::RecordReloaded, Get("A"));
    EXPECT_EQ(m_Test.GetTitles(), "");
    m_Test.m_Questions.Prepare(u"Invalid RecordLink", {EAnswer::Abort}); // What a silent run answers.
    for (int i = 0; i < 2; ++i)
        Notify(ECorvaneEvent::RecordReloaded, Get("B"));
    EXPECT_EQ(m_Test.GetTitles(), "Invalid RecordLink;Invalid RecordLink;");
    EXPECT_EQ(Show("B", "Pair"), "Store/Gone <none>");
    // A record outside the tree is nobody's business.
    const CRef<CCorvaneRecord> removed(&Get("B"));
    m_Test.Category("Store").RemoveRecord(*removed);
    Notify(ECorvaneEvent::RecordReloaded, *removed);
    EXPECT_EQ(m_Test.m_Questions.GetQuestions().size(), 2u);
    removed->Clear();
}

TEST_F(CReactionTest, ACloseRepairsNothing)
{
    Set("A", "Pair", 0, u"Store/B");
    EXPECT_NE(Notify(ECorvaneEvent::RecordDeleting, Get("B")), 0);
    const CRef<CCorvaneRecord> kept(&Get("A"));
    const CRef<CCorvaneAttrib> link(kept->GetAttributeList()[1]);
    m_Test.Get().SetDirty(false);
    EXPECT_TRUE(m_Test.Get().CloseDatabase());
    EXPECT_EQ(link->GetOwnValues().Get(0), u"Store/B");
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
                         "[Attrib.Old.5]\nType=RecordLink\nValues=2\n\n[Attrib.Old.0]\nType=RecordLink\n"
                         "Values=2\n\n[Attrib.Note.0]\nType=Text\n",
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
            Insert();
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
            Step();
        for (const CRef<CCorvaneRecord>& record : m_Records)
            Tell(*record);
        for (const CQuestion& question : m_Test.m_Questions.GetQuestions())
            m_sLog += ToNarrow(question.m_sText) + "\n";
        return m_sLog;
    }

private:
    std::size_t Pick(std::size_t count) { return m_Random() % count; }
    CCorvaneRecord& PickRecord() { return *m_Records[Pick(m_Records.size())]; }
    CCorvaneType& PickLink() { return static_cast<CCorvaneType&>(*PickRecord().GetAttributeList()[Pick(3)]); }
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
    void Place(const CRef<CCorvaneRecord>& record)
    {
        m_Records.push_back(record);
        CCorvaneCategory* category = m_Categories[Pick(m_Categories.size())];
        EXPECT_TRUE(record->SetCategory(category, true));
        EXPECT_TRUE(record->SetName(u"R" + std::u16string(1, static_cast<char16_t>(u'a' + m_nNames++ % 26))));
        category->AddRecord(*record);
    }
    void Insert() { Place(m_Test.Schema("Thing").CloneRecordFromTemplate()); }

    int Send(const CCorvaneEvent& event)
    {
        const int answer = m_bLinear ? RunLinear(m_Test.Get(), event) : m_Test.Get().Notify(event);
        m_sLog += std::to_string(static_cast<int>(event.GetCode())) + ":" + std::to_string(answer) + "\n";
        return answer;
    }
    void Tell(const CCorvaneRecord& record)
    {
        m_sLog += ToNarrow(record.GetName());
        for (const CRef<CCorvaneAttrib>& attrib : record.GetAttributeList())
        {
            m_sLog += attrib->GetInherit() ? " i" : " -";
            for (std::size_t i = 0; i < attrib->GetOwnValues().GetCount(); ++i)
                m_sLog += "," + ToNarrow(attrib->GetOwnValues().Get(i));
        }
        m_sLog += "\n";
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
        const bool there = record.GetCategory()->RemoveRecord(record);
        if (there && Pick(2) == 0)
            Send(CCorvaneEvent(ECorvaneEvent::RecordDeleted, &record));
        if (Pick(4) == 0)
            record.GetCategory()->AddRecord(record); // An undo.
    }
    void Move(CCorvaneRecord& record)
    {
        if (Send(CCorvaneEvent(ECorvaneEvent::RecordMoving, &record)) != 0)
            return;
        if (record.GetCategory()->RemoveRecord(record))
        {
            EXPECT_TRUE(record.SetCategory(m_Categories[Pick(m_Categories.size())], true));
            record.GetCategory()->AddRecord(record);
        }
    }
    void Drop(std::size_t index)
    {
        if (m_Records.size() < 4)
            return;
        m_Records[index]->GetCategory()->RemoveRecord(*m_Records[index]);
        m_Records[index]->Clear();
        m_Records.erase(m_Records.begin() + static_cast<std::ptrdiff_t>(index));
    }
    void Step()
    {
        switch (Pick(12))
        {
        case 0:
            return Insert();
        case 1:
        case 2:
            return Place(PickRecord().CreateReference());
        case 3:
            return Rename(PickRecord());
        case 4:
            return Delete(PickRecord());
        case 5:
            return Move(PickRecord());
        case 6:
            return Pick(3) == 0 ? Drop(Pick(m_Records.size())) : void();
        case 7:
            return PickLink().SetInherit(Pick(3) != 0, false);
        case 8:
            return static_cast<void>(PickLink().AddValue(PickText()));
        case 9:
            return static_cast<void>(PickLink().RemoveValue(0));
        default:
            return static_cast<void>(PickLink().SetValue(Pick(2), PickText()));
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
