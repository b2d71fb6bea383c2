#include "DiskFileSystem.h"
#include "Module.h"
#include "Process.h"
#include "ScratchDir.h"
#include "Unicode.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

TEST(Module, IsFoundUnderThisSystemsNameAndAFailureNamesTheFile)
{
    CScratchDir scratch;
    CDiskFileSystem files;
    fs::create_directories(scratch.GetPath() / "mods");
    fs::copy_file(CORVANE_TEST_MODULE, scratch.GetPath() / "mods/libTest.so");
    // Another system's library of the wanted name must not stand in the way.
    scratch.WriteBytes("game/test.dll", "MZ");
    scratch.WriteBytes("libBroken.so", "\x7F"
                                       "ELF and nothing else");
    const CModuleFinder finder(files, scratch.Text("prog"), scratch.Text("mods"));
    EXPECT_EQ(
        CModuleFinder(files, u"/prog/", u"/mods").GetCandidates(u"D:\\g\\Creator.dll"),
        (std::vector<std::u16string>{u"D:\\g\\Creator.dll", u"D:\\g\\libCreator.so", u"/prog/Creator.dll",
                                     u"/prog/libCreator.so", u"/mods/Creator.dll", u"/mods/libCreator.so"}));
    EXPECT_EQ(finder.GetCandidates(u"libX.so").size(), 3U);
    EXPECT_TRUE(finder.GetCandidates(u"").empty() && finder.GetCandidates(u"/dir/").empty());
    std::u16string error;
    CModule module = finder.Load(scratch.Text("game") + u"\\Test.dll", error);
    ASSERT_TRUE(module.IsLoaded()) << ToNarrow(error);
    EXPECT_EQ(module.GetPath(), scratch.Text("mods/libTest.so"));
    const CModule moved = std::move(module);
    const auto answer = moved.FindFunction<int (*)()>("GetAnswer");
    ASSERT_NE(answer, nullptr);
    EXPECT_EQ(answer(), 42);
    EXPECT_EQ(moved.FindExport("Missing"), nullptr);
    const std::pair<const char*, std::u16string_view> failures[] = {
        {"Broken.dll", u"libBroken.so"}, {"Missing.dll", u"Missing.dll: no such file"}};
    for (const auto& [name, told] : failures)
    {
        EXPECT_FALSE(finder.Load(scratch.Text(name), error).IsLoaded());
        EXPECT_NE(error.find(told), std::u16string::npos) << ToNarrow(error);
    }
}

TEST(Process, CommandsAreSplitAtBlanksOutsideQuotes)
{
    using CWords = std::vector<std::u16string>;
    EXPECT_EQ(SplitCommand(u"  tool  -x \"a b\" c\"d e\"f "), (CWords{u"tool", u"-x", u"a b", u"cd ef"}));
    EXPECT_EQ(SplitCommand(u"a\"\"b \"\" \"open end"), (CWords{u"ab", u"", u"open end"}));
    EXPECT_TRUE(SplitCommand(u" \t ").empty());
}

class CProcessTest : public testing::Test
{
protected:
    std::optional<int> Run(std::u16string_view command)
    {
        CProcess process;
        if (!process.Start(m_Files, command, m_Scratch.Text("Tools"), m_sError))
            return std::nullopt;
        return process.Wait();
    }

    void SetUp() override
    {
        // It tells its arguments and what it can read, in its working directory.
        m_Scratch.WriteBytes("Tools/bin/step", "#!/bin/sh\nprintf '%s|' \"$@\" > out\ncat >> out\nexit 7\n");
        fs::permissions(m_Scratch.GetPath() / "Tools/bin/step", fs::perms(0755));
    }

    CScratchDir m_Scratch;
    CDiskFileSystem m_Files;
    std::u16string m_sError;
};

TEST_F(CProcessTest, RunsInItsDirectoryWithItsWords)
{
    EXPECT_EQ(Run(u"BIN\\Step.exe \"a b\" $HOME *"), 7);
    EXPECT_EQ(m_Scratch.ReadBytes("Tools/out"), "a b|$HOME|*|");
    EXPECT_EQ(Run(u"sh -c \"exit 3\""), 3);
    EXPECT_EQ(Run(u"sh.exe -c \"kill -9 $$\""), 128 + 9);
}

TEST_F(CProcessTest, FailuresAreExplained)
{
    for (const std::u16string_view command : {u"no-such-program-here x", u"bin/missing", u"", u"bin"})
    {
        EXPECT_EQ(Run(command), std::nullopt);
        EXPECT_FALSE(m_sError.empty());
    }
    m_Scratch.WriteBytes("Tools/plain", "text");
    EXPECT_EQ(Run(u"plain"), std::nullopt);
    EXPECT_EQ(m_sError, u"plain: permission denied");
    CProcess process;
    EXPECT_FALSE(process.Start(m_Files, u"sh", m_Scratch.Text("none"), m_sError));
    EXPECT_EQ(process.Wait(), std::nullopt);
}
