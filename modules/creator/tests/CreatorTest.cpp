#include "CreatorLibrary.h"

namespace
{
class Creator : public testing::Test
{
protected:
    ~Creator() override { m_Creator.ReleaseDatabase(m_hDatabase); }

    CreatorHandle Add(const char* name, EDatabaseValueType type, std::int32_t count = 1,
                      EDatabaseValueKind kind = DBKIND_PLAIN)
    {
        const CreatorHandle attribute = m_Creator.CreateAttribute(m_hRecord, name, type, kind, count);
        EXPECT_NE(attribute, 0U) << name;
        return attribute;
    }

    IDatabaseCreatorMgr& m_Creator = LoadCreator();
    CreatorHandle m_hDatabase = m_Creator.CreateDatabase();
    CreatorHandle m_hRecord =
        m_Creator.CreateRecord(m_Creator.CreateCategory(m_hDatabase, "World/Units", "Unit"), "Orc");
};
} // namespace

TEST_F(Creator, KeepsKindsAndTexts)
{
    m_Creator.SetInteger(Add("I", DBVALUE_INTEGER), 0, -7);
    m_Creator.SetText(Add("T", DBVALUE_TEXT, 1, DBKIND_FILE), 0, "a/\xC3\xBC");
    m_Creator.SetWideText(Add("W", DBVALUE_WIDETEXT, 1, DBKIND_EFFECT), 0, u"\xD800z");
    const CSavedDatabase saved(m_Creator, m_hDatabase);
    const CGameRecord orc = saved->FindRecord("World/Units/Orc");
    EXPECT_EQ(orc.FindAttribute("I").GetInteger(), -7);
    EXPECT_EQ(orc.FindAttribute("T").GetText(), "a/\xC3\xBC");
    EXPECT_EQ(orc.FindAttribute("T").GetKind(), DBKIND_FILE);
    EXPECT_EQ(orc.FindAttribute("W").GetWideText(), u"\xD800z");
    EXPECT_EQ(orc.FindAttribute("W").GetKind(), DBKIND_EFFECT);
}

TEST_F(Creator, NestsStructsByTheNamesOfTheirMembers)
{
    Add("Drops", DBVALUE_STRUCT, 12);
    m_Creator.SetInteger(Add("Drops.0.Count", DBVALUE_INTEGER), 0, 5);
    Add("Drops.0.Sub", DBVALUE_STRUCT, 2);
    m_Creator.SetText(Add("Drops.0.Sub.1.X", DBVALUE_TEXT), 0, "deep");
    m_Creator.SetText(Add("Drops.0.Last", DBVALUE_TEXT), 0, "end");
    m_Creator.SetInteger(Add("Drops.11.Count", DBVALUE_INTEGER), 0, 11);
    // A row too many, a number not as written, two structs that are none.
    for (const char* name : {"Drops.12.Count", "Drops.00.Count", "Drops.0.Count.0.X", "Nothing.0.Count"})
        Add(name, DBVALUE_INTEGER);

    const CSavedDatabase saved(m_Creator, m_hDatabase);
    const CGameRecord orc = saved->FindRecord("World/Units/Orc");
    const CGameAttribute drops = orc.FindAttribute("Drops");
    std::string names;
    for (CGameAttribute member = drops.GetRow(0).GetFirstMember(); member; member = member.GetNextMember())
        names += std::string(member.GetMemberName()) + ' ';
    // "Count.0.X" asks for a row of a Count that is no struct, so it counts as a member of Drops itself.
    EXPECT_EQ(names, "Count Sub Last Count.0.X ");
    EXPECT_FALSE(drops.GetRow(1).GetFirstMember());
    EXPECT_EQ(drops.GetRow(11).FindMember("Count").GetInteger(), 11);
    EXPECT_FALSE(drops.GetRow(12));
    const CGameAttribute deep = drops.GetRow(0).FindMember("Sub").GetRow(1).FindMember("X");
    EXPECT_EQ(deep.GetText(), "deep");
    EXPECT_EQ(deep, orc.FindAttribute("Drops.0.Sub.1.X"));
    EXPECT_FALSE(drops.GetRow(0).FindMember("Sub.1.X"));
    for (const char* name : {"Drops.12.Count", "Drops.00.Count", "Nothing.0.Count"})
        EXPECT_FALSE(orc.FindAttribute(name).IsMember()) << name;
}

TEST_F(Creator, TellsOfAFailingStream)
{
    CMemoryConverter full(100);
    EXPECT_FALSE(m_Creator.SaveDatabase(m_hDatabase, &full));
    EXPECT_FALSE(m_Creator.SaveDatabase(m_hDatabase, nullptr));
    class CThrowingConverter : public CMemoryConverter
    {
        bool Write(const void*, std::size_t) override { throw std::runtime_error("no network"); }
    } throwing;
    EXPECT_FALSE(m_Creator.SaveDatabase(m_hDatabase, &throwing));
    // A failed save leaves the database as it was.
    EXPECT_TRUE(CSavedDatabase(m_Creator, m_hDatabase)->FindRecord("World/Units/Orc"));
}
