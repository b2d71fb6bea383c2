// What of links needs more than a script: the state of the run, records outside the tree, the undo list, and
// the last records of an attribute.
#include "CorvaneMgr.h"
#include "TestAttribute.h"
#include "UndoScope.h"
#include "Unicode.h"
#include "recordlink/CorvaneTypeRecordLink.h"
#include "recordlink/RecordLinkMru.h"

#include <gtest/gtest.h>

namespace
{
// Records Store/A to Store/C, each with a link of two values, and Other/A of a schema that derives from
// theirs.
class CLinkTest : public testing::Test
{
protected:
    CLinkTest()
    {
        m_Test.AddSchema("Thing", "[Attrib.Pair.0]\nType=RecordLink\nValues=2\nData=private Thing\n");
        m_Test.AddSchema("Tool", "", "Thing");
        m_Test.AddCategory("Store", "Thing");
        m_Test.AddCategory("Other", "Tool");
        for (const char* name : {"Store/A", "Store/B", "Store/C"})
            m_Test.AddRecord(name, "Thing");
        m_Test.AddRecord("Other/A", "Tool");
        EXPECT_TRUE(m_Test.Open());
    }

    CCorvaneTypeRecordLink& Link(std::string_view record)
    {
        return dynamic_cast<CCorvaneTypeRecordLink&>(m_Test.Attrib(record, "Pair"));
    }
    CCorvaneRecord& Get(std::string_view record) { return m_Test.Record(record); }
    int Notify(ECorvaneEvent code, CCorvaneRecord& record)
    {
        return m_Test.Get().Notify(CCorvaneEvent(code, &record));
    }

