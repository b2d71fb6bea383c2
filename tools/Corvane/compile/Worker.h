// Runs a walk that only reads the database, under a progress that the user can cancel.
//
// Under a host with a window the walk has a thread of its own, so that the main thread can handle the host's
// input; without one it runs on the caller's thread. Either way the call returns when the walk has ended, and
// nobody may change the database until then. A worker asks the user nothing, takes no reference to an object
// of the database and leaves the file layer alone: all three belong to the main thread.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

class IQuestions;

// The result of a worker that was given nothing to work on; 0, kExitFailed and kResultCancelled are the
// others.
inline constexpr std::int32_t kResultNoParameters = static_cast<std::int32_t>(0x80004003);

// What a worker tells while it runs, and where it hears of a cancel. For the worker's thread alone.
class IWorkerEvents
{
public:
    virtual ~IWorkerEvents() = default;
    virtual void SetStatus(std::u16string_view text) = 0;
    // 0 to 100.
    virtual void SetPosition(int percent) = 0;
    // True once the user has cancelled, and for the rest of the run.
    [[nodiscard]] virtual bool IsCancelled() = 0;
};

// Negative results are failures. They are the worker's own, also after a cancel that came too late for it.
// What the worker throws arrives at the caller.
using FWorker = std::function<std::int32_t(IWorkerEvents&)>;
[[nodiscard]] std::int32_t RunWorker(IQuestions& host, std::u16string_view title, const FWorker& worker);

// Runs workers in the place of RunWorker: a user interface with a progress of its own.
class IWorkerRunner
{
public:
    [[nodiscard]] virtual std::int32_t Run(std::u16string_view title, const FWorker& worker) = 0;

protected:
    ~IWorkerRunner() = default;
};
// Through `runner`, or without one through the host.
[[nodiscard]] std::int32_t RunWorker(IQuestions& host, IWorkerRunner* runner, std::u16string_view title,
                                     const FWorker& worker);
