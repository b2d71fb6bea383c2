#include "GameDatabase.h"
#include "GameDatabaseWriter.h"
#include "MemoryConverter.h"
#include "SmallDatabase.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace
{
CGameDatabase Reopen(CMemoryConverter& out)
{
    std::string error;
    std::optional<CGameDatabase> database = CGameDatabase::OpenMemory(out.GetBytes(), error);
    EXPECT_EQ(error, "");
    return std::move(database.value());
}
} // namespace

// The stored file is what every machine and every later version of the writer must give for these calls.
TEST(Writer, GivesTheSameBytesAsEver)
{
    std::ifstream in(GAMEDB_GOLDEN_DIR "/small.Gamdb00p", std::ios::binary);
    ASSERT_TRUE(in);
    const std::string golden{std::istreambuf_iterator<char>(in), {}};
    const std::vector<std::byte> bytes = MakeSmallDatabase();
    EXPECT_TRUE(std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size()) == golden);
}

TEST(Writer, KeepsAnEmptyDatabase)
{
    CMemoryConverter out;
    ASSERT_TRUE(CGameDatabaseWriter().Save(out));
    const CGameDatabase database = Reopen(out);
    EXPECT_EQ(database.GetCategoryCount(), 0U);
    EXPECT_EQ(database.GetRecordCount(), 0U);
    EXPECT_FALSE(database.FindRecord(""));
    EXPECT_FALSE(database.GetRecord(0).GetCategory());
}

TEST(Writer, GroupsAttributesThatCameMixed)
{
    CGameDatabaseWriter writer;
    const std::uint32_t category = writer.AddCategory("C", "S");
    const std::uint32_t records[] = {writer.AddRecord(category, "A"), writer.AddRecord(category, "B")};
    const float vector[] = {1, 2, 3, 4};
    for (int round = 0; round < 3; ++round)
    {
        for (int r = 1; r >= 0; --r)
        {
            const std::string number = std::to_string(round);
            const auto ints = writer.AddAttribute(records[r], "I" + number, DBVALUE_INTEGER, DBKIND_PLAIN, 2);
            EXPECT_TRUE(writer.SetInteger(ints, 1, round * 10 + r));
            const auto vectors =
                writer.AddAttribute(records[r], "V" + number, DBVALUE_VECTOR2, DBKIND_PLAIN, 1);
            EXPECT_TRUE(writer.SetVector(vectors, 0, DBVALUE_VECTOR2, vector + r * 2));
        }
    }
    CMemoryConverter out;
    ASSERT_TRUE(writer.Save(out));
    const CGameDatabase database = Reopen(out);
    for (std::size_t r = 0; r < 2; ++r)
    {
        const CGameRecord record = database.GetRecord(r);
        ASSERT_EQ(record.GetAttributeCount(), 6U);
        EXPECT_EQ(record.GetAttribute(4).GetName(), "I2");
        EXPECT_EQ(record.FindAttribute("I2").GetInteger(1), static_cast<int>(20 + r));
        EXPECT_EQ(record.FindAttribute("V0").GetVector2()[0], vector[r * 2]);
    }
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

TEST(Writer, TellsOfAFailingStream)
{
    const std::size_t size = MakeSmallDatabase().size();
    CGameDatabaseWriter writer;
    ASSERT_EQ(writer.AddCategory("C", ""), 0U);
    CMemoryConverter full(16);
    EXPECT_FALSE(writer.Save(full));
    CMemoryConverter roomy(size);
    EXPECT_TRUE(writer.Save(roomy));
}
