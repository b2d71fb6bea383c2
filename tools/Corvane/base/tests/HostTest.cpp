// The hosts that answer without a window, and the system's services.
#include "DiskFileSystem.h"
#include "ScratchDir.h"
#include "Unicode.h"
#include "host/ConsoleQuestions.h"
#include "host/ExternalChange.h"
#include "host/Interrupt.h"
#include "host/SilentQuestions.h"
#include "host/SystemServices.h"

#include <gmock/gmock.h>

#include <csignal>
#include <cstdlib>
#include <functional>

namespace
{
// What a console prints whose input is this text.
std::string Print(std::string input, bool interactive, const std::function<void(CConsoleQuestions&)>& use)
{
    char* text = nullptr;
    std::size_t size = 0;
    std::FILE* in = ::fmemopen(input.data(), input.size(), "r");
    std::FILE* out = ::open_memstream(&text, &size);
    CConsoleQuestions console(in, out, interactive);
    use(console);
    std::fclose(in);
    std::fclose(out);
    std::string printed(text, size);
    std::free(text);
    return printed;
}

CQuestion Make(EButtons buttons)
{
    return MakeQuestion(u"Save Changes", u"Save \u00fc?", buttons, EIcon::Question);
}
} // namespace

TEST(ConsoleQuestions, WithoutATerminalItSaysWhatItTakesAndReadsNothing)
{
    using Row = std::tuple<EButtons, EAnswer, const char*>;
    for (const auto& [buttons, answer, told] :
         {Row{EButtons::Ok, EAnswer::Ok, ""}, Row{EButtons::OkCancel, EAnswer::Cancel, "  Answer: Cancel\n"},
          Row{EButtons::YesNo, EAnswer::No, "  Answer: No\n"},
          Row{EButtons::YesNoCancel, EAnswer::Cancel, "  Answer: Cancel\n"},
          Row{EButtons::AbortRetryIgnore, EAnswer::Abort, "  Answer: Abort\n"}})
    {
        const CQuestion question = Make(buttons);
        EAnswer given{};
        const auto ask = [&](CConsoleQuestions& console)
        {
            given = console.Ask(question);
            const auto progress = console.CreateProgress(u"Compile Database");
            progress->SetText(u"Saving to disk...");
            EXPECT_FALSE(progress->Pump());
        };
        EXPECT_EQ(Print("y\n", false, ask), "Save Changes: Save \xC3\xBC?\n" + std::string(told));
        EXPECT_EQ(given, answer) << "what changes nothing";
    }
    CSilentQuestions silent;
    EXPECT_EQ(silent.Ask(Make(EButtons::YesNo)), EAnswer::Abort);
}

TEST(ConsoleQuestions, OnATerminalItAsksUntilItUnderstands)
{
    const auto ask = [](CConsoleQuestions& console)
    {
        EXPECT_EQ(console.Ask(Make(EButtons::YesNoCancel)), EAnswer::Yes);
        EXPECT_EQ(console.Ask(Make(EButtons::OkCancel)), EAnswer::Cancel);
        EXPECT_EQ(console.Ask(Make(EButtons::YesNo)), EAnswer::No);
        EXPECT_EQ(console.Ask(Make(EButtons::YesNo)), EAnswer::No) << "the end of the input changes nothing";
        EXPECT_EQ(console.Ask(Make(EButtons::Ok)), EAnswer::Ok) << "a message waits for nobody";
        console.SetUnattended();
        EXPECT_EQ(console.Ask(Make(EButtons::YesNo)), EAnswer::No);
    };
    const std::string question = "Save Changes: Save \xC3\xBC?\n";
    EXPECT_EQ(Print("\nperhaps\n  Y \nca\nNO\r\n", true, ask),
              question + "  (Yes/No/Cancel)   (Yes/No/Cancel)   (Yes/No/Cancel) " + question +
                  "  (OK/Cancel) " + question + "  (Yes/No) " + question + "  (Yes/No) \n" + question +
                  question + "  Answer: No\n");
}

