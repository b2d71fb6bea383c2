#include "EditorSession.h"

// As a user finds it who never changed a setting.
CEditorSession::CEditorSession(IQuestions& questions) : m_Session(questions)
{
    m_Session.GetRun().Set(APP_EXPAND);
}

CEditorSession::~CEditorSession()
{
    m_Document.OnCloseDocument();
    m_Session.GetRun().Set(APP_CLOSING);
    static_cast<void>(m_Session.GetManager().CloseDatabase());
}

CCorvaneDoc* CEditorSession::OpenDocumentFile(std::u16string_view path)
{
    if (!m_Document.OnOpenDocument(path))
        return nullptr;
    m_RecentFiles.Add(path);
    return &m_Document;
}
