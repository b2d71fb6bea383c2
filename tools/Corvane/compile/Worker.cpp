#include "Worker.h"

#include "host/Questions.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <memory>
#include <mutex>
#include <string>
#include <system_error>
#include <thread>

namespace
{
constexpr std::chrono::milliseconds kBetweenPumps(20);

// The worker and the progress share one thread.
class CDirectEvents final : public IWorkerEvents
{
public:
    explicit CDirectEvents(IProgress& progress) : m_Progress(progress) {}

    void SetStatus(std::u16string_view text) override { m_Progress.SetText(text); }
    void SetPosition(int percent) override
    {
        if (percent == m_nPercent)
            return;
        m_nPercent = percent;
        m_Progress.SetPercent(percent);
    }
    [[nodiscard]] bool IsCancelled() override
    {
        m_bCancelled = m_bCancelled || m_Progress.Pump();
        return m_bCancelled;
    }

private:
    IProgress& m_Progress;
    int m_nPercent = -1;
    bool m_bCancelled = false;
};

// What a worker's thread leaves for the main thread to show. Only the last text and position are kept: the
// progress shows no more.
class CPostedEvents final : public IWorkerEvents
{
public:
    void SetStatus(std::u16string_view text) override
    {
        const std::lock_guard lock(m_Mutex);
        m_sStatus = text;
        m_bNewStatus = true;
    }
    void SetPosition(int percent) override { m_nPercent.store(percent, std::memory_order_relaxed); }
    [[nodiscard]] bool IsCancelled() override { return m_bCancelled.load(std::memory_order_relaxed); }

    // The rest is the main thread's.
    void Cancel() { m_bCancelled.store(true, std::memory_order_relaxed); }
    void Show(IProgress& progress)
    {
        if (std::u16string status; TakeStatus(status))
            progress.SetText(status);
        const int percent = m_nPercent.load(std::memory_order_relaxed);
        if (percent == m_nShown)
            return;
        m_nShown = percent;
        progress.SetPercent(percent);
    }

private:
    [[nodiscard]] bool TakeStatus(std::u16string& status)
    {
        const std::lock_guard lock(m_Mutex);
        if (!m_bNewStatus)
            return false;
        m_bNewStatus = false;
        status = m_sStatus;
        return true;
    }

    std::mutex m_Mutex;
    std::u16string m_sStatus;
    bool m_bNewStatus = false;
    std::atomic<int> m_nPercent{-1};
    int m_nShown = -1;
    std::atomic<bool> m_bCancelled{false};
};

class CWorkerThread
{
public:
    // Throws std::system_error when the system has no thread to give.
    explicit CWorkerThread(const FWorker& worker) : m_Thread([this, &worker] { RunHere(worker); }) {}
    // A main thread that leaves early takes its worker along.
    ~CWorkerThread()
    {
        m_Events.Cancel();
        if (m_Thread.joinable())
            m_Thread.join();
    }
    CWorkerThread(const CWorkerThread&) = delete;
    CWorkerThread& operator=(const CWorkerThread&) = delete;

    [[nodiscard]] std::int32_t WaitFor(IProgress& progress)
    {
        do
        {
            m_Events.Show(progress);
            if (progress.Pump())
                m_Events.Cancel();
        } while (!HasEndedWithin(kBetweenPumps));
        m_Thread.join();
        m_Events.Show(progress);
        if (m_pThrown)
            std::rethrow_exception(m_pThrown);
        return m_nResult;
    }

private:
    void RunHere(const FWorker& worker)
    {
        try
        {
            m_nResult = worker(m_Events);
        }
        catch (...)
        {
            m_pThrown = std::current_exception();
        }
        const std::lock_guard lock(m_Mutex);
        m_bEnded = true;
        m_Ended.notify_all();
    }
    [[nodiscard]] bool HasEndedWithin(std::chrono::milliseconds time)
    {
        std::unique_lock lock(m_Mutex);
        return m_Ended.wait_for(lock, time, [this] { return m_bEnded; });
    }

    CPostedEvents m_Events;
    std::mutex m_Mutex;
    std::condition_variable m_Ended;
    bool m_bEnded = false;
    std::int32_t m_nResult = 0;
    std::exception_ptr m_pThrown;
    std::thread m_Thread; // Last, since it uses all of the above from its first moment.
};

std::unique_ptr<CWorkerThread> StartThread(const FWorker& worker)
{
    try
    {
        return std::make_unique<CWorkerThread>(worker);
    }
    catch (const std::system_error&)
    {
        return nullptr;
    }
}
} // namespace

std::int32_t RunWorker(IQuestions& host, std::u16string_view title, const FWorker& worker)
{
    const std::unique_ptr<IProgress> progress = host.CreateProgress(title);
    if (const auto thread = host.HasWindow() ? StartThread(worker) : nullptr)
        return thread->WaitFor(*progress);
    CDirectEvents events(*progress);
    return worker(events);
}

std::int32_t RunWorker(IQuestions& host, IWorkerRunner* runner, std::u16string_view title,
                       const FWorker& worker)
{
    return runner ? runner->Run(title, worker) : RunWorker(host, title, worker);
}
