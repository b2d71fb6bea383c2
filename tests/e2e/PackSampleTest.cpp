// The sample game from its files to the packed database and back, through the built programs.
#include "GameAttribute.h"
#include "GameDatabase.h"
#include "GameRecord.h"
#include "SampleCopy.h"
#include "SampleValues.h"
#include "Unicode.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <sstream>

namespace fs = std::filesystem;

namespace
{
class CPackSample : public ::testing::Test, protected CSampleCopy
{
protected:
    int Pack(const std::string& arguments, const std::string& limits = {}) const
    {
        return RunShell(limits + "'" CORVANE_PROGRAM "' " + arguments + " '" + GetRootFile() + "'");
    }

    // What the program printed to either output.
    std::string GetOutput() const { return m_Scratch.ReadBytes("output") + m_Scratch.ReadBytes("error"); }

    CGameDatabase Open(const std::string& name) const
    {
        std::string error;
        std::optional<CGameDatabase> database = CGameDatabase::Open(PathOf(name), error);
        EXPECT_TRUE(database) << error;
        return std::move(database).value();
    }
};

// What a game sees of an attribute: its type and its values; of a struct the number of its rows. Empty when
// there is no such attribute.
std::string Describe(const CGameDatabase& database, const std::string& record, const std::string& name)
{
    const CGameAttribute attribute = database.FindRecord(record).FindAttribute(name);
    std::ostringstream text;
    switch (attribute.GetType())
    {
    case DBVALUE_STRUCT:
        text << "rows " << attribute.GetCount();
        return text.str();
    case DBVALUE_VECTOR2:
        text << "vector2";
        for (const float part : attribute.GetVector2())
            text << ' ' << part;
        return text.str();
    case DBVALUE_VECTOR3:
        return "vector3";
    case DBVALUE_VECTOR4:
        return "vector4";
    default:
        break;
    }
    for (std::size_t i = 0; i < attribute.GetCount(); ++i)
    {
        text << (i > 0 ? " | " : "");
        if (attribute.GetType() == DBVALUE_BOOLEAN)
            text << (attribute.GetBoolean(i) ? "yes" : "no");
        else if (attribute.GetType() == DBVALUE_INTEGER)
            text << attribute.GetInteger(i);
        else if (attribute.GetType() == DBVALUE_FLOAT)
            text << attribute.GetFloat(i);
        else if (attribute.GetType() == DBVALUE_TEXT)
            text << '"' << attribute.GetText(i) << '"';
        else if (attribute.GetType() == DBVALUE_WIDETEXT)
            text << "L\"" << ToNarrow(attribute.GetWideText(i)) << '"';
        else
            text << "-> " << attribute.GetRecordLink(i).GetName();
    }
    return text.str();
}
} // namespace

// Record files hold what the designer saw, inherited values too, so that every packed value has its text
// there.
TEST_F(CPackSample, PackedValuesAreThoseOfTheFilesForEachBuild)
{
    const CSampleFiles files(GetDatabase());
    ASSERT_EQ(files.GetRecords().size(), 230U);
    for (const std::uint32_t build : {0U, 7U, 10U, 20U})
    {
        SCOPED_TRACE(build);
        ASSERT_EQ(Pack("-Pack -BuildNumber " + std::to_string(build) + " -Log " + PathOf("log.txt") +
                       " -Output " + PathOf("packed")),
                  0);
        EXPECT_EQ(m_Scratch.ReadUtf16("log.txt"), u"") << "the sample has no findings";
        EXPECT_EQ(GetOutput(), "") << "the load has nothing to tell";
        const CGameDatabase database = Open("packed");
        EXPECT_EQ(database.GetRecordCount(), files.GetRecords().size());
        for (const CSampleFiles::SRecord& source : files.GetRecords())
        {
            const CGameRecord packed = database.FindRecord(source.GetPath());
            ASSERT_TRUE(packed) << source.GetPath();
            ExpectRecord(packed, files, source, build);
        }
    }
}

