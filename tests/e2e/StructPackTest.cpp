// Struct attributes from record files through the built program to the packed database: rows, nested rows,
// types, builds and inheritance, as a game reads them.
#include "GameAttribute.h"
#include "GameDatabase.h"
#include "GameRecord.h"
#include "ScratchDir.h"
#include "Unicode.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sys/wait.h>

namespace
{
class CStructPack : public testing::Test
{
protected:
    void Write(const std::string& file, const std::string& text) const
    {
        m_Scratch.WriteUtf16("Game/Database/" + file, ToWide(text));
    }

    // Packs for the build that the test chooses through the files and opens the result.
    CGameDatabase Pack() const
    {
        m_Scratch.WriteBytes("Game/Game.proj00",
                             "[Project Binaries]\nGameDatabase=" + std::string(CREATOR_LIBRARY) + "\n");
        Write("Root.Gamdb00s", "[General]\nVersion=1\nName=Bags\nBuild=Bags.Gamdb00p\n"
                               "Database={7C1D5B0E-3A94-4E27-9D5F-64B8A2F0C955}\n");
        const std::string root = (m_Scratch.GetPath() / "Game/Database/").string();
        const std::string command =
            "'" CORVANE_PROGRAM "' -pack -silent '" + root + "Root.Gamdb00s' >/dev/null 2>&1 </dev/null";
        const int status = std::system(command.c_str());
        EXPECT_EQ(WIFEXITED(status) ? WEXITSTATUS(status) : -1, 0);
        std::string error;
        std::optional<CGameDatabase> database = CGameDatabase::Open(root + "Bags.Gamdb00p", error);
        EXPECT_TRUE(database) << error;
        return std::move(database).value();
    }

    CScratchDir m_Scratch;
};
} // namespace

TEST_F(CStructPack, RowsComeBackWithTheirTypesAndValues)
{
    Write("Schemas/Slot.struct",
          "[Attrib.Place.0]\nType=Vector2\n[Attrib.Owner.0]\nType=RecordLink\nData=Bag\n");
    Write("Schemas/Item.struct", "[Attrib.Name.10]\nType=Text\n[Attrib.Name.0]\nType=Text\nDefault=none\n["
                                 "Attrib.Weight.0]\nType=Float\n"
                                 "[Attrib.Counts.0]\nType=Integer\nValues=-1\n[Attrib.Slots.0]\nType="
                                 "Struct\nData=Slot.struct\nValues=2\n"
                                 "[Attrib.Gone.0]\nType=Text\nDeleted=True\n");
    Write("Schemas/Bag.schema",
          "[Schema]\nName=Bag\n[Attrib.Items.0]\nType=Struct\nData=Item.struct\nValues=-1\n"
          "[Attrib.Size.0]\nType=Integer\nDefault=3\n");
    Write("Bags/cvd.category", "[Category]\nSchema=Bag\n");
    Write("Bags/Big.record",
          "[Record]\nSchema=Bag\nName=Big\n[Attrib.Items.0]\n[Attrib.Items.0.0.Name]\nValue.0000=rope\n"
          "[Attrib.Items.0.0.Weight]\nValue.0000=1.5\n[Attrib.Items.0.0.Counts]\nValue.0000=4\nValue.0001=5\n"
          "[Attrib.Items.0.1.Slots.0]\n[Attrib.Items.0.1.Slots.0.0.Place]\nValue.0000=1.0, 2.0\n"
          "[Attrib.Items.0.1.Slots.0.0.Owner]\nValue.0000=Bags/Small\n");
    Write("Bags/Small.record", "[Record]\nSchema=Bag\nName=Small\n[Hierarchy]\nRecord=Bags/Big\n");
    const CGameDatabase database = Pack();
    for (const char* path : {"Bags/Big", "Bags/Small"})
    {
        SCOPED_TRACE(path);
        const CGameRecord record = database.FindRecord(path);
        const CGameAttribute items = record.FindAttribute("Items");
        ASSERT_EQ(items.GetType(), DBVALUE_STRUCT);
        ASSERT_EQ(items.GetCount(), 2u);
        EXPECT_EQ(record.FindAttribute("Size").GetInteger(), 3);
        std::string members;
        for (CGameAttribute member = items.GetRow(0).GetFirstMember(); member;
             member = member.GetNextMember())
            members.append(member.GetMemberName()).append(" ");
        EXPECT_EQ(members, "Name Weight Counts Slots ");
        EXPECT_EQ(record.FindAttribute("Items.0.Name").GetText(), "rope");
        EXPECT_EQ(items.GetRow(0).FindMember("Weight").GetFloat(), 1.5f);
        EXPECT_EQ(items.GetRow(0).FindMember("Counts").GetInteger(1), 5);
        EXPECT_EQ(items.GetRow(0).FindMember("Slots").GetCount(), 2u);
        EXPECT_EQ(items.GetRow(1).FindMember("Name").GetText(), "none");
        const CGameAttribute slots = items.GetRow(1).FindMember("Slots");
        ASSERT_EQ(slots.GetCount(), 1u);
        EXPECT_EQ(slots.GetRow(0).FindMember("Place").GetType(), DBVALUE_VECTOR2);
        EXPECT_EQ(slots.GetRow(0).FindMember("Place").GetVector2()[1], 2.0f);
        EXPECT_EQ(record.FindAttribute("Items.1.Slots.0.Owner").GetRecordLink(),
                  database.FindRecord("Bags/Small"));
    }
}
