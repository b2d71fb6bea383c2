// The active build: the number of the game's library, the settings that it is chosen by, and expert mode.
#include "TestDatabase.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace fs = std::filesystem;

namespace
{
class Build : public testing::Test, protected CTestDatabase
{
protected:
    void SetUp() override
    {
        m_Scratch.WriteBytes("Game/Game.proj00", "[Project Binaries]\nGameServer=Server.dll\n");
        fs::create_directory(m_Scratch.GetPath() / "program");
        ::setenv("CORVANE_TEST_LOADS", (m_Scratch.GetPath() / "loads").c_str(), 1);
    }
    void TearDown() override { ::unsetenv("CORVANE_TEST_LOADS"); }

    // A team's build replaces the library, as a linker does, or writes over it, as a copy does.
    void Install(const char* library, bool replace) const
    {
        const fs::path target = m_Scratch.GetPath() / "program/libServer.so";
        if (replace)
            fs::remove(target);
        fs::copy_file(library, target, fs::copy_options::overwrite_existing);
    }
    [[nodiscard]] std::size_t CountLoads() const
    {
        return m_Scratch.Exists("loads") ? m_Scratch.ReadBytes("loads").size() : 0;
    }
};
} // namespace

TEST_F(Build, ALibraryIsLoadedOnceForEachOfItsFiles)
{
    EXPECT_EQ(Get().GetBuildNumber(), 0U) << "no library configured";
    EXPECT_EQ(Get().GetBuildNumber(GetText("nothing.so")), 0U);
    EXPECT_EQ(Get().GetBuildNumber(GetText("Root.Gamdb00s")), 0U) << "no library";
    Install(CORVANE_BUILD_11, true);
    ASSERT_TRUE(Open());
    EXPECT_EQ(Get().GetActiveBuild(), 11U);
    EXPECT_EQ(Get().GetBuildNumber(), 11U);
    EXPECT_EQ(CountLoads(), 1U) << "the load of a database asks more than once";
    // A library that is replaced; one that is written over; one that refuses to leave the process and so
    // hides every later file of its name from the system's loader.
    const std::tuple<const char*, bool, std::uint32_t> libraries[] = {{CORVANE_BUILD_12, true, 12},
                                                                      {CORVANE_BUILD_11, false, 11},
                                                                      {CORVANE_BUILD_13_STAYS, true, 13},
                                                                      {CORVANE_BUILD_12, true, 12}};
    std::size_t loads = 1;
    for (const auto& [library, replace, number] : libraries)
    {
        Install(library, replace);
        EXPECT_EQ(Get().GetBuildNumber(), number);
        EXPECT_EQ(Get().GetBuildNumber(), number);
        EXPECT_EQ(CountLoads(), ++loads);
    }
    // Half a library, as while it is being copied, then the whole one.
    m_Scratch.WriteBytes("program/libServer.so", "\x7F"
                                                 "ELF");
    EXPECT_EQ(Get().GetBuildNumber(), 0U);
    Install(CORVANE_BUILD_12, false);
    EXPECT_EQ(Get().GetBuildNumber(), 12U);
}

TEST_F(Build, ExpertModeTurnsBetweenTheGamesNumberAndTheUsers)
{
    Install(CORVANE_BUILD_11, true);
    m_Scratch.WriteUtf16(kUserFile, u"[Database]\nVersion=3\nActive.Build=4\n");
    ASSERT_TRUE(Open());
    m_Events.clear();
    Get().ToggleExpertMode();
    EXPECT_TRUE(m_Run.Test(APP_EXPERT));
    EXPECT_EQ(m_Profile.GetInteger(u"Build", u"User.Interface", 0), 1);
    EXPECT_EQ(Get().GetActiveBuild(), 4U);
    EXPECT_EQ(m_Events, (std::vector<int>{60, 69, 60}));
    Get().UseGameBuild(false);
    Get().SetActiveBuild(5);
    Get().WriteBuildSettings();
    EXPECT_EQ(GetPerUserFile(), "[Database]\nVersion=3\nActive.Build=5\nUse.Game.Build=False\n\n"
                                "[General]\nDatabase=Test\n\n");
    Get().ToggleExpertMode();
    EXPECT_EQ(Get().GetActiveBuild(), 11U);
    EXPECT_EQ(m_Profile.GetInteger(u"Build", u"User.Interface", 1), 0);
    EXPECT_TRUE(Get().IsGameBuildDefault());
    m_Profile.SetInteger(u"Build", u"Default.Game.Build", 0);
    EXPECT_FALSE(Get().IsGameBuildDefault());
}
