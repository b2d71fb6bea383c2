// The one application object: start, run, stop. A batch run and an interactive one take the same way in; a
// batch run ends after its action, an interactive one hands over to the windows of the UI module, and a
// silent one without an action waits for a termination signal.
#pragma once

#include "CorvaneCommandLineInfo.h"
#include "CorvaneSession.h"
#include "HostQuestions.h"
#include "Module.h"
#include "RecentFileList.h"
#include "UiModule.h"
#include "host/ConsoleQuestions.h"
#include "host/SilentQuestions.h"

#include <memory>
#include <span>
#include <string>

class CCorvaneDoc;

class CCorvaneApp final : public ICorvaneApplication
{
public:
    CCorvaneApp();
    ~CCorvaneApp();
    CCorvaneApp(const CCorvaneApp&) = delete;
    CCorvaneApp& operator=(const CCorvaneApp&) = delete;

    // Start-up with the arguments behind the program's name. False ends the process through ExitInstance
    // without Run.
    [[nodiscard]] bool InitInstance(std::span<const std::u16string> arguments);
    // Returns when the user, or a signal, has ended the run.
    void Run();
    // Saves what outlives the run and closes the database. The result is the process's exit status.
    [[nodiscard]] std::int32_t ExitInstance();

    [[nodiscard]] const CCorvaneContext& GetContext() override { return m_Session.GetContext(); }
    [[nodiscard]] CCorvaneMgr& GetManager() override { return m_Manager; }
    [[nodiscard]] CUndoMgr& GetUndo() override { return m_Session.GetUndo(); }
    [[nodiscard]] CRecentFileList& GetRecentFiles() override { return m_RecentFiles; }
    [[nodiscard]] CCorvaneDoc* GetDocument() override { return m_pMainDocument.get(); }
    CCorvaneDoc* OpenDocumentFile(std::u16string_view path) override;
    [[nodiscard]] bool BeginClose() override { return m_Session.BeginClose(); }

private:
    struct CReleaseUi
    {
        void operator()(ICorvaneUi* ui) const { ui->Release(); }
    };

    // Settings (CorvaneApp_Settings).
    void LoadGeneralSettings();
    void LoadBuildSettings();
    void SaveSettings();
    int OnSettings(ESettingsEvent event);

    // Batch runs (CorvaneApp_Batch).
    [[nodiscard]] bool RunBatchAction();
    void Pack();
    void UpdateDependencies();
    void TellRunningPostBuildStep(std::u16string_view command);

    void ChooseHost();
    void PrepareSignals();
    void CheckWindow();
    [[nodiscard]] bool NeedsUi() const { return !m_Run.m_bSilent && !m_CommandLine.IsBatch(); }
    [[nodiscard]] bool LoadUi();
    [[nodiscard]] bool ProcessShellCommand();
    void OpenLastFile();

    CConsoleQuestions m_Console;
    CSilentQuestions m_Silent;
    CHostQuestions m_Questions;
    CCorvaneSession m_Session;
    // Parts of the session.
    IFileSystem& m_Files;
    CProfile& m_Profile;
    CRunState& m_Run;
    CCorvaneMgr& m_Manager;

    CCorvaneCommandLineInfo m_CommandLine;
    CRecentFileList m_RecentFiles;
    std::unique_ptr<CCorvaneDoc> m_pMainDocument;
    // The document that the command line's file opened.
    CCorvaneDoc* m_pOpenedDocument = nullptr;
    // The windows go before their module does.
    CModule m_UiModule;
    std::unique_ptr<ICorvaneUi, CReleaseUi> m_pUi;
    CObserverHandle m_SettingsHandle;
};