    CTestDatabase m_Test;
};

TEST_F(CLinkTest, NobodyIsAskedWhereNobodyCanAnswer)
{
    ASSERT_TRUE(Link("Store/A").SetValue(1, u"Store/B"));
    for (const std::uint32_t state : {0u, std::uint32_t{APP_RELOADING}, std::uint32_t{APP_CLOSING}})
    {
        const CStateScope scope(m_Test.m_Run, state);
        m_Test.m_Run.m_bSilent = state == 0;
        EXPECT_EQ(Notify(ECorvaneEvent::RecordDeleting, Get("Store/B")), 0);
        EXPECT_EQ(Notify(ECorvaneEvent::RecordMoving, Get("Store/B")), 0);
    }
    m_Test.m_Run.m_bSilent = false;
    EXPECT_EQ(m_Test.GetTitles(), "");
    // A close is no reason to repair what is still held.
    const CRef<CCorvaneRecord> kept(&Get("Store/A"));
    const CRef<CCorvaneAttrib> link(kept->GetAttributeList()[0]);
    EXPECT_TRUE(m_Test.Get().CloseDatabase());
    EXPECT_EQ(link->GetOwnValues().Get(1), u"Store/B");
}

TEST_F(CLinkTest, DefaultsAndRecordsOutsideTheTreeDoNotRefuseButAreRepaired)
{
    CCorvaneAttrib& fallback = *m_Test.Schema("Thing").GetTemplate()->GetAttributeList()[0];
    CCorvaneAttrib& link = Link("Store/C");
    ASSERT_TRUE(link.SetValue(0, u"Store/B") && link.SetValue(1, u"Gone") &&
                fallback.SetValue(1, u"Store/B"));
    const CRef<CCorvaneRecord> removed(&Get("Store/C"));
    m_Test.Category("Store").RemoveRecord(*removed);
    EXPECT_EQ(Notify(ECorvaneEvent::RecordReloaded, *removed), 0);
    EXPECT_EQ(Notify(ECorvaneEvent::RecordDeleting, Get("Store/B")), 0);
    EXPECT_EQ(m_Test.GetTitles(), "");
    {
        CUndoScope scope(m_Test.m_Undo);
        EXPECT_EQ(Notify(ECorvaneEvent::RecordDeleted, Get("Store/B")), 0);
        scope.Accept(u"");
    }
    EXPECT_EQ(ShowValues(link) + ShowValues(fallback), "<none>|Gone<none>|<none>");
    // The repair belongs to the step that the delete is part of.
    EXPECT_TRUE(m_Test.m_Undo.Undo(1));
    EXPECT_EQ(ShowValues(link) + ShowValues(fallback), "Store/B|Gone<none>|Store/B");
    m_Test.m_Undo.Clear();
    m_Test.Category("Store").AddRecord(*removed);
    EXPECT_NE(Notify(ECorvaneEvent::RecordDeleting, Get("Store/B")), 0);
}

TEST_F(CLinkTest, AValueWhoseRecordLeavesIsFound)
{
    CCorvaneTypeRecordLink& link = Link("Store/A");
    ASSERT_TRUE(link.SetValue(0, u"Store/B") && link.SetValue(1, u"Other/A"));
    m_Test.m_Gate.m_pDeletePending = &Get("Other/A");
    CCorvaneRecord& target = Get("Store/B");
    const CRef<CCorvaneCategory> category(target.GetCategory());
    ASSERT_TRUE(target.SetCategory(nullptr, true));
    CRecordingSink sink;
    EXPECT_FALSE(link.Validate(&sink));
    ASSERT_TRUE(target.SetCategory(category.Get(), true));
    const std::string invalid = "1 Invalid Record Link ";
    EXPECT_EQ(sink.m_sLines,
              invalid +
                  "0: Invalid record 'Store/B'.  The record has an invalid parent category or schema.\n" +
                  invalid + "1: Invalid record 'Other/A'\n" + invalid +
                  "1: Invalid record 'Other/A'.  The record is of an invalid schema type.\n");
}

TEST_F(CLinkTest, TheCategoriesFollowTheTree)
{
    CCorvaneMgr& manager = m_Test.Get();
    CCorvaneCategory& store = m_Test.Category("Store");
    auto& data = static_cast<CCorvaneTypeRecordLinkData&>(*Link("Store/A").GetAttribData());
    const CRef<CCorvaneSchemaAttribData> copy = data.Clone();
    const auto tell = [&]
    {
        std::string names;
        for (const CCorvaneCategory* category : data.GetCategoryList())
            names += ToNarrow(category->GetName()) + ' ';
        EXPECT_EQ(static_cast<CCorvaneTypeRecordLinkData&>(*copy).GetCategoryList().size(),
                  data.GetCategoryList().size());
        return names;
    };
    CCorvaneCategory* shelf = manager.CreateVirtualRelativeCategory(&store, u"Shelf");
    ASSERT_TRUE(shelf && manager.CreateVirtualRelativeCategory(shelf, u"Box"));
    EXPECT_EQ(tell(), "Store Shelf Box ");
    EXPECT_FALSE(data.AddCategory(shelf) || data.AddCategory(&m_Test.Category("Other")));
    // A tree goes and comes back as a whole.
    const CRef<CCorvaneCategory> held(shelf);
    ASSERT_TRUE(store.RemoveChildCategory(*shelf));
    manager.Notify(CCorvaneEvent(ECorvaneEvent::CategoryDeleted, shelf));
    EXPECT_EQ(tell(), "Store ");
    EXPECT_FALSE(data.RemoveCategory(shelf));
    store.AddChildCategory(*shelf);
    manager.Notify(CCorvaneEvent(ECorvaneEvent::CategoryAdded, shelf));
    EXPECT_EQ(tell(), "Store Shelf Box ");
    m_Test.m_nExpectedAsserts = 2;
    EXPECT_FALSE(data.AddCategory(nullptr) || data.RemoveCategory(nullptr));
}

TEST_F(CLinkTest, TheLastRecordsOfAnAttributeAreKept)
{
    const CRecordLinkMru mru(&Link("Store/A"));
    std::string lists;
    const auto tell = [&](const CRecordLinkMru& list)
    {
        for (const std::u16string& path : list.Load())
            lists += ToNarrow(path) + " ";
        lists += "\n";
    };
    for (const std::u16string_view path :
         {u"Store/A", u"store/a", u"Store/B", u"Store/C", u"Store/B", u"Store/Gone", u"Other/A"})
    {
        mru.Save(path);
        tell(mru);
    }
    EXPECT_EQ(lists, "Store/A \nstore/a \nStore/B store/a \nStore/C Store/B store/a \n"
                     "Store/B Store/C store/a \nStore/B Store/C store/a \nOther/A Store/B Store/C \n");
    EXPECT_NE(m_Test.GetPerUserFile().find("[RecordLinkMRU]\nThing@Pair_0=Other/A\nThing@Pair_1=Store/Gone\n"
                                           "Thing@Pair_2=Store/B\nThing@Pair_3=Store/C\n"),
              std::string::npos)
        << m_Test.GetPerUserFile();
    // A record of a derived schema has a list of its own; the template's record is in no category.
    lists.clear();
    tell(CRecordLinkMru(&Link("Other/A")));
    m_Test.m_nExpectedAsserts = 2;
    CRecordLinkMru(nullptr).Save(u"Store/A");
    tell(CRecordLinkMru(dynamic_cast<CCorvaneTypeRecordLink*>(
        m_Test.Schema("Thing").GetTemplate()->GetAttributeList()[0].Get())));
    EXPECT_EQ(lists, "\n\n");
    EXPECT_TRUE(m_Test.m_Asserts.Has("m_pRecordLink") && m_Test.m_Asserts.Has("pCategory"));
}
} // namespace
