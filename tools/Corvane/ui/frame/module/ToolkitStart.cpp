#include "ToolkitStart.h"

#include "RunState.h"
#include "Theme.h"

#include <QApplication>
#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace
{
// The toolkit keeps references to these.
int g_nArguments = 1;
char g_sProgram[] = "corvane";
char* g_Arguments[] = {g_sProgram, nullptr};

void TellProblem(const QString& cause)
{
    std::fprintf(stderr, "Corvane: The user interface could not be started: %s\n", qPrintable(cause));
}

bool HasDisplay()
{
    const char* const kNames[] = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
    return std::any_of(std::begin(kNames), std::end(kNames),
                       [](const char* name) { return !qEnvironmentVariableIsEmpty(name); });
}

// The toolkit gives up by ending the process with a core dump. Nothing is open yet, so that the process may
// end here, with words and a status. The first warning tells more than the last words.
void OnMessage(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    static QString first;
    if (type != QtFatalMsg)
    {
        first = first.isEmpty() && type != QtDebugMsg ? text : first;
        return;
    }
    TellProblem(first.isEmpty() ? text : first);
    ::_exit(static_cast<int>(static_cast<unsigned>(kExitFailed) & 0xFFU));
}
} // namespace

std::unique_ptr<QApplication> StartToolkit()
{
    if (!HasDisplay())
    {
        TellProblem(QStringLiteral("there is no display, neither DISPLAY nor WAYLAND_DISPLAY is set."));
        return nullptr;
    }
    const QtMessageHandler before = qInstallMessageHandler(OnMessage);
    auto application = std::make_unique<QApplication>(g_nArguments, g_Arguments);
    qInstallMessageHandler(before);
    // The toolkit takes over the user's locale; numbers in files have one form everywhere.
    std::setlocale(LC_NUMERIC, "C");
    const QString problem = CTheme::FindFontProblem();
    if (problem.isEmpty())
        return application;
    TellProblem(problem);
    return nullptr;
}
