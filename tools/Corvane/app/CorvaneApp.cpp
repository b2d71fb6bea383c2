#include "CorvaneApp.h"

#include "CorvaneDoc.h"
#include "FormatText.h"
#include "Path.h"
#include "ProgramStart.h"
#include "host/Interrupt.h"

#include <csignal>

namespace
{
constexpr std::size_t kLongestPath = 259;

sigset_t GetEndSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    return signals;
}
} // namespace

CCorvaneApp::CCorvaneApp()
    : m_Questions(m_Console), m_Session(m_Questions), m_Files(m_Session.GetFiles()),
      m_Profile(m_Session.GetProfile()), m_Run(m_Session.GetRun()), m_Manager(m_Session.GetManager())
{
}

CCorvaneApp::~CCorvaneApp() = default;

bool CCorvaneApp::InitInstance(std::span<const std::u16string> arguments)
{
    m_RecentFiles.Load(m_Profile);
    m_SettingsHandle =
        m_Run.m_Settings.Add([this](ESettingsEvent event, std::u16string_view) { return OnSettings(event); });
    LoadGeneralSettings();
    LoadBuildSettings();

    m_CommandLine.ParseCommandLine(m_Files, arguments);
    m_Run.m_bSilent = m_CommandLine.m_bSilent;
    m_Run.m_sLogPath = m_CommandLine.m_sLog;
    ChooseHost();
    PrepareSignals();
    CheckWindow();
    m_pMainDocument = std::make_unique<CCorvaneDoc>(m_Manager);
    if (NeedsUi() && !LoadUi())
        return false;
    if (!ProcessShellCommand())
        return false;
    if (RunBatchAction())
        return false;
    OpenLastFile();
    return true;
}

void CCorvaneApp::ChooseHost()
{
    if (m_Run.m_bSilent)
        m_Questions.SetHost(m_Silent);
}

// A batch run takes an interrupt as the wish to cancel. One that waits for the end keeps the signals from the
// start, so that one that comes during the load is not lost.
void CCorvaneApp::PrepareSignals()
{
    if (m_CommandLine.IsBatch())
    {
        CInterrupt::Install();
        return;
    }
    if (!m_Run.m_bSilent)
        return;
    const sigset_t signals = GetEndSignals();
    ::pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

// There is no window system under this program, so that no handle names a window that it could attach to.
void CCorvaneApp::CheckWindow()
{
    if (ParseWindowHandle(m_CommandLine.m_sWindow) == 0 || m_Run.m_bSilent)
        return;
    const std::u16string text =
        FormatText(u"The window handle '%1!s!' was specified at the command line but the "
                   u"window could not be found.",
                   m_CommandLine.m_sWindow);
    m_Questions.Tell(u"Cannot Find Window", text, EIcon::Stop);
}

bool CCorvaneApp::LoadUi()
{
    std::u16string cause;
    m_UiModule = m_Session.GetModules().Load(JoinPath(GetProgramDirectory(), kUiModuleFile), cause);
    if (const auto create = m_UiModule.FindFunction<FCreateCorvaneUi>(kCreateCorvaneUi))
        m_pUi.reset(create(*this));
    if (m_pUi)
    {
        // The toolkit leaves threads and handlers behind, which must not lose their code.
        m_UiModule.KeepLoaded();
        m_Questions.SetHost(m_pUi->GetQuestions());
        m_Session.SetServices(&m_pUi->GetServices());
        return true;
    }
    if (cause.empty())
        cause = FormatText(u"%s made no windows", kUiModuleFile);
    m_Questions.Tell(u"Corvane",
                     FormatText(u"The user interface could not be started: %s.\nWithout it the program runs "
                                u"with these switches and a root file:\n%s",
                                cause, GetSwitchList()),
                     EIcon::Stop);
    m_Run.m_nExitStatus = kExitFailed;
    return false;
}

bool CCorvaneApp::ProcessShellCommand()
{
    if (m_CommandLine.m_nShellCommand == EShellCommand::FileNew)
        return true;
    m_pOpenedDocument = OpenDocumentFile(m_CommandLine.m_strFileName);
    if (m_pOpenedDocument == nullptr)
        m_Run.m_nExitStatus = kExitFailed;
    return m_pOpenedDocument != nullptr;
}

CCorvaneDoc* CCorvaneApp::OpenDocumentFile(std::u16string_view path)
{
    ZRASSERT(path.size() <= kLongestPath);
    const std::u16string file = MakeDocumentPath(path);
    if (!m_pMainDocument->OnOpenDocument(file))
        return nullptr;
    m_RecentFiles.Add(file);
    return m_pMainDocument.get();
}

// Only a start without a file goes back to the last one.
void CCorvaneApp::OpenLastFile()
{
    if (m_pOpenedDocument != nullptr || !m_Run.Test(APP_OPEN_LAST) || m_RecentFiles.GetFiles().empty())
        return;
    const std::u16string last = m_RecentFiles.GetFiles().front();
    static_cast<void>(OpenDocumentFile(last));
}

void CCorvaneApp::Run()
{
    if (m_pUi)
    {
        m_Run.m_nExitStatus = m_pUi->Run();
        return;
    }
    const sigset_t signals = GetEndSignals();
    int received = 0;
    ::sigwait(&signals, &received);
}

std::int32_t CCorvaneApp::ExitInstance()
{
    m_Run.Set(APP_CLOSING);
    SaveSettings();
    m_Session.SetServices(nullptr);
    m_pUi.reset();
    m_Questions.SetHost(m_Run.m_bSilent ? static_cast<IQuestions&>(m_Silent) : m_Console);
    m_pMainDocument.reset();
    // With the closing bit set nobody is asked, so that the close cannot be refused.
    static_cast<void>(m_Manager.CloseDatabase());
    if (m_Run.m_nExitStatus == kExitOk)
        m_RecentFiles.Store(m_Profile);
    // A user whose profile cannot be written still gets the result of the run.
    static_cast<void>(m_Profile.Save());
    return m_Run.m_nExitStatus;
}
