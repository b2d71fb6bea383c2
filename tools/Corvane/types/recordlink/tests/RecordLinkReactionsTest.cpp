// What links do when records are deleted, moved, renamed and read again.
#include "CorvaneMgr.h"
#include "TestAttribute.h"
#include "UndoScope.h"
#include "Unicode.h"

#include <gtest/gtest.h>

namespace
{
// Records Store/0, Store/A to Store/D and Store/Z of one schema; D lies in the virtual category "Deep", 0 and
// Z inherit from A. Each has the links Many (any count) and Pair (two values).
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
        for (const char* heir : {"Store/0", "Store/Z"})
            m_Test.AddRecord(heir, "Thing", "[Hierarchy]\nRecord=Store/A\n");
        EXPECT_TRUE(m_Test.Open());
    }

    CCorvaneType& Link(const std::string& record, std::string_view name = "Pair")
    {
        return m_Test.Attrib("Store/" + record, name);
    }
    CCorvaneRecord& Get(const std::string& record) { return m_Test.Record("Store/" + record); }
    std::string Show(const std::string& record, std::string_view name = "Pair")
    {
        return ShowValues(Link(record, name));
    }
    // Sets both values of the record's Pair.
    void Set(const std::string& record, std::u16string_view first, std::u16string_view second)
    {
        ASSERT_TRUE(Link(record).SetValue(0, first) && Link(record).SetValue(1, second));
    }
    int Notify(ECorvaneEvent code, CCorvaneRecord& record)
    {
        return m_Test.Get().Notify(CCorvaneEvent(code, &record));
    }
    void Rename(CCorvaneRecord& record, std::u16string_view name)
    {
        std::u16string before, after;
        m_Test.Get().GetRecordDisplayPath(&record, before);
        ASSERT_TRUE(record.SetName(name));
        m_Test.Get().GetRecordDisplayPath(&record, after);
        m_Test.Get().Notify(
            CCorvaneEvent(ECorvaneEvent::RecordRenamed, SRecordRenamed{&record, before, after}));
    }

    CTestDatabase m_Test;
};

TEST_F(CReactionTest, ALinkedRecordRefusesToGo)
{
    const std::tuple<const char16_t*, const char*, bool> rows[] = {
        {u"Store/B", "B", true}, {u"store/b", "B", true},      {u"Store/B", "C", false},
        {u"Store/D", "D", true}, {u"Store/Deep/D", "D", true}, {u"<none>", "B", false}};
    for (const auto& [value, target, refused] : rows)
    {
        Set("B", u"Store/Gone", value);
        for (const auto& [code, word] :
             {std::pair{ECorvaneEvent::RecordDeleting, "delete"}, {ECorvaneEvent::RecordMoving, "move"}})
        {
            m_Test.m_Questions.Clear();
            EXPECT_EQ(Notify(code, Get(target)) != 0, refused) << ToNarrow(value);
            const std::string text = "The record 'Store/B' contains a RecordLink attribute 'Pair' that has a "
                                     "value linked to the record you are trying to ";
            EXPECT_EQ(m_Test.GetQuestion("RecordLink Dependency"), refused ? text + word + '.' : "");
        }
    }
    // Nobody is asked where nobody can answer.
    Set("A", u"<none>", u"Store/B");
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
    Set("C", u"Store/B", u"<none>");
    CCorvaneAttrib& fallback = *m_Test.Schema("Thing").GetTemplate()->GetAttributeList()[1];
    ASSERT_TRUE(fallback.SetValue(1, u"Store/B"));
    const CRef<CCorvaneRecord> removed(&Get("C"));
    const CCorvaneAttrib& link = *removed->GetAttributeList()[1];
    m_Test.Category("Store").RemoveRecord(*removed);
    EXPECT_EQ(Notify(ECorvaneEvent::RecordDeleting, Get("B")), 0);
    {
        CUndoScope scope(m_Test.m_Undo);
        EXPECT_EQ(Notify(ECorvaneEvent::RecordDeleted, Get("B")), 0);
        scope.Accept(u"");
    }
    EXPECT_EQ(ShowValues(link) + ShowValues(fallback), "<none>|<none><none>|<none>");
    // The repair belongs to the step that the delete is part of.
    EXPECT_TRUE(m_Test.m_Undo.Undo(1));
    EXPECT_EQ(ShowValues(link) + ShowValues(fallback), "Store/B|<none><none>|Store/B");
    m_Test.m_Undo.Clear();
    m_Test.Category("Store").AddRecord(*removed);
    EXPECT_NE(Notify(ECorvaneEvent::RecordDeleting, Get("B")), 0);
}

