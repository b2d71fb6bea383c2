// The main window: the tree, the attributes of the record that was picked there and their help, and the
// commands that work on the whole database. It is the editor that all other windows and panes know.
#pragma once

#include "BaseFrame.h"

#include <QPointer>
#include <functional>
#include <vector>

class CCompileView;
class CCorvaneTreeView;
class CDatabaseCompiler;
class CRecordFrame;
class CValidateDlg;
class CWindowPump;

class CMainFrame final : public CBaseFrame, public IEditor
{
    Q_OBJECT

public:
    // None is owned; all outlive the window. The application's main document is there.
    CMainFrame(ICorvaneApplication& application, CWindowPump& pump, IFileDialogs& dialogs);
    ~CMainFrame() override;

    [[nodiscard]] IEditor& GetEditor() override { return *this; }
    void ActivateTree() override;
    [[nodiscard]] CCorvaneTreeView& GetTreeView() { return *m_pTree; }

    [[nodiscard]] ICorvaneApplication& GetApplication() override { return m_Application; }
    bool ShowRecord(CCorvaneRecord* record, bool writable) override;
    bool OpenRecordFrame(CCorvaneRecord* record, bool writable) override;
    void ShowValidation(const CValidateCore& core) override;
    void RefreshStatus() override;
    [[nodiscard]] IFileDialogs& GetFileDialogs() override { return m_Dialogs; }

    // Puts a root file in the place of the open database. What goes wrong is told.
    void OpenDatabase(std::u16string_view path);
    // The frames of single records, in no order.
    [[nodiscard]] std::vector<CRecordFrame*> GetRecordFrames() const;

    // For all frames.
    //
    // Ends the edits in place; what was typed is kept.
    void EndAllEdits();
    // Work of the core is under way, and this is one of its pauses.
    [[nodiscard]] bool IsWorking() const;
    // Asks about entering expert mode, over `frame`.
    void ToggleExpertMode(CBaseFrame& frame);
    // Another frame may use the document, which otherwise lets go of its record.
    void ReleaseDocument(const std::shared_ptr<CCorvaneDoc>& document);

    // Called once the user has closed the window and nothing stands in the way.
    std::function<void()> m_OnClosed;

protected:
    [[nodiscard]] std::span<const SHandler> GetHandlers() const override;
    [[nodiscard]] bool IsChecked(int id, bool& checked) const override;
    [[nodiscard]] QString MakeTitle() const override;
    void OnEvent(const CCorvaneEvent& event) override;
    [[nodiscard]] ICommandTarget* FindPane(const QWidget& focus) override;

    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void MakeMenus();
    void MakeBars();
    void RestorePlace();
    void StorePlace();
    [[nodiscard]] QToolBar* FindBar(int id) const;
    void ToggleBar(int id);

    // Documents (MainFrame_Record).
    [[nodiscard]] std::shared_ptr<CCorvaneDoc> FindDocument(const CCorvaneRecord& record) const;
    [[nodiscard]] std::shared_ptr<CCorvaneDoc> TakeFreeDocument() const;
    [[nodiscard]] bool IsUsedByRecordFrame(const CCorvaneDoc& document) const;
    [[nodiscard]] CRecordFrame* FindRecordFrame(const CCorvaneRecord& record) const;
    void CloseRecordFrames();

    // Commands (MainFrame_Cmd).
    void OnOpen();
    void OnSaveAs();
    void OnFocusFilter();
    void OnSettings();
    void OnAbout();
    void OnRefreshStatus() { RefreshStatus(); }
    void OnBarStandard();
    void OnBarView();
    void OnBarSourceControl();
    void UpdateRecentFiles();
    void OpenRecentFile(const std::u16string& path);
    void StoreRecentFiles();

    // The same (MainFrame_Compile).
    void OnCompileLocal();
    void OnCompileServer();
    void OnOverrideOutput();
    void OnSaveDependencies();
    void OnValidateDatabase();
    void OnDeferredAttributes();
    void OnModifiedAttributes();
    void Compile(std::uint32_t flags);
    void WatchPostBuildStep();
    [[nodiscard]] CValidateDlg& GetValidation();
    void BringUpValidation();

    ICorvaneApplication& m_Application;
    CWindowPump& m_Pump;
    IFileDialogs& m_Dialogs;
    CRatioSplitter* m_pTreeSplitter;
    CCorvaneTreeView* m_pTree = nullptr;
    QMenu* m_pFileMenu = nullptr;
    QMenu* m_pSourceControlMenu = nullptr;
    QAction* m_pRecentEnd = nullptr; // The separator behind the recent files.
    std::vector<QAction*> m_RecentActions;
    QToolBar* m_pStandardBar = nullptr;
    QToolBar* m_pSourceControlBar = nullptr;
    QToolBar* m_pViewBar = nullptr;
    // The application's own, which it keeps.
    std::shared_ptr<CCorvaneDoc> m_pMainDocument;
    std::vector<QPointer<CRecordFrame>> m_RecordFrames;
    CValidateDlg* m_pValidation = nullptr; // Made when it is first wanted.
    std::unique_ptr<CCompileView> m_pCompileView;
    std::unique_ptr<CDatabaseCompiler> m_pCompiler; // Watches the steps that its compiles have started.
};
