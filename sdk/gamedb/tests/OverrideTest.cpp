// Override texts and limits files against a packed database.
#include "GameAttribute.h"
#include "GameDatabase.h"
#include "GameOverrides.h"
#include "OverrideFixture.h"
#include "OverrideLimitsFile.h"
#include "OverrideTextFile.h"
#include "ScratchDir.h"
#include "SmallDatabase.h"
#include "Utf8.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>

namespace
{
std::span<const std::byte> BytesOf(const std::string& text)
{
    return std::as_bytes(std::span(text));
}

class COverrides : public ::testing::Test
{
protected:
    COverrides()
    {
        std::string error;
        m_Database = CGameDatabase::OpenMemory(m_Bytes, error);
        EXPECT_EQ(error, "");
    }
    CGameOverrides Apply(const std::string& text, const std::string& limits)
    {
        return CGameOverrides::ApplyMemory(m_Database.value(), BytesOf(text), BytesOf(limits));
    }
    CGameAttribute Get(const char* name) const
    {
        return m_Database->FindRecord("Units/Orc").FindAttribute(name);
    }

    // What the example prints for the files, and its exit status.
    std::string RunExample(const std::string& text) const
    {
        m_Scratch.WriteBytes("Game.Gamdb00p", AsText(m_Bytes));
        m_Scratch.WriteBytes("Limits.dat", m_sLimits);
        m_Scratch.WriteBytes("Text.txt", text);
        const std::string command = "cd '" + m_Scratch.GetPath().string() +
                                    "' && '" OVERRIDE_EXAMPLE_PROGRAM
                                    "' Game.Gamdb00p Text.txt Limits.dat >out";
        const int status = std::system(command.c_str());
        return m_Scratch.ReadBytes("out") + "status " + std::to_string(status >> 8) + "\n";
    }

    CScratchDir m_Scratch;
    const std::vector<SOverrideAttribute> m_Settings = MakeOverrideSettings();
    const std::vector<std::byte> m_Bytes = MakeOverrideDatabase(m_Settings);
    const std::string m_sLimits = WriteOverrideLimits(m_Settings);
    const std::string m_sText = WriteOverrideText(m_Settings, "Limits.dat");
    std::optional<CGameDatabase> m_Database;
};
} // namespace

TEST_F(COverrides, EditedLinesGiveTheirValuesAndFaultyOnesAReport)
{
    for (const std::string name : {"override-edited", "override-faults", "override-more"})
        EXPECT_EQ(RunExample(ReadGolden((name + ".txt").c_str())), ReadGolden((name + ".expected").c_str()));
}