TEST_F(CReactionTest, ARenameGivesEachFormItsOwnNewText)
{
    Set("B", u"store/d", u"STORE/DEEP/D");
    Set("D", u"Store/Deep/D", u"Store/C"); // A link to the record that it lies in.
    const CCorvaneAttrib& own = Link("D");
    Rename(Get("D"), u"E/F");
    EXPECT_EQ(Show("B"), "Store/E/F|Store/Deep/E/F");
    EXPECT_EQ(ShowValues(own), "Store/Deep/E/F|Store/C");
    // Links stand in the order in which their files are read: the heir before the parent shows the old text
    // and is given one of its own; the heir behind it shows the parent's repaired one.
    Set("A", u"Store/C", u"<none>");
    Rename(Get("C"), u"c");
    EXPECT_FALSE(Link("0").GetInherit());
    EXPECT_TRUE(Link("Z").GetInherit());
    for (const char* record : {"0", "A", "Z"})
        EXPECT_EQ(Show(record), "Store/c|<none>");
}

TEST_F(CReactionTest, ARecordThatWasReadAgainAsksForItsLostValuesOnce)
{
    Set("A", u"Store/Gone", u"Store/B");
    ASSERT_TRUE(Link("A", "Many").SetValue(0, u"Lost") && Link("A", "Many").AddValue(u"Store/Gone"));
    Set("B", u"Store/Gone", u"<none>");
    m_Test.m_Questions.Prepare(u"Invalid RecordLink", {EAnswer::No, EAnswer::Yes, EAnswer::No});
    Notify(ECorvaneEvent::RecordReloaded, Get("A"));
    EXPECT_EQ(m_Test.m_Questions.Count(u"Invalid RecordLink"), 3u);
    EXPECT_EQ(m_Test.m_Questions.GetQuestions()[0].m_sText,
              u"The following RecordLink value is no longer valid.  Would you like to change the value to "
              u"'<none>'?\n\nThis Record:\t\tStore/A\nThis Attribute:\t\tMany\n\nInvalid RecordLink "
              u"Value:\tLost");
    EXPECT_EQ(Show("A", "Many") + " " + Show("A"), "Lost|<none> Store/Gone|Store/B");

    m_Test.m_Questions.Clear();
    ASSERT_TRUE(Link("A").SetValue(0, u"STORE/GONE")); // Accepted in any letter case, by this link only.
    Notify(ECorvaneEvent::RecordReloaded, Get("A"));
    EXPECT_EQ(m_Test.GetTitles(), "");
    m_Test.m_Questions.Prepare(u"Invalid RecordLink", {EAnswer::Abort}); // What a silent run answers.
    for (int i = 0; i < 2; ++i)
        Notify(ECorvaneEvent::RecordReloaded, Get("B"));
    EXPECT_EQ(m_Test.GetTitles(), "Invalid RecordLink;Invalid RecordLink;");
    EXPECT_EQ(Show("B"), "Store/Gone|<none>");
    // A record outside the tree is nobody's business.
    const CRef<CCorvaneRecord> removed(&Get("B"));
    m_Test.Category("Store").RemoveRecord(*removed);
    Notify(ECorvaneEvent::RecordReloaded, *removed);
    EXPECT_EQ(m_Test.m_Questions.GetQuestions().size(), 2u);
    removed->Clear();
}

TEST_F(CReactionTest, ACloseRepairsNothing)
{
    Set("A", u"Store/B", u"<none>");
    EXPECT_NE(Notify(ECorvaneEvent::RecordDeleting, Get("B")), 0);
    const CRef<CCorvaneRecord> kept(&Get("A"));
    const CRef<CCorvaneAttrib> link(kept->GetAttributeList()[1]);
    m_Test.Get().SetDirty(false);
    EXPECT_TRUE(m_Test.Get().CloseDatabase());
    EXPECT_EQ(link->GetOwnValues().Get(0), u"Store/B");
}
} // namespace
