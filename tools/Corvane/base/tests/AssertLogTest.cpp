// The assertion log against real directories: which file it takes and what it writes.
#include "AssertLog.h"
#include "ScratchDir.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
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

// Without what differs from run to run: every number is 0.
std::string Mask(std::string text)
{
    const auto isDigit = [](unsigned char unit) { return std::isdigit(unit) != 0; };
    std::replace_if(text.begin(), text.end(), isDigit, '0');
    const auto end =
        std::unique(text.begin(), text.end(), [](char a, char b) { return a == '0' && b == '0'; });
    text.erase(end, text.end());
    return text;
}

class AssertLog : public testing::Test
{
protected:
    void Allow(const char* file, fs::perms permissions) const
    {
        fs::permissions(m_Scratch.GetPath() / file, permissions);
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

TEST_F(AssertLog, WritesHeadEntriesAndEndAndGivesTheHandlerBack)
{
    const ZRAssertHandler before = ZRSetAssertHandler(nullptr);
    auto outer = std::make_unique<CAssertLog>("/nowhere/outer");
    outer->Install();
    auto log = std::make_unique<CAssertLog>((m_Scratch.GetPath() / "editor").string());
    log->Install();
    EXPECT_TRUE(fs::is_empty(m_Scratch.GetPath())) << "no file before the first assertion";
    FireHere();
    FireHere();
    const std::string running = m_Scratch.ReadBytes("editor_Assert00.log");
    log.reset();
    FireHere(); // The outer log has no place to write and stays quiet.
    outer.reset();
    EXPECT_EQ(ZRSetAssertHandler(before), nullptr);

    const std::string text = m_Scratch.ReadBytes("editor_Assert00.log");
    EXPECT_TRUE(text.starts_with(running + "Closed at ")) << "entries are on disk before the end";
    const std::string rule = "  " + std::string(70, '-') + '\n';
    const std::string entry = "---\n\nAssertion Failure: 2 + 2 == 5\n\nThe sum does not "
                              "hold.\n\nTime:\t\t0:0:0\nFile:\t\t" __FILE__ "\n"
                              "Line:\t\t0\nFunction:\tFireHere\nResult:\t\tContinue\n\n\n";
    EXPECT_EQ(Mask(text),
              Mask('\n' + rule + std::string(30, ' ') + "Assert Log File\n" + std::string(34, ' ') +
                   "Corvane\n" + std::string(35, ' ') + "0.0.0\n" + rule + '\n' + std::string(22, ' ') +
                   "Copyright (C) Harrowgate Works\n\n\n"
                   "This file contains a log of asserts that were fired during the execution of\n"
                   "the above application.\n\nCreated at 0:0:0 on 0/0/0 \n\n" +
                   entry + entry + "---\n\nClosed at 0:0:0\n"));
}

TEST_F(AssertLog, TakesTheFirstPlaceThatCanBeWritten)
{
    const char* configured = std::getenv("XDG_STATE_HOME");
    const std::string before = configured != nullptr ? configured : "";
    ::setenv("XDG_STATE_HOME", (m_Scratch.GetPath() / "state").c_str(), 1);
    m_Scratch.WriteBytes("bin/x_Assert00.log", "kept");
    m_Scratch.WriteBytes("bin/x_Assert01.log", "old");
    Allow("bin/x_Assert00.log", fs::perms::owner_read);
    EXPECT_EQ(Fire("bin/x.bin"), "bin/x_Assert01.log");
    EXPECT_EQ(m_Scratch.ReadBytes("bin/x_Assert00.log"), "kept");
    const std::string text = m_Scratch.ReadBytes("bin/x_Assert01.log");
    EXPECT_TRUE(text.find("Line:\t\t7\n") != std::string::npos && !text.starts_with("old")) << text;
    Allow("bin", fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_EQ(Fire("bin/y"), "state/corvane/y_Assert00.log");
    Allow("bin", fs::perms::owner_all);
    configured == nullptr ? ::unsetenv("XDG_STATE_HOME") : ::setenv("XDG_STATE_HOME", before.c_str(), 1);
}
