#include "host/Interrupt.h"

#include <csignal>

namespace
{
volatile std::sig_atomic_t g_bRaised = 0;

extern "C" void OnInterrupt(int)
{
    g_bRaised = 1;
}
} // namespace

void CInterrupt::Install()
{
    struct sigaction before = {};
    // A run in the background was started to ignore interrupts and goes on doing so.
    if (::sigaction(SIGINT, nullptr, &before) == 0 && before.sa_handler == SIG_IGN)
        return;
    struct sigaction action = {};
    action.sa_handler = &OnInterrupt;
    // A blocked read shall return, so that a question at the terminal ends too; hence no SA_RESTART.
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    ::sigaction(SIGINT, &action, nullptr);
}

bool CInterrupt::IsRaised()
{
    return g_bRaised != 0;
}
