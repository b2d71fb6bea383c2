#include "Worker.h"

#include "RunState.h"
#include "Unicode.h"
#include "host/RecordingQuestions.h"

#include <gtest/gtest.h>

#include <chrono>
#include <stdexcept>
#include <thread>

namespace
{
// Under a host with a window, and without one.
class CWorkerTest : public ::testing::TestWithParam<bool>
{
protected:
    CWorkerTest() { m_Questions.m_bWindow = GetParam(); }

    CRecordingQuestions m_Questions;
};
INSTANTIATE_TEST_SUITE_P(Host, CWorkerTest, ::testing::Bool());

TEST_P(CWorkerTest, RunsWhereTheHostsInputAllowsAndShowsItsLastWord)
{
    std::thread::id thread;
    const auto work = [&](IWorkerEvents& events)
    {
        thread = std::this_thread::get_id();
        events.SetStatus(u"Walking...");
        for (int i = 0; i <= 100; ++i)
            events.SetPosition(i);
        return events.IsCancelled() ? -1 : 7;
    };
    EXPECT_EQ(RunWorker(m_Questions, u"Walk", work), 7);
    EXPECT_EQ(thread == std::this_thread::get_id(), !GetParam());
    ASSERT_GE(m_Questions.GetProgress().size(), 2U);
    EXPECT_EQ(m_Questions.GetProgress().front(), u"Walk: Walking...");
    EXPECT_EQ(m_Questions.GetProgress().back(), u"100%");
}

TEST_P(CWorkerTest, CancelReachesTheWorkerAndStays)
{
    int asked = 0;
    m_Questions.m_Cancel = [&asked](std::u16string_view) { return ++asked == 2; };
    const auto work = [](IWorkerEvents& events)
    {
        while (!events.IsCancelled())
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        return events.IsCancelled() ? kResultCancelled : kExitOk;
    };
    EXPECT_EQ(RunWorker(m_Questions, u"Walk", work), kResultCancelled);
    // A cancel is of one run.
    m_Questions.m_Cancel = nullptr;
    EXPECT_EQ(RunWorker(m_Questions, u"Walk",
                        [](IWorkerEvents& events)
                        { return events.IsCancelled() ? kResultCancelled : kExitOk; }),
              kExitOk);
}

TEST_P(CWorkerTest, WhatEitherSideThrowsArrivesAndLeavesNoThread)
{
    const auto fail = [](IWorkerEvents&) -> std::int32_t { throw std::runtime_error("worker"); };
    EXPECT_THROW(static_cast<void>(RunWorker(m_Questions, u"Walk", fail)), std::runtime_error);
    m_Questions.m_Cancel = [](std::u16string_view) -> bool { throw std::logic_error("host"); };
    const auto work = [](IWorkerEvents& events)
    {
        while (!events.IsCancelled())
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        return kResultCancelled;
    };
    EXPECT_THROW(static_cast<void>(RunWorker(m_Questions, u"Walk", work)), std::logic_error);
}
} // namespace
