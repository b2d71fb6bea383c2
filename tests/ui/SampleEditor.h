// The main window over a copy of the sample database, with a user whose answers are written down beforehand.
#pragma once

#include "CommandSet.h"
#include "Commands.h"
#include "CorvaneListView.h"
#include "CorvaneListViewList.h"
#include "CorvaneTreeView.h"
#include "EditorSession.h"
#include "MainFrame.h"
#include "RegisterTypeViews.h"
#include "ScratchDir.h"
#include "TestEditor.h"
#include "TreeControl.h"
#include "TypeViewRegistry.h"
#include "WindowPump.h"
#include "host/RecordingQuestions.h"

#include <QApplication>
#include <QTest>
#include <filesystem>
#include <memory>
#include <string>

class CSampleEditor
{
public:
    CSampleEditor()
    {
        static const bool registered = (RegisterTypeViews(GetTypeViews()), true);
        static_cast<void>(registered);
        std::filesystem::copy(SAMPLE_FOLDER, GetFolder(), std::filesystem::copy_options::recursive);
        Start();
    }
    ~CSampleEditor()
    {
        m_pFrame.reset();
        m_pSession.reset();
    }
    CSampleEditor(const CSampleEditor&) = delete;
    CSampleEditor& operator=(const CSampleEditor&) = delete;

    [[nodiscard]] std::filesystem::path GetFolder() const { return m_Scratch.GetPath() / "Outpost"; }
    [[nodiscard]] std::u16string GetRoot() const
    {
        return (GetFolder() / "Database/Outpost.Gamdb00s").u16string();
    }

    // A new window and a new session, as after a restart of the program.
    void Start()
    {
        m_pFrame.reset();
        m_pSession = std::make_unique<CEditorSession>(m_Questions);
        m_pFrame = std::make_unique<CMainFrame>(*m_pSession, m_Pump, m_FileDialogs);
        m_pFrame->m_OnClosed = [this] { ++m_nClosed; };
        m_pFrame->resize(1100, 700);
        m_pFrame->show();
        m_pFrame->activateWindow();
        static_cast<void>(QTest::qWaitForWindowActive(m_pFrame.get()));
        m_pFrame->OpenDatabase(GetRoot());
        Settle();
    }
    static void Settle()
    {
        for (int i = 0; i < 3; ++i)
        {
            QCoreApplication::sendPostedEvents();
            QCoreApplication::processEvents();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    bool Run(int id)
    {
        const bool ran = Frame().GetCommandSet().Run(id);
        Settle();
        return ran;
    }

    [[nodiscard]] CMainFrame& Frame() { return *m_pFrame; }
    [[nodiscard]] CCorvaneTreeView& Tree() { return m_pFrame->GetTreeView(); }
    [[nodiscard]] CCorvaneListView& List() { return m_pFrame->GetListView(); }
    [[nodiscard]] CCorvaneMgr& Manager() { return m_pSession->GetManager(); }
    [[nodiscard]] CUndoMgr& Undo() { return m_pSession->GetUndo(); }
    [[nodiscard]] CCorvaneRecord* Find(std::u16string_view path)
    {
        return Manager().FindRecord(path, nullptr);
    }

    CScratchDir m_Scratch;
    CRecordingQuestions m_Questions;
    CScriptedFileDialogs m_FileDialogs;
    CWindowPump m_Pump;
    int m_nClosed = 0;

private:
    std::unique_ptr<CEditorSession> m_pSession;
    std::unique_ptr<CMainFrame> m_pFrame;
};
