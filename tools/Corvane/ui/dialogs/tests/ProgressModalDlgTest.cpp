#include "ProgressModalDlg.h"
#include "DialogDrive.h"
#include "OverrideOutput.h"
#include "RunState.h"
#include "TestDatabase.h"

#include <QLabel>
#include <QProgressBar>
#include <atomic>
#include <stdexcept>
#include <thread>

namespace
{
// Waits for the main thread, which has the dialog.
void WaitFor(const std::atomic<bool>& flag)
{
    while (!flag.load())
        std::this_thread::yield();
}
} // namespace

TEST(ProgressModalDlg, ShowsWhatTheWorkerTellsAndClosesWithItsResult)
{
    std::atomic<bool> seen{false};
    CProgressModalDlg dialog(
        QStringLiteral("Work"),
        [&](IWorkerEvents& events)
        {
            events.SetStatus(u"Half way");
            for (int i = 0; i < 100000; ++i)
                events.SetPosition(i % 51);
            events.SetPosition(50);
            WaitFor(seen);
            return 17;
        },
        nullptr);
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &dialog,
                     [&]
                     {
                         seen = GetChild<QLabel>(dialog, "Status").text() == QStringLiteral("Half way") &&
                                GetChild<QProgressBar>(dialog, "Progress").value() == 50;
                     });
    watch.start(1);
    EXPECT_EQ(GetChild<QLabel>(dialog, "Status").text(), QStringLiteral("Initializing..."));
    EXPECT_EQ(dialog.Run(), 17);
    EXPECT_FALSE(dialog.isVisible());
}

TEST(ProgressModalDlg, StaysUntilTheWorkerHasHeardOfTheCancel)
{
    std::atomic<bool> asked{false};
    CProgressModalDlg dialog(
        {},
        [&](IWorkerEvents& events)
        {
            WaitFor(asked);
            return events.IsCancelled() ? kResultCancelled : kExitOk;
        },
        nullptr);
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Performing operation..."));
    QTimer::singleShot(0, &dialog,
                       [&]
                       {
                           dialog.close();
                           EXPECT_TRUE(dialog.isVisible());
                           asked = true;
                       });
    EXPECT_EQ(dialog.Run(), kResultCancelled);
}

TEST(ProgressModalDlg, HandsOnWhatIsThrownAndMissesNoCallback)
{
    CModalWorkerRunner runner(nullptr);
    EXPECT_THROW(static_cast<void>(runner.Run(
                     u"Work", [](IWorkerEvents&) -> std::int32_t { throw std::runtime_error("worker"); })),
                 std::runtime_error);
    const CAssertCapture asserts;
    EXPECT_EQ(runner.Run(u"Work", nullptr), kResultNoParameters);
    EXPECT_TRUE(asserts.Has("m_pCallback"));
}

TEST(ProgressModalDlg, CarriesTheOverrideOutput)
{
    CTestDatabase database;
    ASSERT_TRUE(database.Open());
    const std::size_t shown = database.m_Questions.GetProgress().size();
    CModalWorkerRunner runner(nullptr);
    COverrideOutput output(database.Get(), &runner);
    // There is no library.
    EXPECT_FALSE(output.CreateOverrideOutput({database.GetText("a.txt"), database.GetText("b.dat")}, 0));
    EXPECT_EQ(database.GetTitles(), "Compile Error;");
    EXPECT_EQ(database.m_Questions.GetProgress().size(), shown) << "The host showed a progress of its own.";
}
