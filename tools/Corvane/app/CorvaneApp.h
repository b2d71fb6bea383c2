// The one application object: start, run, stop. A batch run and an interactive one take the same way in; a
// batch run ends after its action, an interactive one hands over to the windows of the UI module, and a
// silent one without an action waits for a termination signal.
#pragma once

#include "AssertLog.h"
#include "Context.h"
#include "CorvaneCommandLineInfo.h"
#include "CorvaneMgr.h"
#include "CorvaneType.h"
#include "CorvaneTypeMgr.h"
#include "DiskFileSystem.h"
#include "HostQuestions.h"
#include "Module.h"
#include "Profile.h"
#include "RecentFileList.h"
#include "RunState.h"
#include "SourceGate.h"
#include "UiModule.h"
#include "UndoRecorder.h"
#include "host/ConsoleQuestions.h"
#include "host/SilentQuestions.h"
#include "host/SystemServices.h"

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

    [[nodiscard]] const CCorvaneContext& GetContext() override { return m_Context; }
    [[nodiscard]] CCorvaneMgr& GetManager() override { return m_Manager; }
    [[nodiscard]] CRecentFileList& GetRecentFiles() override { return m_RecentFiles; }
    [[nodiscard]] CCorvaneDoc* GetDocument() override { return m_pMainDocument.get(); }
    CCorvaneDoc* OpenDocumentFile(std::u16string_view path) override;

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
    void TellRunningPostBuildStep(std::u16string_view command);

    void ChooseHost();
    void PrepareSignals();
    void CheckWindow();
    [[nodiscard]] bool NeedsUi() const { return !m_Run.m_bSilent && !m_CommandLine.IsBatch(); }
    [[nodiscard]] bool LoadUi();
    [[nodiscard]] bool ProcessShellCommand();
    void OpenLastFile();

    CAssertLog m_AssertLog;
    CDiskFileSystem m_Files;
    CSystemServices m_Services;
    CProfile m_Profile;
    CModuleFinder m_Modules;
    CRunState m_Run;
    CConsoleQuestions m_Console;
    CSilentQuestions m_Silent;
    CHostQuestions m_Questions;
    CCorvaneContext m_Context;

    CCorvaneTypeMgr m_Types;
    CorvaneSchemaAttribDataMgr m_AttribData;
    CSourceGate m_Gate;
    CNoUndo m_Undo;
    CCorvaneMgr m_Manager;

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
