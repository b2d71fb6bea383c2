#include "GameDatabase.h"
#include "GameDatabaseWriter.h"
#include "MemoryConverter.h"
#include "SmallDatabase.h"

#include <gtest/gtest.h>

// The stored file is what every machine and every later version of the writer must give for these calls.
TEST(Writer, GivesTheSameBytesAsEver)
{
    EXPECT_TRUE(AsText(MakeSmallDatabase()) == ReadGolden("small.Gamdb00p"));
}

TEST(Writer, KeepsAnEmptyDatabase)
{
    CMemoryConverter out;
    ASSERT_TRUE(CGameDatabaseWriter().Save(out));
    std::string error;
    const std::optional<CGameDatabase> database = CGameDatabase::OpenMemory(out.GetBytes(), error);
    ASSERT_TRUE(database) << error;
    EXPECT_EQ(database->GetCategoryCount() + database->GetRecordCount(), 0U);
    EXPECT_FALSE(database->FindRecord("") || database->GetRecord(0).GetCategory());
}

// A database that outgrows its limit fails in every way that it can grow, and still saves nothing.
TEST(Writer, RefusesToSaveWhatIsTooLarge)
{
    const auto grow = [](CGameDatabaseWriter& writer, int way, int step)
    {
        const std::string name = "Name" + std::to_string(step);
        const int type = way == 3 ? DBVALUE_STRUCT : way == 4 ? DBVALUE_VECTOR4 : DBVALUE_INTEGER;
        if (way == 0)
            return writer.AddCategory(name, "") != CGameDatabaseWriter::kNone;
        if (way == 1)
            return writer.AddRecord(0, name) != CGameDatabaseWriter::kNone;
        return writer.AddAttribute(0, name, type, DBKIND_PLAIN, 100) != CGameDatabaseWriter::kNone;
    };
    for (int way = 0; way < 5; ++way)
    {
        CGameDatabaseWriter writer(20000);
        ASSERT_EQ(writer.AddCategory("C", ""), 0U);
        ASSERT_EQ(writer.AddRecord(0, "R"), 0U);
        CMemoryConverter before;
        EXPECT_TRUE(writer.Save(before));
        for (int step = 0; step < 1000 && grow(writer, way, step); ++step)
        {
        }
        CMemoryConverter out;
        EXPECT_FALSE(writer.Save(out)) << way;
        EXPECT_TRUE(out.GetBytes().empty());
    }
}
