#include "PostBuildStep.h"

#include "FormatText.h"
#include "Process.h"
#include "host/Questions.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>

namespace
{
constexpr std::u16string_view kTitle = u"Post Build Step";
constexpr std::chrono::milliseconds kBetweenPumps(20);

// A relative command stands behind the directory of the tools, which the database's author does not know:
// blanks in that directory must not split it.
std::u16string QuoteDirectory(std::u16string_view command, std::u16string_view directory)
{
    std::u16string quoted(command);
    if (directory.find(u' ') == std::u16string_view::npos || command.substr(0, directory.size()) != directory)
        return quoted;
    if (command.substr(directory.size(), 1) == u"\"")
        quoted.erase(directory.size(), 1); // The author's own quotes now begin ahead of the directory.
    else
        quoted.insert(std::min(command.find(u' ', directory.size()), command.size()), 1, u'"');
    quoted.insert(0, 1, u'"');
    return quoted;
}
} // namespace

// Shared by the main thread and the worker, and freed by whichever lets go of it last.
struct CPostBuildStep::SStep
{
    explicit SStep(std::u16string_view command) : m_sCommand(command) {}

    void End(std::optional<int> exitCode)
    {
        const std::lock_guard lock(m_Mutex);
        m_bEnded = true;
        m_nExitCode = exitCode;
        m_Ended.notify_all();
    }
    [[nodiscard]] bool WaitForEnd(std::chrono::milliseconds time)
    {
        std::unique_lock lock(m_Mutex);
        return m_Ended.wait_for(lock, time, [this] { return m_bEnded; });
    }
    [[nodiscard]] bool HasEnded()
    {
        const std::lock_guard lock(m_Mutex);
        return m_bEnded;
    }

    const std::u16string m_sCommand;
    std::mutex m_Mutex;
    std::condition_variable m_Ended;
    bool m_bEnded = false;
    std::optional<int> m_nExitCode; // Nothing when it could not be read.
};

CPostBuildStep::CPostBuildStep() = default;
CPostBuildStep::~CPostBuildStep() = default;

void CPostBuildStep::Run(IFileSystem& files, IQuestions& questions, std::u16string_view command,
                         std::u16string_view directory, const std::function<bool()>& stop)
{
    // The file layer serves one thread, so that the process is started here and only waited for elsewhere.
    CProcess process;
    std::u16string error;
    if (!process.Start(files, QuoteDirectory(command, directory), directory, error))
    {
        questions.Tell(kTitle, FormatText(u"Failed to execute %s.", kTitle), EIcon::Stop);
        return;
    }
    const auto step = std::make_shared<SStep>(command);
    m_Steps.push_back(step);
    try
    {
        std::thread([step, process]() mutable { step->End(process.Wait()); }).detach();
    }
    catch (const std::system_error&)
    {
        step->End(std::nullopt); // Without a thread nobody can wait for the process.
    }

    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(m_nWait);
    while (!step->WaitForEnd(kBetweenPumps) && std::chrono::steady_clock::now() < deadline &&
           !(stop && stop()))
        questions.PumpMessages();
    TellOutcomes(questions);
}

void CPostBuildStep::TellOutcomes(IQuestions& questions)
{
    const auto firstEnded = std::stable_partition(m_Steps.begin(), m_Steps.end(),
                                                  [](const auto& step) { return !step->HasEnded(); });
    // They leave the list before anything is shown, because a message box may bring us here again.
    const std::vector<std::shared_ptr<SStep>> ended(firstEnded, m_Steps.end());
    m_Steps.erase(firstEnded, m_Steps.end());
    for (const std::shared_ptr<SStep>& step : ended)
    {
        if (!step->m_nExitCode)
            questions.Tell(kTitle, FormatText(u"%s operation failed", kTitle), EIcon::Stop);
        else if (*step->m_nExitCode != 0)
            questions.Tell(kTitle,
                           FormatText(u"%s operation failed with exit code: %d", kTitle, *step->m_nExitCode),
                           EIcon::Stop);
    }
}

std::u16string CPostBuildStep::GetRunningCommand() const
{
    const auto running =
        std::find_if(m_Steps.begin(), m_Steps.end(), [](const auto& step) { return !step->HasEnded(); });
    return running == m_Steps.end() ? std::u16string() : (*running)->m_sCommand;
}
