#include "CreatorLibrary.h"

namespace
{
class Creator : public testing::Test
{
protected:
    Creator()
    {
        m_hDatabase = m_Creator.CreateDatabase();
        m_hCategory = m_Creator.CreateCategory(m_hDatabase, "World/Units", "Unit");
        m_hRecord = m_Creator.CreateRecord(m_hCategory, "Orc");
    }
    ~Creator() override { m_Creator.ReleaseDatabase(m_hDatabase); }

    CreatorHandle Add(const char* name, EDatabaseValueType type, std::int32_t count = 1,
                      EDatabaseValueKind kind = DBKIND_PLAIN)
    {
        const CreatorHandle attribute = m_Creator.CreateAttribute(m_hRecord, name, type, kind, count);
        EXPECT_NE(attribute, 0U) << name;
        return attribute;
    }

    IDatabaseCreatorMgr& m_Creator = LoadCreator();
    CreatorHandle m_hDatabase = 0;
    CreatorHandle m_hCategory = 0;
    CreatorHandle m_hRecord = 0;
};
} // namespace

TEST_F(Creator, KeepsEveryTypeWithOneValueAndWithSeveral)
{
    const CreatorHandle friendRecord = m_Creator.CreateRecord(m_hCategory, "Goblin");
    for (const std::int32_t count : {1, 3})
    {
        const std::string tail = std::to_string(count);
        const std::int32_t last = count - 1;
        const float parts[] = {1.5F, -2.0F, 0.25F, 8.0F};
        m_Creator.SetBoolean(Add(("B" + tail).c_str(), DBVALUE_BOOLEAN, count), last, true);
        m_Creator.SetFloat(Add(("F" + tail).c_str(), DBVALUE_FLOAT, count), last, 0.1F);
        m_Creator.SetInteger(Add(("I" + tail).c_str(), DBVALUE_INTEGER, count), last, -7);
        m_Creator.SetText(Add(("T" + tail).c_str(), DBVALUE_TEXT, count, DBKIND_FILE), last, "a/\xC3\xBC");
        m_Creator.SetWideText(Add(("W" + tail).c_str(), DBVALUE_WIDETEXT, count, DBKIND_EFFECT), last,
                              u"\xD800z");
        m_Creator.SetVector2(Add(("V2" + tail).c_str(), DBVALUE_VECTOR2, count), last, parts);
        m_Creator.SetVector3(Add(("V3" + tail).c_str(), DBVALUE_VECTOR3, count), last, parts);
        m_Creator.SetVector4(Add(("V4" + tail).c_str(), DBVALUE_VECTOR4, count), last, parts);
        m_Creator.SetRecordLink(Add(("L" + tail).c_str(), DBVALUE_RECORDLINK, count), last, friendRecord);
    }
    const CSavedDatabase saved(m_Creator, m_hDatabase);
    const CGameRecord orc = saved->FindRecord("World/Units/Orc");
    ASSERT_TRUE(orc);
    EXPECT_EQ(orc.GetSchemaName(), "Unit");
    EXPECT_EQ(orc.GetAttributeCount(), 18U);
    for (const std::size_t count : {std::size_t{1}, std::size_t{3}})
    {
        const auto find = [&](const char* name) { return orc.FindAttribute(name + std::to_string(count)); };
        const std::size_t last = count - 1;
        EXPECT_EQ(find("B").GetCount(), count);
        EXPECT_TRUE(find("B").GetBoolean(last));
        EXPECT_EQ(find("F").GetFloat(last), 0.1F);
        EXPECT_EQ(find("I").GetInteger(last), -7);
        EXPECT_EQ(find("T").GetText(last), "a/\xC3\xBC");
        EXPECT_EQ(find("T").GetKind(), DBKIND_FILE);
        EXPECT_EQ(find("W").GetWideText(last), u"\xD800z");
        EXPECT_EQ(find("W").GetKind(), DBKIND_EFFECT);
        EXPECT_EQ(find("V2").GetVector2(last), (std::array{1.5F, -2.0F}));
        EXPECT_EQ(find("V3").GetVector3(last), (std::array{1.5F, -2.0F, 0.25F}));
        EXPECT_EQ(find("V4").GetVector4(last), (std::array{1.5F, -2.0F, 0.25F, 8.0F}));
        EXPECT_EQ(find("L").GetRecordLink(last).GetPath(), "World/Units/Goblin");
        // Past the end and of another type: nothing.
        EXPECT_EQ(find("I").GetInteger(count), 0);
        EXPECT_EQ(find("T").GetText(count), "");
        EXPECT_EQ(find("V3").GetVector3(count), (std::array<float, 3>{}));
        EXPECT_EQ(find("I").GetFloat(last), 0.0F);
        EXPECT_EQ(find("V4").GetVector2(last), (std::array<float, 2>{}));
        EXPECT_FALSE(find("L").GetRow(0));
    }
    EXPECT_FALSE(orc.FindAttribute("B3").GetBoolean(1));
    EXPECT_EQ(orc.FindAttribute("W3").GetWideText(1), u"");
    EXPECT_FALSE(orc.FindAttribute("L3").GetRecordLink(0));
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

TEST_F(Creator, KeepsDuplicatesAndFindsTheFirst)
{
    m_Creator.SetInteger(Add("Twice", DBVALUE_INTEGER), 0, 1);
    m_Creator.SetInteger(Add("Twice", DBVALUE_INTEGER), 0, 2);
    const CreatorHandle sameCategory = m_Creator.CreateCategory(m_hDatabase, "World/Units", "Other");
    EXPECT_NE(m_Creator.CreateRecord(sameCategory, "Orc"), 0U);
    const CSavedDatabase saved(m_Creator, m_hDatabase);
    ASSERT_EQ(saved->GetRecordCount(), 2U);
    EXPECT_EQ(saved->FindRecord("World/Units/Orc"), saved->GetRecord(0));
    EXPECT_EQ(saved->GetRecord(0).FindAttribute("Twice").GetInteger(), 1);
    EXPECT_EQ(saved->GetRecord(0).GetAttribute(1).GetInteger(), 2);
    EXPECT_EQ(saved->GetCategory(1).GetSchemaName(), "Other");
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
    const CSavedDatabase saved(m_Creator, m_hDatabase);
    EXPECT_TRUE(saved->FindRecord("World/Units/Orc"));
}
