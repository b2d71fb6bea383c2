// The program around the windows, without the program: a session on the system's own files and profile, for
// whole windows over whole databases. The caller has pointed the user's directories elsewhere.
#pragma once

#include "CorvaneDoc.h"
#include "CorvaneSession.h"
#include "RecentFileList.h"
#include "UiModule.h"

class CEditorSession final : public ICorvaneApplication
{
public:
    // `questions` is not owned and outlives the session.
    explicit CEditorSession(IQuestions& questions);
    // Closes the database without asking.
    ~CEditorSession();
    CEditorSession(const CEditorSession&) = delete;
    CEditorSession& operator=(const CEditorSession&) = delete;

    [[nodiscard]] const CCorvaneContext& GetContext() override { return m_Session.GetContext(); }
    [[nodiscard]] CCorvaneMgr& GetManager() override { return m_Session.GetManager(); }
    [[nodiscard]] CUndoMgr& GetUndo() override { return m_Session.GetUndo(); }
    [[nodiscard]] CRecentFileList& GetRecentFiles() override { return m_RecentFiles; }
    [[nodiscard]] CCorvaneDoc* GetDocument() override { return &m_Document; }
    CCorvaneDoc* OpenDocumentFile(std::u16string_view path) override;
    [[nodiscard]] bool BeginClose() override { return m_Session.BeginClose(); }

private:
    CCorvaneSession m_Session;
    CRecentFileList m_RecentFiles;
    CCorvaneDoc m_Document{m_Session.GetManager()};
};
