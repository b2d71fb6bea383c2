// The assertion log against real directories: which file it takes and what it writes.
#include "AssertLog.h"
#include "ScratchDir.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <memory>

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace
{
void FireHere()
{
    ZRASSERT_MSG(2 + 2 == 5, "The sum does not hold.");
}

class AssertLog : public testing::Test
{
protected:
    void MakeReadOnly(const char* file) const
    {
        constexpr fs::perms kWrite =
            fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
        fs::permissions(m_Scratch.GetPath() / file, kWrite, fs::perm_options::remove);
    }
    // The log file of one assertion in a program of this path.
    [[nodiscard]] std::string Fire(const char* program) const
    {
        CAssertLog log((m_Scratch.GetPath() / program).string());
        EXPECT_EQ(log.Log("a", "f.cpp", 7, "F", ""), ZRASSERT_CONTINUE);
        return fs::relative(log.GetPath(), m_Scratch.GetPath()).string();
    }

    CScratchDir m_Scratch;
};
} // namespace

TEST_F(AssertLog, WritesHeadEntryAndEnd)
{
    auto log = std::make_unique<CAssertLog>((m_Scratch.GetPath() / "editor").string());
    log->Install();
    EXPECT_TRUE(fs::is_empty(m_Scratch.GetPath())) << "no file before the first assertion";
    FireHere();
    FireHere();
    const std::string running = m_Scratch.ReadBytes("editor_Assert00.log");
    log.reset();
    const std::string text = m_Scratch.ReadBytes("editor_Assert00.log");
    EXPECT_THAT(text, StartsWith(running + "Closed at ")) << "entries are on disk before the end";
    EXPECT_THAT(
        text, StartsWith("\n  " + std::string(70, '-') + "\n" + std::string(30, ' ') + "Assert Log File\n"));
    EXPECT_EQ(text.rfind("Assert Log File"), text.find("Assert Log File")) << "one head";
    EXPECT_NE(text.rfind("Assertion Failure"), text.find("Assertion Failure")) << "two entries";
    for (const char* part :
         {"                                  Corvane\n",
          "This file contains a log of asserts that were fired during the execution of\n"
          "the above application.\n\nCreated at ",
          " \n\n---\n\nAssertion Failure: 2 + 2 == 5\n\nThe sum does not hold.\n\nTime:\t\t",
          "\nFunction:\tFireHere\nResult:\t\tContinue\n\n\n---\n\n", "AssertLogTest.cpp\nLine:\t\t"})
        EXPECT_THAT(text, HasSubstr(part));
}

TEST_F(AssertLog, TakesTheFirstPlaceThatCanBeWritten)
{
    const char* configured = std::getenv("XDG_STATE_HOME");
    const std::string before = configured != nullptr ? configured : "";
    ::setenv("XDG_STATE_HOME", (m_Scratch.GetPath() / "state").c_str(), 1);
    m_Scratch.WriteBytes("bin/x_Assert00.log", "kept");
    m_Scratch.WriteBytes("bin/x_Assert01.log", "old");
    MakeReadOnly("bin/x_Assert00.log");
    EXPECT_EQ(Fire("bin/x.bin"), "bin/x_Assert01.log");
    EXPECT_EQ(m_Scratch.ReadBytes("bin/x_Assert00.log"), "kept");
    EXPECT_THAT(m_Scratch.ReadBytes("bin/x_Assert01.log"),
                AllOf(HasSubstr("Line:\t\t7\n"), Not(HasSubstr("old"))));
    MakeReadOnly("bin");
    EXPECT_EQ(Fire("bin/y"), "state/corvane/y_Assert00.log");
    fs::permissions(m_Scratch.GetPath() / "bin", fs::perms::owner_all);
    configured == nullptr ? ::unsetenv("XDG_STATE_HOME") : ::setenv("XDG_STATE_HOME", before.c_str(), 1);
}

TEST_F(AssertLog, GivesTheHandlerBackAndStaysQuietWithoutAPlaceToWrite)
{
    const ZRAssertHandler before = ZRSetAssertHandler(nullptr);
    {
        CAssertLog outer("/nowhere/outer");
        outer.Install();
        auto inner = std::make_unique<CAssertLog>((m_Scratch.GetPath() / "inner").string());
        inner->Install();
        FireHere();
        inner.reset();
        EXPECT_TRUE(m_Scratch.Exists("inner_Assert00.log"));
        const ZRAssertHandler outerHandler = ZRSetAssertHandler(nullptr);
        EXPECT_NE(outerHandler, nullptr);
        ZRSetAssertHandler(outerHandler);
        FireHere();
    }
    EXPECT_EQ(ZRSetAssertHandler(before), nullptr);
}
