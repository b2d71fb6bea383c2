#include "CreatorLibrary.h"

namespace
{
const float kParts[4] = {1, 2, 3, 4};

// Every call that takes a handle, with one that is wrong for it.
void CallAll(IDatabaseCreatorMgr& creator, CreatorHandle handle)
{
    CMemoryConverter out;
    EXPECT_EQ(creator.CreateCategory(handle, "A", "B"), 0U);
    EXPECT_EQ(creator.CreateRecord(handle, "A"), 0U);
    EXPECT_EQ(creator.CreateAttribute(handle, "A", DBVALUE_INTEGER, DBKIND_PLAIN, 1), 0U);
    EXPECT_FALSE(creator.SaveDatabase(handle, &out));
    EXPECT_TRUE(out.GetBytes().empty());
    creator.SetInteger(handle, 0, 1);
    creator.SetFloat(handle, 0, 1.0F);
    creator.SetText(handle, 0, "x");
    creator.SetWideText(handle, 0, u"x");
    creator.SetVector2(handle, 0, kParts);
    creator.SetVector3(handle, 0, kParts);
    creator.SetVector4(handle, 0, kParts);
    creator.SetBoolean(handle, 0, true);
    creator.SetRecordLink(handle, 0, handle);
    creator.ReleaseDatabase(handle);
}
} // namespace

TEST(CreatorHandles, BadAndStaleOnesAreRefused)
{
    IDatabaseCreatorMgr& creator = LoadCreator();
    const CreatorHandle gone = creator.CreateDatabase();
    const CreatorHandle goneCategory = creator.CreateCategory(gone, "A", "");
    const CreatorHandle goneRecord = creator.CreateRecord(goneCategory, "A");
    const CreatorHandle goneAttribute =
        creator.CreateAttribute(goneRecord, "A", DBVALUE_INTEGER, DBKIND_PLAIN, 1);
    creator.ReleaseDatabase(gone);
    const CreatorHandle database = creator.CreateDatabase();
    ASSERT_NE(database, 0U);
    for (const CreatorHandle bad :
         {CreatorHandle{0}, CreatorHandle{1}, ~CreatorHandle{0}, gone, goneCategory, goneRecord,
          goneAttribute, database + 1, database + (CreatorHandle{1} << 62)})
        CallAll(creator, bad);
    const CSavedDatabase saved(creator, database);
    EXPECT_EQ(saved->GetCategoryCount(), 0U);
    creator.ReleaseDatabase(database);
}

TEST(CreatorHandles, BadArgumentsAreRefusedAndChangeNothing)
{
    IDatabaseCreatorMgr& creator = LoadCreator();
    const CreatorHandle database = creator.CreateDatabase();
    const CreatorHandle other = creator.CreateDatabase();
    const CreatorHandle category = creator.CreateCategory(database, "A", "");
    const CreatorHandle record = creator.CreateRecord(category, "R");
    const CreatorHandle foreign = creator.CreateRecord(creator.CreateCategory(other, "A", ""), "R");
    EXPECT_EQ(creator.CreateCategory(database, nullptr, ""), 0U);
    EXPECT_EQ(creator.CreateCategory(database, "A", nullptr), 0U);
    EXPECT_EQ(creator.CreateRecord(category, nullptr), 0U);
    EXPECT_EQ(creator.CreateAttribute(record, nullptr, DBVALUE_INTEGER, DBKIND_PLAIN, 1), 0U);
    const std::int32_t shapes[][3] = {
        {0, 0, 1}, {11, 0, 1}, {-1, 0, 1},        {DBVALUE_TEXT, 3, 1}, {4, -1, 1},
        {3, 1, 1}, {3, 0, -1}, {3, 0, 0x1000000}, {8, 0, 0x7FFFFFFF},   {10, 0, -0x7FFFFFFF}};
    for (const auto& [type, kind, count] : shapes)
        EXPECT_EQ(creator.CreateAttribute(record, "X", type, kind, count), 0U)
            << type << ' ' << kind << ' ' << count;

    // Each setter on an attribute of each type, past the ends and with the wrong type.
    for (std::int32_t type = DBVALUE_BOOLEAN; type <= DBVALUE_STRUCT; ++type)
    {
        const CreatorHandle attribute = creator.CreateAttribute(record, "X", type, DBKIND_PLAIN, 2);
        ASSERT_NE(attribute, 0U);
        for (const std::int32_t index : {-1, 2, 0x7FFFFFFF, -0x7FFFFFFF - 1, 0})
        {
            // A number that fits cannot be wrong, so what it sets is what stands there already.
            const auto isOther = [&](EDatabaseValueType own) { return index != 0 || own != type; };
            creator.SetInteger(attribute, index, isOther(DBVALUE_INTEGER) ? 1 : 0);
            creator.SetFloat(attribute, index, isOther(DBVALUE_FLOAT) ? 1.0F : 0.0F);
            creator.SetBoolean(attribute, index, isOther(DBVALUE_BOOLEAN));
            creator.SetText(attribute, index, isOther(DBVALUE_TEXT) ? "x" : nullptr);
            creator.SetWideText(attribute, index, isOther(DBVALUE_WIDETEXT) ? u"x" : nullptr);
            creator.SetVector2(attribute, index, isOther(DBVALUE_VECTOR2) ? kParts : nullptr);
            creator.SetVector3(attribute, index, isOther(DBVALUE_VECTOR3) ? kParts : nullptr);
            creator.SetVector4(attribute, index, isOther(DBVALUE_VECTOR4) ? kParts : nullptr);
            creator.SetRecordLink(attribute, index, isOther(DBVALUE_RECORDLINK) ? record : foreign);
            creator.SetRecordLink(attribute, index, isOther(DBVALUE_RECORDLINK) ? record : category);
        }
    }
    const CSavedDatabase saved(creator, database);
    EXPECT_EQ(saved->GetRecordCount(), 1U);
    const CGameRecord read = saved->GetRecord(0);
    ASSERT_EQ(read.GetAttributeCount(), 10U);
    for (std::size_t i = 0; i < 10; ++i)
    {
        const CGameAttribute a = read.GetAttribute(i);
        EXPECT_FALSE(a.GetBoolean() || a.GetInteger() != 0 || a.GetFloat() != 0.0F || a.GetRecordLink());
        EXPECT_TRUE(a.GetText().empty() && a.GetWideText().empty());
        EXPECT_EQ(a.GetVector2(), (std::array<float, 2>{}));
        EXPECT_EQ(a.GetVector3(), (std::array<float, 3>{}));
        EXPECT_EQ(a.GetVector4(), (std::array<float, 4>{}));
    }
    creator.ReleaseDatabase(database);
    creator.ReleaseDatabase(other);
}
