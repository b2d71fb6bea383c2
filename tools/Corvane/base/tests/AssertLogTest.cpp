// The assertion log against real directories: which file it takes, what it writes, and that it writes nothing
// before there is something to tell.
#include "AssertLog.h"
#include "ScratchDir.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <memory>

namespace fs = std::filesystem;

namespace
{
void FireHere()
{
    ZRASSERT_MSG(2 + 2 == 5, "The sum does not hold.");
}

void MakeReadOnly(const fs::path& path)
{
    fs::permissions(path, fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                    fs::perm_options::remove);
}

std::unique_ptr<CAssertLog> MakeLog(const CScratchDir& scratch, const char* program)
{
    return std::make_unique<CAssertLog>((scratch.GetPath() / program).string());
}
} // namespace

TEST(AssertLog, WritesHeadEntryAndEnd)
{
    CScratchDir scratch;
    auto log = MakeLog(scratch, "editor");
    log->Install();
    EXPECT_TRUE(fs::is_empty(scratch.GetPath())) << "no file before the first assertion";
    FireHere();
    FireHere();
    EXPECT_EQ(log->GetPath(), (scratch.GetPath() / "editor_Assert00.log").string());
    const std::string running = scratch.ReadBytes("editor_Assert00.log");
    log.reset();
    const std::string text = scratch.ReadBytes("editor_Assert00.log");

    const std::string rule = "  " + std::string(70, '-') + "\n";
    EXPECT_EQ(text.rfind("\n" + rule + std::string(30, ' ') + "Assert Log File\n", 0), 0U) << text;
    EXPECT_NE(text.find(std::string(34, ' ') + "Corvane\n"), std::string::npos);
    EXPECT_NE(text.find("This file contains a log of asserts that were fired during the execution of\n"
                        "the above application.\n\nCreated at "),
              std::string::npos);
    EXPECT_NE(text.find(" \n\n---\n\nAssertion Failure: 2 + 2 == 5\n\nThe sum does not hold.\n\nTime:\t\t"),
              std::string::npos);
    EXPECT_NE(text.find("\nFunction:\tFireHere\nResult:\t\tContinue\n\n\n---\n\n"), std::string::npos);
    EXPECT_NE(text.find("AssertLogTest.cpp\nLine:\t\t"), std::string::npos);
    EXPECT_EQ(text.find("Assert Log File"), text.rfind("Assert Log File")) << "one head";
    EXPECT_NE(text.find("Assertion Failure"), text.rfind("Assertion Failure")) << "two entries";
    EXPECT_EQ(text.rfind(running, 0), 0U) << "entries are on disk before the end";
    EXPECT_EQ(text.find("Closed at "), running.size());
}

TEST(AssertLog, TakesTheFirstNameThatIsNotReadOnly)
{
    CScratchDir scratch;
    scratch.WriteBytes("x_Assert00.log", "kept");
    scratch.WriteBytes("x_Assert01.log", "old");
    MakeReadOnly(scratch.GetPath() / "x_Assert00.log");
    auto log = MakeLog(scratch, "x.bin");
    EXPECT_EQ(log->Log("a", "f.cpp", 7, "F", ""), ZRASSERT_CONTINUE);
    log.reset();
    EXPECT_EQ(scratch.ReadBytes("x_Assert00.log"), "kept");
    const std::string text = scratch.ReadBytes("x_Assert01.log");
    EXPECT_EQ(text.find("old"), std::string::npos);
    EXPECT_NE(text.find("Line:\t\t7\n"), std::string::npos);
    EXPECT_FALSE(scratch.Exists("x_Assert02.log"));
}

TEST(AssertLog, LiesInTheStateDirectoryWhenTheProgramsIsReadOnly)
{
    CScratchDir scratch;
    const char* configured = std::getenv("XDG_STATE_HOME");
    const std::string before = configured != nullptr ? configured : "";
    ::setenv("XDG_STATE_HOME", (scratch.GetPath() / "state").c_str(), 1);
    scratch.WriteBytes("bin/x", "");
    MakeReadOnly(scratch.GetPath() / "bin");
    auto log = MakeLog(scratch, "bin/x");
    log->Log("a", "f.cpp", 1, "F", "");
    EXPECT_EQ(log->GetPath(), (scratch.GetPath() / "state/corvane/x_Assert00.log").string());
    EXPECT_FALSE(scratch.Exists("bin/x_Assert00.log"));
    fs::permissions(scratch.GetPath() / "bin", fs::perms::owner_all);
    configured == nullptr ? ::unsetenv("XDG_STATE_HOME") : ::setenv("XDG_STATE_HOME", before.c_str(), 1);
}

TEST(AssertLog, GivesTheHandlerBackAndStaysQuietWithoutAPlaceToWrite)
{
    const ZRAssertHandler before = ZRSetAssertHandler(nullptr);
    {
        CAssertLog outer("/nowhere/outer");
        outer.Install();
        {
            CScratchDir scratch;
            auto inner = MakeLog(scratch, "inner");
            inner->Install();
            FireHere();
            EXPECT_TRUE(scratch.Exists("inner_Assert00.log"));
        }
        const ZRAssertHandler outerHandler = ZRSetAssertHandler(nullptr);
        EXPECT_NE(outerHandler, nullptr);
        ZRSetAssertHandler(outerHandler);
    }
    EXPECT_EQ(ZRSetAssertHandler(before), nullptr);
}
