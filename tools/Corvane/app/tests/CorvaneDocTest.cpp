// The document over a real manager: what it opens, and what its views hear of the record on display.
#include "CorvaneDoc.h"
#include "DatabaseFixture.h"

#include <gtest/gtest.h>

class CCorvaneDocTest : public CDatabaseFixture
{
protected:
    CCorvaneDocTest()
    {
        WriteLocator(u"none");
        WriteRoot();
        WriteSchema("Thing", u"[Attrib.Count.0]\nType=Integer\nDefault=1\nValues=1\n");
        WriteCategory("Things", u"Thing");
        WriteRecord("Things", "One", u"Thing", u"");
        WriteRecord("Things", "Two", u"Thing", u"");
    }

    void Notify(ECorvaneEvent code, CCorvaneRecord* record)
    {
        m_pManager->Notify(CCorvaneEvent(code, record));
    }
};

TEST_F(CCorvaneDocTest, ViewsHearOfTheirRecordOnly)
{
    CCorvaneDoc document(*m_pManager);
    ASSERT_TRUE(document.OnOpenDocument(m_Scratch.Text("Db/Test.Gamdb00s")));
    ASSERT_TRUE(document.IsLoaded());
    CCorvaneRecord* one = m_pManager->FindRecord(u"Things/One", nullptr);
    CCorvaneRecord* two = m_pManager->FindRecord(u"Things/Two", nullptr);
    ASSERT_TRUE(one != nullptr && two != nullptr);
    std::string hints;
    const CObserverHandle view = document.AddView(
        [&](ERecordUpdate hint)
        {
            hints += std::to_string(static_cast<int>(hint));
            return 0;
        });

    document.SetRecord(one);
    document.SetRecord(one);
    EXPECT_EQ(one->GetDocument(), &document);
    document.SetRecord(two);
    EXPECT_EQ(one->GetDocument(), nullptr);
    EXPECT_EQ(hints, "232");

    hints.clear();
    Notify(ECorvaneEvent::AttributesChanged, one);
    EXPECT_EQ(hints, "");
    Notify(ECorvaneEvent::AttributesChanged, two);
    Notify(ECorvaneEvent::AttributesChanged, nullptr);
    EXPECT_EQ(hints, "55");
    Notify(ECorvaneEvent::RecordDeleted, one);
    EXPECT_EQ(document.GetRecord(), two);
    Notify(ECorvaneEvent::RecordDeleted, two);
    EXPECT_EQ(document.GetRecord(), nullptr);
    EXPECT_EQ(two->GetDocument(), nullptr);
    EXPECT_EQ(hints, "553");

    // The close of the database empties its records; the document lets go of the one that it shows.
    document.SetRecord(one);
    EXPECT_TRUE(m_pManager->CloseDatabase());
    EXPECT_EQ(document.GetRecord(), nullptr);
    EXPECT_EQ(hints, "55323");
}

TEST_F(CCorvaneDocTest, AnUnreadableRootKeepsTheOpenDatabase)
{
    CCorvaneDoc document(*m_pManager);
    ASSERT_TRUE(document.OnOpenDocument(m_Scratch.Text("Db/Test.Gamdb00s")));
    EXPECT_FALSE(document.OnOpenDocument(m_Scratch.Text("Db/None.Gamdb00s")));
    EXPECT_FALSE(document.OnOpenDocument(m_Scratch.Text("Db")));
    ASSERT_EQ(m_Questions.Count(u"Open Failed"), 2U);
    EXPECT_NE(m_Questions.GetQuestions()[0].m_sText.find(m_Scratch.Text("Db/None.Gamdb00s")),
              std::u16string::npos);
    EXPECT_TRUE(m_pManager->IsOpen());
    EXPECT_NE(m_pManager->FindRecord(u"Things/One", nullptr), nullptr);

    // One that can be read and is no root takes its place, and the document knows that it did not load.
    m_Scratch.WriteUtf16("Db/Bad.Gamdb00s", u"[General]\r\nName=x\r\n");
    EXPECT_TRUE(document.OnOpenDocument(m_Scratch.Text("Db/Bad.Gamdb00s")));
    EXPECT_FALSE(document.IsLoaded());
    EXPECT_FALSE(m_pManager->IsOpen());
}

TEST_F(CCorvaneDocTest, TheUserMayKeepTheOpenDatabase)
{
    CCorvaneDoc document(*m_pManager);
    ASSERT_TRUE(document.OnOpenDocument(m_Scratch.Text("Db/Test.Gamdb00s")));
    std::uint32_t seen = 0;
    const CObserverHandle observer = m_pManager->AddObserver(
        [&](const CCorvaneEvent& event)
        {
            if (event.GetCode() == ECorvaneEvent::LoadBegin)
                seen = m_Run.GetState();
            return 0;
        });
    m_pManager->SetDirty(true);
    m_Questions.Prepare(u"Save Changes", {EAnswer::Cancel, EAnswer::No});
    EXPECT_FALSE(document.OnOpenDocument(m_Scratch.Text("Db/Test.Gamdb00s")));
    EXPECT_FALSE(m_Run.Test(APP_RELOADING | APP_SETTINGS));
    EXPECT_TRUE(m_pManager->IsDirty());
    EXPECT_TRUE(document.OnOpenDocument(m_Scratch.Text("Db/Test.Gamdb00s")));
    EXPECT_EQ(seen & 0x48U, 0x48U);
    EXPECT_FALSE(m_Run.Test(APP_RELOADING | APP_SETTINGS));
    EXPECT_FALSE(m_pManager->IsDirty());
}
