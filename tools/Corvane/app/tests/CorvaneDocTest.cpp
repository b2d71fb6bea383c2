// The document over a real manager: what it opens, and what its views hear of the record on display.
#include "CorvaneDoc.h"
#include "TestDatabase.h"

#include <gtest/gtest.h>

class CCorvaneDocTest : public testing::Test, protected CTestDatabase
{
protected:
    void SetUp() override
    {
        AddSchema("Thing", "[Attrib.Count.0]\nType=Integer\nDefault=1\n");
        AddCategory("Things", "Thing");
        AddRecord("Things/One", "Thing");
        AddRecord("Things/Two", "Thing");
        ASSERT_TRUE(Load("Root.Gamdb00s"));
    }
    bool Load(std::string_view root) { return m_Document.OnOpenDocument(GetText(root)); }

    CCorvaneDoc m_Document{Get()};
};

TEST_F(CCorvaneDocTest, ViewsHearOfTheirRecordOnly)
{
    CCorvaneRecord* one = &Record("Things/One");
    CCorvaneRecord* two = &Record("Things/Two");
    std::string hints;
    const CObserverHandle view = m_Document.AddView(
        [&](ERecordUpdate hint) { return hints += std::to_string(static_cast<int>(hint)), 0; });
    m_Document.SetRecord(one);
    m_Document.SetRecord(one);
    EXPECT_EQ(one->GetDocument(), &m_Document);
    m_Document.SetRecord(two);
    EXPECT_EQ(one->GetDocument(), nullptr);
    for (const auto& [code, record] : {std::pair(ECorvaneEvent::AttributesChanged, one),
                                       {ECorvaneEvent::AttributesChanged, two},
                                       {ECorvaneEvent::AttributesChanged, nullptr},
                                       {ECorvaneEvent::RecordDeleted, one}})
        Get().Notify(CCorvaneEvent(code, record));
    EXPECT_EQ(m_Document.GetRecord(), two);
    Get().Notify(CCorvaneEvent(ECorvaneEvent::RecordDeleted, two));
    EXPECT_EQ(m_Document.GetRecord(), nullptr);
    EXPECT_EQ(two->GetDocument(), nullptr);
    EXPECT_EQ(hints, "232553");

    // The close of the database empties its records; the document lets go of the one that it shows.
    m_Document.SetRecord(one);
    EXPECT_TRUE(Get().CloseDatabase());
    EXPECT_EQ(m_Document.GetRecord(), nullptr);
    EXPECT_EQ(hints, "23255323");
}

TEST_F(CCorvaneDocTest, AnUnreadableRootKeepsTheOpenDatabase)
{
    EXPECT_FALSE(Load("None.Gamdb00s"));
    EXPECT_FALSE(Load("Things"));
    EXPECT_EQ(GetTitles(), "Open Failed;Open Failed;");
    EXPECT_EQ(GetRecordList(), "Things/One Things/Two ");

    // One that can be read and is no root takes its place, and the document knows that it did not load.
    Write("Bad.Gamdb00s", "[General]\nName=x\n");
    EXPECT_TRUE(Load("Bad.Gamdb00s"));
    EXPECT_FALSE(m_Document.IsLoaded());
    EXPECT_FALSE(Get().IsOpen());
}

TEST_F(CCorvaneDocTest, TheUserMayKeepTheOpenDatabase)
{
    std::uint32_t seen = 0;
    const CObserverHandle observer = Get().AddObserver(
        [&](const CCorvaneEvent& event)
        { return seen = event.GetCode() == ECorvaneEvent::LoadBegin ? m_Run.GetState() : seen, 0; });
    Get().SetDirty(true);
    m_Questions.Prepare(u"Save Changes", {EAnswer::Cancel, EAnswer::No});
    EXPECT_FALSE(Load("Root.Gamdb00s"));
    EXPECT_FALSE(m_Run.Test(APP_RELOADING | APP_SETTINGS));
    EXPECT_TRUE(Get().IsDirty());
    EXPECT_TRUE(Load("Root.Gamdb00s"));
    EXPECT_EQ(seen & 0x48U, 0x48U);
    EXPECT_FALSE(m_Run.Test(APP_RELOADING | APP_SETTINGS));
    EXPECT_FALSE(Get().IsDirty());
}
