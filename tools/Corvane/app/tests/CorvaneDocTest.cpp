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
    void Notify(ECorvaneEvent code, CCorvaneRecord* record) { Get().Notify(CCorvaneEvent(code, record)); }

    CCorvaneDoc m_Document{Get()};
};

TEST_F(CCorvaneDocTest, ViewsHearOfTheirRecordOnly)
{
    ASSERT_TRUE(m_Document.IsLoaded());
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
    EXPECT_EQ(hints, "232");

    hints.clear();
    Notify(ECorvaneEvent::AttributesChanged, one);
    EXPECT_EQ(hints, "");
    Notify(ECorvaneEvent::AttributesChanged, two);
    Notify(ECorvaneEvent::AttributesChanged, nullptr);
    EXPECT_EQ(hints, "55");
    Notify(ECorvaneEvent::RecordDeleted, one);
    EXPECT_EQ(m_Document.GetRecord(), two);
    Notify(ECorvaneEvent::RecordDeleted, two);
    EXPECT_EQ(m_Document.GetRecord(), nullptr);
    EXPECT_EQ(two->GetDocument(), nullptr);
    EXPECT_EQ(hints, "553");

    // The close of the database empties its records; the document lets go of the one that it shows.
    m_Document.SetRecord(one);
    EXPECT_TRUE(Get().CloseDatabase());
    EXPECT_EQ(m_Document.GetRecord(), nullptr);
    EXPECT_EQ(hints, "55323");
}

TEST_F(CCorvaneDocTest, AnUnreadableRootKeepsTheOpenDatabase)
{
    EXPECT_FALSE(Load("None.Gamdb00s"));
    EXPECT_FALSE(Load("Things"));
    ASSERT_EQ(m_Questions.Count(u"Open Failed"), 2U);
    EXPECT_NE(m_Questions.GetQuestions()[0].m_sText.find(GetText("None.Gamdb00s")), std::u16string::npos);
    EXPECT_TRUE(Get().IsOpen());
    EXPECT_NE(Get().FindRecord(u"Things/One", nullptr), nullptr);

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