// What the designers deferred: attributes and struct members that come, go or change with a build.
TEST_F(CPackSample, DeferredAttributesTellTheBuildsApart)
{
    struct SRow
    {
        const char* m_szRecord;
        const char* m_szAttribute;
        std::array<const char*, 3> m_Builds; // 7, 10, 20
    };
    const SRow rows[] = {
        {"Actors/Enemies/Hollow/Frost Runner", "ArmorRating", {"0", "0", ""}},
        {"Actors/Enemies/Hollow/Frost Runner", "Resistances", {"", "", "-0.2 | 0.4 | -0.8"}},
        {"Items/Weapons/Old Revolver", "Spread", {"3", "1.5", "1.5"}},
        {"Items/Weapons/Old Revolver", "ReloadTime", {"4200", "4200", "700"}},
        {"Items/Consumables/Torch", "DisplayName", {"L\"Torch\"", "L\"Torch\"", ""}},
        {"Items/Consumables/Torch",
         "NameId",
         {"\"ITEM_TORCH_NAME\"", "\"ITEM_TORCH_NAME\"", "\"ITEM_TORCH_NAME\""}},
        {"Actors/Enemies/Hollow/Runner", "PackSize", {"2 | 5", "vector2 2 5", "vector2 2 5"}},
        {"World/Weather/Fog", "FogColor", {"vector3", "vector3", "vector4"}},
        {"World/Weather/Blizzard", "Severity", {"\"Harsh\"", "\"Deadly\"", "\"Deadly\""}},
        {"Structures/Walls/Steel Gate", "CollapseEffect", {"\"collapse_metal\"", "\"collapse_metal\"", ""}},
        {"Items/Weapons/Bolt-Action Rifle",
         "AmmoItem",
         {"-> Rifle Rounds", "-> Rifle Rounds | -> Match Rifle Rounds",
          "-> Rifle Rounds | -> Match Rifle Rounds"}},
        {"Waves/Campaign/Night 2",
         "EnemyPool",
         {"-> Shambler | -> Runner | -> Stray Dog", "rows 3", "rows 3"}},
        {"Waves/Campaign/Night 2", "EnemyPool.2.Enemy", {"", "-> Stray Dog", "-> Stray Dog"}},
        {"Structures/Walls/Gate", "BuildCost", {"14 | 16 | 0 | 2", "rows 3", "rows 3"}},
        {"Structures/Walls/Gate", "BuildCost.2.Material", {"", "-> Copper Wire", "-> Copper Wire"}},
        {"Actors/Enemies/Hollow/Frost Runner", "HitZones.0.Severs", {"", "yes", "yes"}},
        {"World/Objectives/Story/Step 5", "RewardItems.0.Condition", {"", "\"Good\"", "\"Good\""}},
        {"Items/Ammunition/Arrow", "Recipes.1.Power", {"", "", "yes"}},
        {"Items/Ammunition/Arrow", "Recipes.1.Costs.1.Amount", {"2", "2", "2"}},
    };
    std::vector<CGameDatabase> databases;
    for (const char* build : {"7", "10", "20"})
    {
        ASSERT_EQ(Pack(std::string("-Silent -Pack -BuildNumber ") + build + " -Output " + PathOf(build)), 0);
        databases.push_back(Open(build));
    }
    for (const SRow& row : rows)
    {
        for (std::size_t i = 0; i < databases.size(); ++i)
            EXPECT_EQ(Describe(databases[i], row.m_szRecord, row.m_szAttribute), row.m_Builds[i])
                << row.m_szRecord << " " << row.m_szAttribute;
    }
}

TEST_F(CPackSample, TwoPacksAreEqualAndTouchNoSourceFile)
{
    std::map<fs::path, fs::file_time_type> before;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(GetDatabase()))
        before[entry.path()] = entry.last_write_time();
    ASSERT_EQ(Pack("-Silent -Pack -Log " + PathOf("log.txt") + " -Output " + PathOf("a")), 0);
    ASSERT_EQ(Pack("-Pack -BuildNumber 7 -Output " + PathOf("b")), 0);
    EXPECT_EQ(m_Scratch.ReadBytes("a"), m_Scratch.ReadBytes("b")) << "the game's own number is 7";
    EXPECT_EQ(m_Scratch.ReadUtf16("log.txt"), u"") << "the sample has no findings";
    std::map<fs::path, fs::file_time_type> after;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(GetDatabase()))
        after[entry.path()] = entry.last_write_time();
    EXPECT_EQ(before, after);
}

TEST_F(CPackSample, ThePostBuildStepDescribesThePackedFile)
{
    ASSERT_EQ(Pack("-Silent -Pack"), 0);
    EXPECT_EQ(GetOutput(), "");
    const std::string manifest = m_Scratch.ReadBytes("outpost/Game/Outpost.manifest");
    const auto size = fs::file_size(m_Scratch.GetPath() / "outpost/Game/Outpost.Gamdb00p");
    EXPECT_NE(manifest.find("Size=" + std::to_string(size)), std::string::npos) << manifest;
}

// A finding that a game cannot live with: told by the status, written to the log, packed all the same.
TEST_F(CPackSample, CriticalFindingsSetTheStatusAndReachTheLog)
{
    SetValue("Actors/Enemies/Hollow/Frost Runner.record", u"Attrib.Health", u"Value.0000", u"-5");
    EXPECT_EQ(Pack("-Silent -Pack -Log " + PathOf("log.txt") + " -Output " + PathOf("packed")), 1);
    const std::u16string log = m_Scratch.ReadUtf16("log.txt");
    EXPECT_EQ(log.find(u"Critical|Invalid Integer|Integer|Actors/Enemies/Hollow/Fast/Frost Runner|Health|0|"),
              0U)
        << ToNarrow(log);
    EXPECT_EQ(
        Open("packed").FindRecord("Actors/Enemies/Hollow/Frost Runner").FindAttribute("Health").GetInteger(),
        -5);
}

// A disk that takes no more: the limit on a file's size stands in for it.
TEST_F(CPackSample, AFullDiskKeepsTheOldPackedFile)
{
    m_Scratch.WriteBytes("packed", "the old one");
    EXPECT_EQ(Pack("-Pack -Output " + PathOf("packed"), "ulimit -f 16; "), 5);
    EXPECT_EQ(m_Scratch.ReadBytes("packed"), "the old one");
    EXPECT_NE(GetOutput().find("Failed to save database to file.  The file may be locked."),
              std::string::npos);
    EXPECT_EQ(std::distance(fs::directory_iterator(m_Scratch.GetPath()), {}), 4)
        << "no temporary file is left";
}

// A build machine has no display and no UI toolkit.
TEST(CoreBinaries, NeedNoUiToolkit)
{
    for (const char* binary : {CORVANE_PROGRAM, CORVANECTL_PROGRAM, CREATOR_LIBRARY, DUMP_PROGRAM})
    {
        const std::string command =
            std::string("objdump -p '") + binary + "' | grep -E 'NEEDED.*(Qt|X11|wayland|GL)'";
        EXPECT_NE(std::system(command.c_str()), 0) << binary;
        EXPECT_EQ(std::system((std::string("objdump -p '") + binary + "' | grep -q NEEDED").c_str()), 0)
            << binary;
    }
}
