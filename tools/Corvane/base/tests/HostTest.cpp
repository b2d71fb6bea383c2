// The hosts that answer without a window, and the system's services.
#include "DiskFileSystem.h"
#include "ScratchDir.h"
#include "Unicode.h"
#include "host/ConsoleQuestions.h"
#include "host/Interrupt.h"
#include "host/RecordingQuestions.h"
#include "host/SilentQuestions.h"
#include "host/SystemServices.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace
{
// A console between two pipes.
class CPipedConsole
{
public:
    CPipedConsole(std::string_view input, bool interactive)
    {
        int in[2], out[2];
        EXPECT_EQ(::pipe(in), 0);
        EXPECT_EQ(::pipe(out), 0);
        EXPECT_EQ(::write(in[1], input.data(), input.size()), static_cast<ssize_t>(input.size()));
        ::close(in[1]);
        ::fcntl(out[0], F_SETFL, O_NONBLOCK);
        m_pIn = ::fdopen(in[0], "r");
        m_pOut = ::fdopen(out[1], "w");
        m_nOutput = out[0];
        m_pHost = std::make_unique<CConsoleQuestions>(m_pIn, m_pOut, interactive);
    }
    ~CPipedConsole()
    {
        std::fclose(m_pIn);
        std::fclose(m_pOut);
        ::close(m_nOutput);
    }
    CPipedConsole(const CPipedConsole&) = delete;
    CPipedConsole& operator=(const CPipedConsole&) = delete;

    CConsoleQuestions* operator->() const { return m_pHost.get(); }
    // What was printed since the last call.
    [[nodiscard]] std::string TakeOutput() const
    {
        std::string text(4096, '\0');
        const ssize_t size = ::read(m_nOutput, text.data(), text.size());
        text.resize(size < 0 ? 0 : static_cast<std::size_t>(size));
        return text;
    }

private:
    std::FILE* m_pIn = nullptr;
    std::FILE* m_pOut = nullptr;
    int m_nOutput = -1;
    std::unique_ptr<CConsoleQuestions> m_pHost;
};

CQuestion Make(EButtons buttons)
{
    return MakeQuestion(u"Save Changes", u"Save \u00fc?", buttons, EIcon::Question);
}

// A 0 in the form stands for any digit.
bool HasForm(std::u16string_view text, std::u16string_view form)
{
    return std::equal(text.begin(), text.end(), form.begin(), form.end(),
                      [](char16_t unit, char16_t expected)
                      { return expected == u'0' ? unit >= u'0' && unit <= u'9' : unit == expected; });
}
} // namespace

TEST(Questions, TheUnattendedAnswerChangesNothing)
{
    EXPECT_EQ(Make(EButtons::Ok).m_Unattended, EAnswer::Ok);
    EXPECT_EQ(Make(EButtons::OkCancel).m_Unattended, EAnswer::Cancel);
    EXPECT_EQ(Make(EButtons::YesNo).m_Unattended, EAnswer::No);
    EXPECT_EQ(Make(EButtons::YesNoCancel).m_Unattended, EAnswer::Cancel);
    EXPECT_EQ(Make(EButtons::AbortRetryIgnore).m_Unattended, EAnswer::Abort);
    CSilentQuestions silent;
    EXPECT_EQ(silent.Ask(Make(EButtons::YesNo)), EAnswer::Abort);
}

TEST(ConsoleQuestions, WithoutATerminalItSaysWhatItTakesAndReadsNothing)
{
    const CPipedConsole console("y\n", false);
    CQuestion question = Make(EButtons::YesNoCancel);
    question.m_Unattended = EAnswer::No;
    EXPECT_EQ(console->Ask(question), EAnswer::No);
    EXPECT_EQ(console.TakeOutput(), "Save Changes: Save \xC3\xBC?\n  Answer: No\n");
    EXPECT_EQ(console->Ask(Make(EButtons::AbortRetryIgnore)), EAnswer::Abort);
    EXPECT_EQ(console.TakeOutput(), "Save Changes: Save \xC3\xBC?\n  Answer: Abort\n");
    console->Tell(u"Error", u"It failed.");
    EXPECT_EQ(console.TakeOutput(), "Error: It failed.\n");
    const auto progress = console->CreateProgress(u"Compile Database");
    progress->SetText(u"Saving to disk...");
    progress->SetPercent(50);
    EXPECT_FALSE(progress->Pump());
    EXPECT_EQ(console.TakeOutput(), "");
}

TEST(ConsoleQuestions, OnATerminalItAsksUntilItUnderstands)
{
    const CPipedConsole console("\nperhaps\n  Y \nca\nNO\r\n", true);
    EXPECT_EQ(console->Ask(Make(EButtons::YesNoCancel)), EAnswer::Yes);
    EXPECT_EQ(console.TakeOutput(),
              "Save Changes: Save \xC3\xBC?\n  (Yes/No/Cancel)   (Yes/No/Cancel)   (Yes/No/Cancel) ");
    EXPECT_EQ(console->Ask(Make(EButtons::OkCancel)), EAnswer::Cancel);
    EXPECT_EQ(console->Ask(Make(EButtons::YesNo)), EAnswer::No);
    EXPECT_EQ(console->Ask(Make(EButtons::YesNo)), EAnswer::No) << "the end of the input changes nothing";
    EXPECT_EQ(console->Ask(Make(EButtons::Ok)), EAnswer::Ok) << "a message waits for nobody";
}

