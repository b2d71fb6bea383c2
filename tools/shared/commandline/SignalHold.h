// Keeps the signals that end a run away while a file is being replaced, so that no half of it stays behind.
// One that comes meanwhile ends the run at the end of the scope. For the main thread.
#pragma once

#include <csignal>
#include <initializer_list>

class CSignalHold
{
public:
    explicit CSignalHold(std::initializer_list<int> signals = {SIGINT, SIGTERM, SIGHUP})
    {
        sigset_t held;
        sigemptyset(&held);
        for (const int signal : signals)
            sigaddset(&held, signal);
        ::pthread_sigmask(SIG_BLOCK, &held, &m_Before);
    }
    ~CSignalHold() { ::pthread_sigmask(SIG_SETMASK, &m_Before, nullptr); }
    CSignalHold(const CSignalHold&) = delete;
    CSignalHold& operator=(const CSignalHold&) = delete;

private:
    sigset_t m_Before;
};
