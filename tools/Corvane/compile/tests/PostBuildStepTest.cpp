#include "PostBuildStep.h"
#include "CompileFixture.h"

#include <chrono>
#include <functional>
#include <thread>

namespace
{
class CPostBuildStepTest : public ::testing::Test
{
protected:
    // What a step in this directory of the scratch directory tells before its Run returns.
    std::u16string Run(CPostBuildStep& step, std::u16string_view command, std::string_view directory = "")
    {
        step.Run(m_Files, m_Questions, command, m_Scratch.Text(directory));
        return TakeTold();
    }
    std::u16string TakeTold()
    {
        std::u16string told;
        for (const CQuestion& question : m_Questions.GetQuestions())
            told += question.m_sTitle + u": " + question.m_sText;
        m_Questions.Clear();
        return told;
    }
    static bool WaitFor(const std::function<bool()>& condition)
    {
        for (int i = 0; i < 1000 && !condition(); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        return condition();
    }

    CScratchDir m_Scratch;
    CDiskFileSystem m_Files;
    CRecordingQuestions m_Questions;
};

TEST_F(CPostBuildStepTest, RunsInItsDirectoryAndTellsFailures)
{
    CPostBuildStep step;
    EXPECT_EQ(Run(step, u"/bin/sh -c \"echo done > made.txt\""), u"");
    EXPECT_EQ(m_Scratch.ReadBytes("made.txt"), "done\n");
    EXPECT_EQ(Run(step, u"/bin/sh -c \"exit 3\""),
              u"Post Build Step: Post Build Step operation failed with exit code: 3");
    EXPECT_EQ(Run(step, u"corvane-no-such-program"), u"Post Build Step: Failed to execute Post Build Step.");
    EXPECT_EQ(step.GetRunningCommand(), u"");
    // The directory of the tools is not the author's choice, so that a blank in it splits nothing.
    m_Scratch.WriteBytes("my tools/the tool", "#!/bin/sh\necho \"$1\" > \"$2\"\n");
    const std::filesystem::path tool = m_Scratch.GetPath() / "my tools/the tool";
    std::filesystem::permissions(tool, std::filesystem::perms::owner_all);
    std::filesystem::create_symlink("the tool", m_Scratch.GetPath() / "my tools/tool");
    const std::u16string directory = m_Scratch.Text("my tools/");
    EXPECT_EQ(Run(step, directory + u"tool one a", "my tools/"), u"");
    EXPECT_EQ(Run(step, directory + u"\"the tool\" two b", "my tools/"), u"");
    EXPECT_EQ(m_Scratch.ReadBytes("my tools/a") + m_Scratch.ReadBytes("my tools/b"), "one\ntwo\n");
}

TEST_F(CPostBuildStepTest, SlowStepIsNamedToldWhenItEndsAndOutlivesItsOwner)
{
    const std::u16string slow = u"/bin/sh -c \"while [ ! -e go ]; do sleep 0.01; done; exit 4\"";
    CPostBuildStep step;
    step.SetWait(0);
    EXPECT_EQ(Run(step, slow), u"");
    step.TellOutcomes(m_Questions);
    EXPECT_EQ(TakeTold(), u"");
    step.SetWait(30000);
    EXPECT_NE(Run(step, u"/bin/sh -c \"exit 5\""), u"") << "A second step does not wait for the first.";
    EXPECT_EQ(step.GetRunningCommand(), slow);
    auto owner = std::make_unique<CPostBuildStep>();
    const std::u16string late = u"/bin/sh -c \"while [ ! -e go ]; do sleep 0.01; done; echo > late\"";
    const auto before = std::chrono::steady_clock::now();
    owner->Run(m_Files, m_Questions, late, m_Scratch.Text(""), [] { return true; });
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(20))
        << "A cancel ends the wait.";
    owner.reset();
    m_Scratch.WriteBytes("go", "");
    EXPECT_TRUE(WaitFor([&] { return step.GetRunningCommand().empty() && m_Scratch.Exists("late"); }));
    step.TellOutcomes(m_Questions);
    step.TellOutcomes(m_Questions);
    EXPECT_EQ(TakeTold(), u"Post Build Step: Post Build Step operation failed with exit code: 4");
}

using CCompileStepTest = CCompileFixture;

TEST_F(CCompileStepTest, RunsAfterEveryCompileThatReachedItAndNeverChangesTheResult)
{
    WriteRoot("PostBuildStep=no-such-step\n");
    const std::string box = "; Post Build Step: Failed to execute Post Build Step.";
    SetCreatorMode("refuse database");
    EXPECT_EQ(Compile(), "failed, old -9; Error: Failed to create new database." + box);
    SetCreatorMode("refuse export");
    EXPECT_EQ(Compile(), "failed, old; Error: Failed to locate the Game Database library.");
    SetCreatorMode("");
    EXPECT_EQ(Compile(), "built new 8 20 21 22 23 24 25 9" + box);
    m_Questions.m_Cancel = [](std::u16string_view text) { return text == u"Compiling Attributes..."; };
    EXPECT_EQ(Compile(), "failed, new 8 20 21 22 23 24 -9" + box);
}
} // namespace
