// A server's administrator changes the sample game: from the source files through the programs to what a game
// that links the SDK reads.
#include "SampleCopy.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace
{
class COverrideSample : public ::testing::Test, protected CSampleCopy
{
protected:
    void MakeFiles(const std::string& build) const
    {
        EXPECT_EQ(RunShell("'" CORVANE_PROGRAM "' -Pack -BuildNumber " + build + " -Output '" +
                           PathOf("game") + "' '" + GetRootFile() + "'"),
                  0);
        EXPECT_EQ(RunShell("'" CORVANECTL_PROGRAM "' overrides '" + GetRootFile() + "' --build " + build +
                           " --database '" + PathOf("text") + "' --constraints '" + PathOf("limits") + "'"),
                  0);
    }
    // The lines of the text with other values.
    void Edit(std::initializer_list<std::pair<const char*, const char*>> values) const
    {
        std::string text = m_Scratch.ReadBytes("text");
        for (const auto& [name, value] : values)
        {
            const std::string line = std::string("\n") + name + " = ";
            const std::size_t begin = text.find(line) + line.size();
            ASSERT_GE(begin, line.size()) << name;
            text.replace(begin, text.find('\n', begin) - begin, value);
        }
        m_Scratch.WriteBytes("text", text);
    }
    // What the example of a server prints, and its exit status.
    std::string RunServer() const
    {
        const int status = RunShell("'" OVERRIDE_EXAMPLE_PROGRAM "' '" + PathOf("game") + "' '" +
                                    PathOf("text") + "' '" + PathOf("limits") + "'");
        return m_Scratch.ReadBytes("output") + "status " + std::to_string(status) + "\n";
    }
};
} // namespace

TEST_F(COverrideSample, EditedSettingsReachTheGameWithinTheirLimits)
{
    MakeFiles("7");
    EXPECT_EQ(RunServer(), "0 settings changed\nstatus 0\n");
    Edit({{"World/Difficulty/Custom/EnemyHealthScale", "2, 2, 2.5, 3"},
          {"World/Difficulty/Custom/LootScale", "4.5"},
          {"World/Difficulty/Custom/Rules", "Iron | one life"},
          {"World/Difficulty/Custom/DayLength", "600000   # ten minutes"},
          {"Waves/Campaign/Night 6/Budget", "1, 2, 3"},
          {"Items/Weapons/Militia Rifle/Damage", "1000, 0, 1"}});
    EXPECT_EQ(
        RunServer(),
        "Items/Weapons/Militia Rifle/Damage: 32, 30, 22 -> 1000, 0, 1\n"
        "World/Difficulty/Custom/EnemyHealthScale: 0.9, 1, 1.08, 1.15 -> 2, 2, 2.5, 3\n"
        "World/Difficulty/Custom/DayLength: 1080000 -> 600000\n"
        "World/Difficulty/Custom/Rules: 3 -> 48\n"
        "4 settings changed\n"
        "line 103: The setting 'Waves/Campaign/Night 6/Budget' keeps its value: the number of values is 3 "
        "instead of 4.\n"
        "line 118: The setting 'World/Difficulty/Custom/LootScale' keeps its value: 4.5 is above the largest "
        "value, 4.\n"
        "status 1\n");
}

// The sample has attributes of every type; with all of them open, each untouched line must be the packed
// value.
TEST_F(COverrideSample, EveryAttributeGoesRoundUntouched)
{
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(GetDatabase()))
    {
        if (entry.path().extension() != ".record")
            continue;
        const std::string path = fs::relative(entry.path(), m_Scratch.GetPath()).string();
        std::u16string text = m_Scratch.ReadUtf16(path);
        const std::u16string_view closed = u"Override=False";
        for (std::size_t at = text.find(closed); at != std::u16string::npos; at = text.find(closed, at))
            text.replace(at, closed.size(), u"Override=True");
        m_Scratch.WriteUtf16(path, text);
    }
    MakeFiles("20");
    EXPECT_EQ(RunServer(), "0 settings changed\nstatus 0\n");
    Edit({{"Actors/Enemies/Base Enemy/Drops.0.Count", "(2, 1)"},
          {"Actors/Enemies/Base Enemy/MapColor", "(0, 0, 255)"},
          {"Actors/Colonists/Base Colonist/Bed", "World/Weather/Fog"},
          {"Actors/Colonists/Base Colonist/HitZones.0.Zone", "weak spot"}});
    EXPECT_EQ(RunServer(),
              "Actors/Colonists/Base Colonist/HitZones.0.Zone: \"Head\" -> \"Weak Spot\"\n"
              "Actors/Enemies/Base Enemy/MapColor: 11549230 -> 255\n"
              "2 settings changed\n"
              "line 211: The setting 'Actors/Colonists/Base Colonist/Bed' keeps its value: the record "
              "'World/Weather/Fog' is of a kind that is not allowed here.\n"
              "line 2365: The setting 'Actors/Enemies/Base Enemy/Drops.0.Count' keeps its value: the smaller "
              "number of a range comes first.\n"
              "status 1\n");
}
