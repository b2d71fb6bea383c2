// The command that a database may name to be run after a compile.
//
// A worker thread waits for the process and touches nothing else; everything that is shown is shown by the
// main thread, which calls all of this. The object may go while a step still runs: the step goes on, and
// nobody hears of its outcome.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class IFileSystem;
class IQuestions;

class CPostBuildStep
{
public:
    CPostBuildStep();
    ~CPostBuildStep();
    CPostBuildStep(const CPostBuildStep&) = delete;
    CPostBuildStep& operator=(const CPostBuildStep&) = delete;

    // Starts `command` in `directory` without a shell and waits for it, at most the time that is set, while
    // the host handles its input. `stop` is asked between; true ends the waiting, not the step. A failure
    // that is known by then is told.
    void Run(IFileSystem& files, IQuestions& questions, std::u16string_view command,
             std::u16string_view directory, const std::function<bool()>& stop = {});
    // Tells the failures of steps that ended after their Run had returned.
    void TellOutcomes(IQuestions& questions);
    // The command of the oldest step that still runs; empty text for none.
    [[nodiscard]] std::u16string GetRunningCommand() const;
    void SetWait(int milliseconds) { m_nWait = milliseconds; }

private:
    struct SStep;

    std::vector<std::shared_ptr<SStep>> m_Steps; // Those whose outcome was not looked at yet.
    int m_nWait = 30000;
};