TEST(ConsoleQuestions, ProgressIsOneLineThatGivesWayToMessages)
{
    const CPipedConsole console("", true);
    {
        const auto progress = console->CreateProgress(u"Load");
        progress->SetText(u"abc");
        progress->SetPercent(5);
        progress->SetPercent(5);
        EXPECT_EQ(console.TakeOutput(), "\rLoad: abc  0%\rLoad: abc  5%");
        progress->SetText(u"a");
        EXPECT_EQ(console.TakeOutput(), "\rLoad: a  5%  ");
        console->Tell(u"Error", u"x");
        EXPECT_EQ(console.TakeOutput(), "\r           \rError: x\n");
        progress->SetText(std::u16string(200, u'x'));
        EXPECT_EQ(console.TakeOutput().size(), 80U);
    }
    EXPECT_EQ(console.TakeOutput(), "\r" + std::string(79, ' ') + "\r");
}

TEST(InterruptDeathTest, TheFirstCancelsAndTheSecondEnds)
{
    const auto run = [](int interrupts)
    {
        CInterrupt::Install();
        CSilentQuestions host;
        const auto progress = host.CreateProgress(u"T");
        const bool before = progress->Pump();
        for (int i = 0; i < interrupts; ++i)
            ::raise(SIGINT);
        std::exit(!before && progress->Pump() ? 7 : 8);
    };
    EXPECT_EXIT(run(0), ::testing::ExitedWithCode(8), "");
    EXPECT_EXIT(run(1), ::testing::ExitedWithCode(7), "");
    EXPECT_EXIT(run(2), ::testing::KilledBySignal(SIGINT), "");
}

TEST(RecordingQuestions, GivesPreparedAnswersAndKeepsWhatCame)
{
    CRecordingQuestions host;
    host.Prepare(u"Save Changes", {EAnswer::Cancel, EAnswer::Yes});
    EXPECT_EQ(host.Ask(Make(EButtons::YesNoCancel)), EAnswer::Cancel);
    EXPECT_EQ(host.Ask(Make(EButtons::YesNoCancel)), EAnswer::Yes);
    EXPECT_EQ(host.Ask(Make(EButtons::YesNoCancel)), EAnswer::Yes) << "the last one repeats";
    host.Tell(u"Error", u"text");
    EXPECT_EQ(host.Count(u"Save Changes"), 3U);
    EXPECT_EQ(host.GetQuestions().back().m_sText, u"text");

    host.m_Cancel = [](std::u16string_view text) { return text == u"two"; };
    const auto progress = host.CreateProgress(u"T");
    progress->SetText(u"one");
    EXPECT_FALSE(progress->Pump());
    progress->SetPercent(40);
    progress->SetText(u"two");
    EXPECT_TRUE(progress->Pump());
    progress->SetText(u"three");
    EXPECT_TRUE(progress->Pump()) << "a cancelled operation stays cancelled";
    const std::vector<std::u16string> told = {u"T: one", u"40%", u"T: two", u"T: three"};
    EXPECT_EQ(host.GetProgress(), told);
}

TEST(SystemServices, TimeDateAndUser)
{
    CDiskFileSystem files;
    CSystemServices services(files);
    const std::u16string time = services.GetTimeText();
    const std::u16string date = services.GetDateText();
    EXPECT_TRUE(HasForm(time, u"00:00:00")) << ToNarrow(time);
    EXPECT_TRUE(HasForm(date, u"00/00/00")) << ToNarrow(date);
    EXPECT_FALSE(services.GetUserName().empty());
    EXPECT_FALSE(services.OpenInShell(u"/no/such/file"));
}

TEST(SystemServices, TheRecycleBinKeepsTheFileAndItsOrigin)
{
    // The bin of a user lies on the disk of the home directory, so that both move to the scratch directory.
    // The desktop's library reads them once, at its first use, which is here.
    const CScratchDir scratch;
    const std::string home = std::getenv("HOME") != nullptr ? std::getenv("HOME") : "";
    ::setenv("HOME", scratch.GetPath().c_str(), 1);
    ::setenv("XDG_DATA_HOME", (scratch.GetPath() / "data").c_str(), 1);
    scratch.WriteBytes("db/One.record", "content");

    CDiskFileSystem files;
    CSystemServices services(files);
    EXPECT_FALSE(services.MoveToRecycleBin(scratch.Text("db/none.record")));
    // Letter case as in a path text that another system wrote.
    EXPECT_TRUE(services.MoveToRecycleBin(scratch.Text("DB/one.record")));
    EXPECT_FALSE(scratch.Exists("db/One.record"));
    EXPECT_EQ(scratch.ReadBytes("data/Trash/files/One.record"), "content");
    EXPECT_NE(scratch.ReadBytes("data/Trash/info/One.record.trashinfo").find("db/One.record"),
              std::string::npos);
    ::setenv("HOME", home.c_str(), 1);
}
