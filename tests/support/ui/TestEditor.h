// An editor around a test's database, without frames: it keeps what panes and dialogs ask of it.
#pragma once

#include "CommandSet.h"
#include "CorvaneDoc.h"
#include "Editor.h"
#include "FileDialogs.h"
#include "RecentFileList.h"
#include "TestDatabase.h"
#include "UiModule.h"
#include "ValidateCore.h"

#include <QWidget>
#include <memory>
#include <string>
#include <vector>

// A user who answers file dialogs from a list, then cancels.
class CScriptedFileDialogs final : public IFileDialogs
{
public:
    [[nodiscard]] std::u16string OpenFile(QWidget*, const SFileDialog& dialog) override
    {
        return Answer(dialog);
    }
    [[nodiscard]] std::u16string SaveFile(QWidget*, const SFileDialog& dialog) override
    {
        return Answer(dialog);
    }

    std::vector<std::u16string> m_Answers; // The next one first.
    std::vector<SFileDialog> m_Asked;

private:
    std::u16string Answer(const SFileDialog& dialog)
    {
        m_Asked.push_back(dialog);
        if (m_Answers.empty())
            return {};
        std::u16string answer = std::move(m_Answers.front());
        m_Answers.erase(m_Answers.begin());
        return answer;
    }
};

class CTestEditor final : public ICorvaneApplication, public IEditor, public IEditorFrame
{
public:
    // `database` has been opened and outlives the editor.
    explicit CTestEditor(CTestDatabase& database) : m_Database(database) {}

    [[nodiscard]] const CCorvaneContext& GetContext() override { return m_Database.Get().GetContext(); }
    [[nodiscard]] CCorvaneMgr& GetManager() override { return m_Database.Get(); }
    [[nodiscard]] CUndoMgr& GetUndo() override { return m_Database.m_Undo; }
    [[nodiscard]] CRecentFileList& GetRecentFiles() override { return m_RecentFiles; }
    [[nodiscard]] CCorvaneDoc* GetDocument() override { return &m_Document; }
    CCorvaneDoc* OpenDocumentFile(std::u16string_view path) override
    {
        return m_Document.OnOpenDocument(path) ? &m_Document : nullptr;
    }
    [[nodiscard]] bool BeginClose() override { return m_Database.Get().AskSaveChanges(); }

    [[nodiscard]] ICorvaneApplication& GetApplication() override { return *this; }
    bool ShowRecord(CCorvaneRecord* record, bool) override
    {
        m_Shown.push_back(record);
        return record != nullptr;
    }
    bool OpenRecordFrame(CCorvaneRecord* record, bool) override
    {
        m_Opened.push_back(record);
        return record != nullptr;
    }
    void ShowValidation(const CValidateCore& core) override
    {
        m_nFindings = core.GetErrors().size();
        ++m_nValidations;
    }
    void RefreshStatus() override { ++m_nRefreshes; }
    [[nodiscard]] IFileDialogs& GetFileDialogs() override { return m_FileDialogs; }

    [[nodiscard]] IEditor& GetEditor() override { return *this; }
    [[nodiscard]] CCommandSet& GetCommandSet() override { return *m_pCommands; }
    [[nodiscard]] QWidget* GetWindow() override { return &m_Window; }
    [[nodiscard]] CCorvaneHtmlView* GetHelpView() override { return m_pHelp; }
    void ActivateTree() override { m_sActivated += "tree;"; }
    void ActivateList() override { m_sActivated += "list;"; }

    CTestDatabase& m_Database;
    QWidget m_Window;
    CCorvaneHtmlView* m_pHelp = nullptr;
    CScriptedFileDialogs m_FileDialogs;
    CRecentFileList m_RecentFiles;
    CCorvaneDoc m_Document{m_Database.Get()};
    // What was asked for, in order.
    std::vector<CCorvaneRecord*> m_Shown;
    std::vector<CCorvaneRecord*> m_Opened;
    std::string m_sActivated;
    std::size_t m_nFindings = 0;
    int m_nValidations = 0;
    int m_nRefreshes = 0;

private:
    CCommandSet* m_pCommands = new CCommandSet(m_Window);
};