TEST_F(COverrides, AnUntouchedTextChangesNothingHoweverItWasSaved)
{
    const auto withEnds = [](std::string_view text, const char* end)
    {
        std::string out;
        for (const char c : text)
            c == '\n' ? out += end : out += c;
        return out;
    };
    const auto asUtf16 = [](const std::string& text, bool isBigEndian)
    {
        std::string out;
        for (const char16_t unit : u"\xFEFF" + ToUtf16(text))
        {
            const char bytes[] = {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
            (out += bytes[isBigEndian]) += bytes[!isBigEndian];
        }
        return out;
    };
    std::string edited = m_sText;
    edited.replace(edited.find("Health = 50"), 11, "Health = 51");
    for (const bool isEdited : {false, true})
    {
        const std::string text = isEdited ? edited : m_sText;
        for (const std::string& saved :
             {text, "\xEF\xBB\xBF" + text, withEnds(text, "\r\n"), withEnds(text, "\r"),
              asUtf16(withEnds(text, "\r\n"), false), asUtf16(text, true), text.substr(0, text.size() - 1)})
        {
            const CGameOverrides overrides = Apply(saved, m_sLimits);
            EXPECT_TRUE(overrides.GetReports().empty()) << overrides.GetReports().front().message;
            EXPECT_EQ(overrides.GetCount(), isEdited);
            EXPECT_EQ(Get("Health").GetInteger(), isEdited ? 51 : 50);
        }
    }
}

TEST_F(COverrides, FilesThatAreNotSoundLeaveAllPackedValues)
{
    const std::string line = "Units/Orc/Health = 1\n";
    const auto expectRefused = [&](EOverrideCause cause, const std::string& text, const std::string& limits)
    {
        ASSERT_EQ(Apply(line, m_sLimits).GetCount(), 1U);
        const CGameOverrides overrides = Apply(text, limits);
        ASSERT_EQ(overrides.GetReports().size(), 1U);
        EXPECT_EQ(overrides.GetReports()[0].cause, cause) << overrides.GetReports()[0].message;
        EXPECT_EQ(overrides.GetReports()[0].line, 0U);
        EXPECT_EQ(Get("Health").GetInteger(), 50);
    };
    for (std::size_t size = 0; size < m_sLimits.size(); ++size)
        expectRefused(EOverrideCause::DamagedLimits, line, m_sLimits.substr(0, size));
    for (std::size_t i = 0; i < m_sLimits.size(); ++i)
    {
        std::string damaged = m_sLimits;
        damaged[i] = static_cast<char>(damaged[i] ^ 0x10);
        expectRefused(EOverrideCause::DamagedLimits, line, damaged);
    }
    expectRefused(EOverrideCause::UnreadableFile, line + '\0', m_sLimits);
    expectRefused(EOverrideCause::UnreadableFile, "\xFF\xFEo", m_sLimits);

    m_Scratch.WriteBytes("Text.txt", line);
    const std::string folder = m_Scratch.GetPath().string();
    const std::string missing = folder + "/missing";
    for (const auto& [text, limits] :
         {std::pair{folder + "/Text.txt", missing}, {missing, missing}, {folder, missing}})
    {
        const CGameOverrides overrides = CGameOverrides::Apply(m_Database.value(), text, limits);
        ASSERT_EQ(overrides.GetReports().size(), 1U);
        EXPECT_EQ(overrides.GetReports()[0].cause, EOverrideCause::UnreadableFile);
    }
}

TEST_F(COverrides, LimitsOfAnotherDatabaseAreNoticed)
{
    std::vector<SOverrideAttribute> others = m_Settings;
    others[0].name += 'x';
    others[1].type = DBVALUE_FLOAT;
    others[1].limits = EOverrideLimits::None;
    others[7].values.pop_back();
    const CGameOverrides overrides = Apply("Units/Orc/Speedx = 1, 2, 3\nUnits/Orc/Health = "
                                           "1\nUnits/Orc/Place = (1, 1, 1)\nUnits/Orc/Sleep = 1\n",
                                           WriteOverrideLimits(others));
    EXPECT_EQ(overrides.GetCount(), 1U);
    std::string told;
    for (const SOverrideReport& report : overrides.GetReports())
        told += std::to_string(report.line) + ": " + report.message + "\n";
    EXPECT_EQ(
        told,
        "0: The limits file was made for another database or another version of it: of its 21 settings 3 "
        "are not in the database as it describes them.\n"
        "1: The setting 'Units/Orc/Speedx' is not in the database as the limits file describes it.\n"
        "2: The setting 'Units/Orc/Health' is not in the database as the limits file describes it.\n"
        "3: The setting 'Units/Orc/Place' is not in the database as the limits file describes it.\n");
}

TEST(ManyOverrides, EachReachesItsAttributeAndFaultsAreCounted)
{
    constexpr int kOrcs = 3000;
    const std::vector<std::byte> bytes = MakeOverrideDatabase({}, kOrcs);
    std::string error;
    std::optional<CGameDatabase> database = CGameDatabase::OpenMemory(bytes, error);
    ASSERT_TRUE(database) << error;
    std::vector<SOverrideAttribute> settings;
    std::string text;
    for (int i = 1; i < kOrcs; ++i)
    {
        settings.emplace_back().name = "Units/Orc" + std::to_string(i) + "/Health";
        settings.back().values = {{{static_cast<std::uint32_t>(i)}, {}}};
        text += settings.back().name + (i % 3 == 0 ? " = 7\n" : i % 3 == 1 ? " = x\n" : "\n");
    }
    const std::string limits = WriteOverrideLimits(settings);
    const CGameOverrides overrides = CGameOverrides::ApplyMemory(*database, BytesOf(text), BytesOf(limits));
    EXPECT_EQ(overrides.GetCount(), 999U);
    EXPECT_EQ(overrides.GetReports().size(), CGameOverrides::kMaxReports);
    EXPECT_EQ(overrides.GetUntoldCount(), 1000U);
    for (int i = 1; i < kOrcs; ++i)
    {
        const CGameAttribute health =
            database->FindRecord("Units/Orc" + std::to_string(i)).FindAttribute("Health");
        ASSERT_EQ(health.GetInteger(), i % 3 == 0 ? 7 : i);
        ASSERT_EQ(health.IsOverridden(), i % 3 == 0);
    }
}
