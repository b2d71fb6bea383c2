#include "SignalCloser.h"

#include <QApplication>
#include <QSocketNotifier>
#include <QWidget>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace
{
constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};
int g_Pipe[2] = {-1, -1};

// A full pipe means that the window hears of it anyway.
void OnSignal(int)
{
    const char byte = 0;
    static_cast<void>(!::write(g_Pipe[1], &byte, 1));
}

// A signal that the program was started to ignore stays ignored.
void Catch(int signal)
{
    struct sigaction action = {};
    if (::sigaction(signal, nullptr, &action) != 0 || action.sa_handler == SIG_IGN)
        return;
    action = {};
    action.sa_handler = OnSignal;
    // A second one ends the process, as it does everywhere else in the program.
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    ::sigaction(signal, &action, nullptr);
}

void CatchAll()
{
    for (const int signal : kSignals)
        Catch(signal);
}
} // namespace

CSignalCloser::CSignalCloser(QWidget& window)
{
    if (::pipe2(g_Pipe, O_CLOEXEC | O_NONBLOCK) != 0)
        return; // Signals then end the process as they do by themselves.
    m_pNotifier = new QSocketNotifier(g_Pipe[0], QSocketNotifier::Read, this);
    connect(m_pNotifier, &QSocketNotifier::activated, this,
            [&window]
            {
                char bytes[16];
                static_cast<void>(!::read(g_Pipe[0], bytes, sizeof bytes));
                const bool asks = QApplication::activeModalWidget() == nullptr;
                if (!window.close() && asks)
                    CatchAll(); // The user wants to go on, and will be asked again.
            });
    CatchAll();
}

CSignalCloser::~CSignalCloser()
{
    if (m_pNotifier == nullptr)
        return;
    for (const int signal : kSignals)
        std::signal(signal, SIG_DFL);
    delete m_pNotifier;
    for (int& end : g_Pipe)
        ::close(std::exchange(end, -1));
}