TEST(ConsoleQuestions, QuestionsOfARefreshComeWithFileWarningAndWordsOfTheirOwn)
{
    const CQuestion deletion = MakeExternalDeletionQuestion(u"C:\\a.record");
    const auto ask = [&](CConsoleQuestions& console)
    {
        EXPECT_EQ(console.Ask(deletion), EAnswer::Yes);
        console.SetUnattended();
        EXPECT_EQ(console.Ask(MakeExternalModificationQuestion(u"b.schema")), EAnswer::No);
    };
    EXPECT_EQ(
        Print("yes\nr\n", true, ask),
        "External File Deletion: The following file has been deleted by an external application.  This file "
        "has also been checked out and/or edit since it was last loaded from disk.\n\nWould you like to "
        "remove the file from the database?\n\nC:\\a.record\n\nWARNING: Removing the file from the database "
        "will result in the loss of all memory changes made to the file.\n"
        "  (Remove From Database/Keep Memory Changes)   (Remove From Database/Keep Memory Changes) "
        "External File Modification: The following file has been modified by an external application.  This "
        "file has also been checked out and/or edit since it was last loaded from disk.\n\nWould you like "
        "to reload the file from disk or keep the contents stored in memory?\n\nb.schema\n\nWARNING: "
        "Reloading of the file from disk will result in the loss of all memory changes made to the file.\n"
        "  Answer: Keep Memory Changes\n");
    CSilentQuestions silent;
    EXPECT_EQ(silent.Ask(deletion), EAnswer::Abort);
}

TEST(ConsoleQuestions, ProgressIsOneLineThatGivesWayToMessages)
{
    const auto load = [](CConsoleQuestions& console)
    {
        const auto progress = console.CreateProgress(u"Load");
        progress->SetText(u"abc");
        progress->SetPercent(5);
        progress->SetPercent(5);
        progress->SetText(u"a");
        console.Tell(u"Error", u"x");
        progress->SetText(std::u16string(200, u'x'));
    };
    EXPECT_EQ(Print("\n", true, load),
              "\rLoad: abc  0%\rLoad: abc  5%\rLoad: a  5%  \r           \rError: x\n\rLoad: " +
                  std::string(69, 'x') + "  5%\r" + std::string(79, ' ') + "\r");
}

TEST(InterruptDeathTest, TheFirstCancelsAndTheSecondEnds)
{
    const auto run = [](int interrupts)
    {
        CInterrupt::Install();
        const auto progress = CSilentQuestions().CreateProgress(u"T");
        const bool before = progress->Pump();
        for (int i = 0; i < interrupts; ++i)
            ::raise(SIGINT);
        std::exit(!before && progress->Pump() ? 7 : 8);
    };
    EXPECT_EXIT(run(0), ::testing::ExitedWithCode(8), "");
    EXPECT_EXIT(run(1), ::testing::ExitedWithCode(7), "");
    EXPECT_EXIT(run(2), ::testing::KilledBySignal(SIGINT), "");
}

TEST(SystemServices, TellsTheTimeAndFillsTheRecycleBin)
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
    EXPECT_THAT(ToNarrow(services.GetTimeText()), testing::MatchesRegex("[0-9]{2}:[0-9]{2}:[0-9]{2}"));
    EXPECT_THAT(ToNarrow(services.GetDateText()), testing::MatchesRegex("[0-9]{2}/[0-9]{2}/[0-9]{2}"));
    EXPECT_FALSE(services.GetUserName().empty());
    EXPECT_FALSE(services.OpenInShell(u"/no/such/file"));
    EXPECT_FALSE(services.ShowInFolder(u"/no/such/file"));
    EXPECT_FALSE(services.MoveToRecycleBin(scratch.Text("db/none.record")));
    // Letter case as in a path text that another system wrote.
    EXPECT_TRUE(services.MoveToRecycleBin(scratch.Text("DB/one.record")));
    EXPECT_FALSE(scratch.Exists("db/One.record"));
    EXPECT_EQ(scratch.ReadBytes("data/Trash/files/One.record"), "content");
    EXPECT_THAT(scratch.ReadBytes("data/Trash/info/One.record.trashinfo"),
                testing::HasSubstr("db/One.record"));
    ::setenv("HOME", home.c_str(), 1);
}
