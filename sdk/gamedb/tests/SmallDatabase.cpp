#include "SmallDatabase.h"

#include "GameDatabaseWriter.h"
#include "MemoryConverter.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <limits>

namespace
{
void AddUnit(CGameDatabaseWriter& writer, std::uint32_t record, std::uint32_t friendRecord)
{
    const auto add =
        [&](const char* name, EDatabaseValueType type, int count, EDatabaseValueKind kind = DBKIND_PLAIN)
    { return writer.AddAttribute(record, name, type, kind, count); };
    const float parts[] = {0.5F, -1.25F, 3.0F, 0.1F};

    EXPECT_TRUE(writer.SetBoolean(add("IsFlying", DBVALUE_BOOLEAN, 1), 0, true));
    EXPECT_TRUE(writer.SetFloat(add("Speed", DBVALUE_FLOAT, 1), 0, 0.1F));
    EXPECT_TRUE(writer.SetInteger(add("Health", DBVALUE_INTEGER, 1), 0, std::numeric_limits<int>::min()));
    EXPECT_TRUE(writer.SetText(add("Title", DBVALUE_TEXT, 1), 0,
                               "\"Great\"\tOrc\\\n\x01\xC3\xBC \xFF\xED\xA0\x80 end"));
    EXPECT_TRUE(writer.SetText(add("Model", DBVALUE_TEXT, 1, DBKIND_FILE), 0, "models/orc.mesh"));
    EXPECT_TRUE(writer.SetText(add("Trail", DBVALUE_TEXT, 1, DBKIND_EFFECT), 0, "dust"));
    EXPECT_TRUE(writer.SetWideText(add("Lore", DBVALUE_WIDETEXT, 1), 0, u"\u00E9\xD83D\xDE00 \xD800!"));
    EXPECT_TRUE(writer.SetVector(add("Range", DBVALUE_VECTOR2, 1), 0, DBVALUE_VECTOR2, parts));
    EXPECT_TRUE(writer.SetVector(add("Scale", DBVALUE_VECTOR3, 2), 1, DBVALUE_VECTOR3, parts));
    EXPECT_TRUE(writer.SetVector(add("Tint", DBVALUE_VECTOR4, 1), 0, DBVALUE_VECTOR4, parts));
    EXPECT_TRUE(writer.SetRecordLink(add("Friend", DBVALUE_RECORDLINK, 2), 1, friendRecord));
    const std::uint32_t odd = add("Odd", DBVALUE_FLOAT, 4);
    EXPECT_TRUE(writer.SetFloat(odd, 0, std::numeric_limits<float>::infinity()));
    EXPECT_TRUE(writer.SetFloat(odd, 1, -std::numeric_limits<float>::infinity()));
    EXPECT_TRUE(writer.SetFloat(odd, 2, std::numeric_limits<float>::quiet_NaN()));
    EXPECT_TRUE(writer.SetFloat(odd, 3, 1e-30F));
    EXPECT_NE(add("Notes", DBVALUE_TEXT, 0), CGameDatabaseWriter::kNone);
}

void AddDrops(CGameDatabaseWriter& writer, std::uint32_t record)
{
    const auto add = [&](const char* name, EDatabaseValueType type, int count)
    { return writer.AddAttribute(record, name, type, DBKIND_PLAIN, count); };
    EXPECT_NE(add("Drops", DBVALUE_STRUCT, 3), CGameDatabaseWriter::kNone);
    EXPECT_TRUE(writer.SetText(add("Drops.0.Item", DBVALUE_TEXT, 1), 0, "coin"));
    EXPECT_NE(add("Drops.0.Chance", DBVALUE_STRUCT, 2), CGameDatabaseWriter::kNone);
    EXPECT_TRUE(writer.SetInteger(add("Drops.0.Chance.0.Percent", DBVALUE_INTEGER, 1), 0, 10));
    EXPECT_TRUE(writer.SetInteger(add("Drops.0.Chance.1.Percent", DBVALUE_INTEGER, 1), 0, 20));
    EXPECT_TRUE(writer.SetText(add("Drops.2.Item", DBVALUE_TEXT, 1), 0, "axe"));
    // Looks like a member, but the row does not exist.
    EXPECT_TRUE(writer.SetText(add("Drops.3.Item", DBVALUE_TEXT, 1), 0, "apart"));
}
} // namespace

std::vector<std::byte> MakeSmallDatabase()
{
    CGameDatabaseWriter writer;
    EXPECT_EQ(writer.AddCategory("Units", ""), 0U);
    const std::uint32_t orcs = writer.AddCategory("Units/Orcs", "Unit");
    const std::uint32_t grunt = writer.AddRecord(orcs, "Grunt");
    const std::uint32_t chief = writer.AddRecord(orcs, "Chief");
    EXPECT_NE(writer.AddRecord(0, "Bare"), CGameDatabaseWriter::kNone);
    AddUnit(writer, grunt, chief);
    AddDrops(writer, grunt);
    AddUnit(writer, chief, CGameDatabaseWriter::kNone);
    CMemoryConverter out;
    EXPECT_TRUE(writer.Save(out));
    return out.GetBytes();
}

std::string AsText(std::span<const std::byte> bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::string ReadGolden(const char* name)
{
    std::ifstream in(std::string(GAMEDB_GOLDEN_DIR "/") + name, std::ios::binary);
    EXPECT_TRUE(in) << name;
    return {std::istreambuf_iterator<char>(in), {}};
}
