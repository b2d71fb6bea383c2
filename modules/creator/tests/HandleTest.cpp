#include "CreatorLibrary.h"

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
    for (const CreatorHandle bad :
         {CreatorHandle{0}, CreatorHandle{1}, ~CreatorHandle{0}, gone, goneCategory, goneRecord,
          goneAttribute, database + 1, database + (CreatorHandle{1} << 62)})
    {
        CMemoryConverter out;
        EXPECT_EQ(creator.CreateCategory(bad, "A", "B"), 0U);
        EXPECT_EQ(creator.CreateRecord(bad, "A"), 0U);
        EXPECT_EQ(creator.CreateAttribute(bad, "A", DBVALUE_INTEGER, DBKIND_PLAIN, 1), 0U);
        EXPECT_FALSE(creator.SaveDatabase(bad, &out));
        EXPECT_TRUE(out.GetBytes().empty());
        for (int type = DBVALUE_BOOLEAN; type < DBVALUE_RECORDLINK; ++type)
            SetNumber(creator, bad, type, 0, 1);
        creator.SetRecordLink(bad, 0, bad);
        creator.ReleaseDatabase(bad);
    }
    EXPECT_EQ(CSavedDatabase(creator, database)->GetCategoryCount(), 0U);
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
        for (const std::int32_t index : {-1, 2, 0x7FFFFFFF, -0x7FFFFFFF - 1, 0})
        {
            for (int set = DBVALUE_BOOLEAN; set < DBVALUE_RECORDLINK; ++set)
            {
                if (index != 0 || set != type)
                    SetNumber(creator, attribute, set, index, 1);
            }
            for (const CreatorHandle target : {record, foreign, category})
            {
                if (index != 0 || type != DBVALUE_RECORDLINK || target != record)
                    creator.SetRecordLink(attribute, index, target);
            }
            creator.SetText(attribute, index, nullptr);
            creator.SetWideText(attribute, index, nullptr);
            creator.SetVector2(attribute, index, nullptr);
            creator.SetVector3(attribute, index, nullptr);
            creator.SetVector4(attribute, index, nullptr);
        }
    }
    const CSavedDatabase saved(creator, database);
    EXPECT_EQ(saved->GetRecordCount(), 1U);
    const CGameRecord read = saved->GetRecord(0);
    ASSERT_EQ(read.GetAttributeCount(), 10U);
    for (std::size_t i = 0; i < 20; ++i)
    {
        EXPECT_EQ(Print(read.GetAttribute(i / 2), i % 2), kNothing) << i;
        EXPECT_FALSE(read.GetAttribute(i / 2).GetRecordLink(i % 2)) << i;
    }
    creator.ReleaseDatabase(database);
    creator.ReleaseDatabase(other);
}
