#include "PostBuildStep.h"
#include "CompileFixture.h"

#include <chrono>
#include <thread>

namespace
{
class CPostBuildStepTest : public ::testing::Test
{
protected:
    std::vector<std::u16string> Run(std::u16string_view command)
    {
        m_Step.Run(m_Files, m_Questions, command, m_Scratch.Text(""));
        return GetTold();
    }
    std::vector<std::u16string> GetTold() const
    {
        std::vector<std::u16string> told;
        for (const CQuestion& question : m_Questions.GetQuestions())
            told.push_back(question.m_sTitle + u": " + question.m_sText);
        return told;
    }
    // Waits until no step runs.
    void WaitForSteps() const
    {
        for (int i = 0; i < 1000 && !m_Step.GetRunningCommand().empty(); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }

    CScratchDir m_Scratch;
    CDiskFileSystem m_Files;
    CRecordingQuestions m_Questions;
    CPostBuildStep m_Step;
};

using Told = std::vector<std::u16string>;

TEST_F(CPostBuildStepTest, RunsInItsDirectoryAndTellsFailures)
{
    EXPECT_EQ(Run(u"/bin/sh -c \"echo done > made.txt\""), Told{});
    EXPECT_EQ(m_Scratch.ReadBytes("made.txt"), "done\n");
    EXPECT_EQ(m_Step.GetRunningCommand(), u"");
    EXPECT_EQ(Run(u"/bin/sh -c \"exit 3\""),
              Told{u"Post Build Step: Post Build Step operation failed with exit code: 3"});
    m_Questions.Clear();
    EXPECT_EQ(Run(u"corvane-no-such-program"), Told{u"Post Build Step: Failed to execute Post Build Step."});
    EXPECT_EQ(m_Step.GetRunningCommand(), u"");
}

// The directory of the tools is not the author's choice, so that a blank in it splits nothing.
TEST_F(CPostBuildStepTest, TakesADirectoryWithBlanks)
{
    m_Scratch.WriteBytes("my tools/the tool", "#!/bin/sh\necho \"$1\" > \"$2\"\n");
    std::filesystem::permissions(m_Scratch.GetPath() / "my tools/the tool",
                                 std::filesystem::perms::owner_all);
    std::filesystem::create_symlink("the tool", m_Scratch.GetPath() / "my tools/tool");
    const std::u16string directory = m_Scratch.Text("my tools/");
    m_Step.Run(m_Files, m_Questions, directory + u"tool one a", directory);
    m_Step.Run(m_Files, m_Questions, directory + u"\"the tool\" two b", directory);
    EXPECT_EQ(GetTold(), Told{});
    EXPECT_EQ(m_Scratch.ReadBytes("my tools/a") + m_Scratch.ReadBytes("my tools/b"), "one\ntwo\n");
}

TEST_F(CPostBuildStepTest, SlowStepIsNamedAndToldWhenItEnds)
{
    const std::u16string slow = u"/bin/sh -c \"while [ ! -e go ]; do sleep 0.01; done; exit 4\"";
    m_Step.SetWait(0);
    EXPECT_EQ(Run(slow), Told{});
    EXPECT_EQ(m_Step.GetRunningCommand(), slow);
    m_Step.TellOutcomes(m_Questions);
    EXPECT_EQ(GetTold(), Told{});

    m_Step.SetWait(30000);
    EXPECT_EQ(Run(u"/bin/sh -c \"exit 5\"").size(), 1u) << "A second step does not wait for the first.";
    EXPECT_EQ(m_Step.GetRunningCommand(), slow);

    m_Scratch.WriteBytes("go", "");
    WaitForSteps();
    m_Questions.Clear();
    m_Step.TellOutcomes(m_Questions);
    m_Step.TellOutcomes(m_Questions);
    EXPECT_EQ(GetTold(), Told{u"Post Build Step: Post Build Step operation failed with exit code: 4"});
}

TEST_F(CPostBuildStepTest, StepOutlivesTheObjectThatStartedIt)
{
    {
        CPostBuildStep step;
        step.SetWait(0);
        step.Run(m_Files, m_Questions, u"/bin/sh -c \"sleep 0.1; echo late > late.txt\"", m_Scratch.Text(""));
    }
    for (int i = 0; i < 500 && !m_Scratch.Exists("late.txt"); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_TRUE(m_Scratch.Exists("late.txt"));
}

class CCompileStepTest : public CCompileFixture
{
};

TEST_F(CCompileStepTest, RunsAfterEveryCompileThatReachedItAndNeverChangesTheResult)
{
    WriteRoot("PostBuildStep=no-such-step\n");
    const std::u16string box = u"Post Build Step: Failed to execute Post Build Step.";
    EXPECT_TRUE(Compile());
    EXPECT_EQ(GetBoxes(), std::vector{box});

    SetCreatorMode("refuse-database");
    EXPECT_FALSE(Compile());
    EXPECT_EQ(GetBoxes(), (std::vector<std::u16string>{u"Error: Failed to create new database.", box}));

    SetCreatorMode("");
    m_Questions.m_Cancel = [](std::u16string_view text) { return text == u"Compiling Attributes..."; };
    EXPECT_FALSE(Compile());
    EXPECT_EQ(GetBoxes(), std::vector{box});

    m_Questions.m_Cancel = nullptr;
    SetCreatorMode("null");
    EXPECT_FALSE(Compile());
    EXPECT_EQ(GetBoxes(), std::vector<std::u16string>{u"Error: Failed to locate the Game Database library."});
}
} // namespace
