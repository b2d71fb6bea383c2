#include "ProgressModalDlg.h"
#include "DialogDrive.h"
#include "RunState.h"
#include "TestDatabase.h"

#include <QLabel>
#include <QProgressBar>
#include <atomic>
#include <stdexcept>
#include <thread>

TEST(ProgressModalDlg, ShowsWhatTheWorkerTellsAndStaysUntilItHasHeardOfTheCancel)
{
    std::atomic<bool> seen{false};
    const auto worker = [&](IWorkerEvents& events)
    {
        events.SetStatus(u"Half way");
        for (int i = 0; i <= 100050; ++i)
            events.SetPosition(i % 100);
        while (!seen)
            std::this_thread::yield();
        return events.IsCancelled() ? kResultCancelled : kExitOk;
    };
    CProgressModalDlg dialog({}, worker, nullptr);
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Performing operation..."));
    EXPECT_EQ(GetChild<QLabel>(dialog, "Status").text(), QStringLiteral("Initializing..."));
    QTimer watch;
    const auto user = [&]
    {
        if (GetChild<QLabel>(dialog, "Status").text() != QStringLiteral("Half way") ||
            GetChild<QProgressBar>(dialog, "Progress").value() != 50)
            return;
        dialog.close();
        EXPECT_TRUE(dialog.isVisible());
        watch.stop(); // The worker may end before the next turn.
        seen = true;
    };
    QObject::connect(&watch, &QTimer::timeout, &dialog, user);
    watch.start(1);
    EXPECT_EQ(dialog.Run(), kResultCancelled);
}

TEST(ProgressModalDlg, HandsOnWhatIsThrownAndMissesNoCallback)
{
    CModalWorkerRunner runner(nullptr);
    const FWorker thrower = [](IWorkerEvents&) -> std::int32_t { throw std::runtime_error("worker"); };
    EXPECT_THROW(static_cast<void>(runner.Run(u"Work", thrower)), std::runtime_error);
    const CAssertCapture asserts;
    EXPECT_EQ(runner.Run(u"Work", nullptr), kResultNoParameters);
    EXPECT_TRUE(asserts.Has("m_pCallback"));
}
