// What the main window and the windows of single records share: a document with its attribute list and help
// pane, undo and redo, the build number, and the way in which commands reach them.
#pragma once

#include "CommandTarget.h"
#include "Editor.h"
#include "ObserverList.h"

#include <QMainWindow>
#include <memory>
#include <span>

class CBuildPane;
class CCorvaneDoc;
class CCorvaneEvent;
class CCorvaneListView;
class CCorvaneMgr;
class CMainFrame;
class CRatioSplitter;
class CUndoMgr;
class QMenu;
class QToolBar;
enum class ERecordUpdate;
struct CCorvaneContext;

class CBaseFrame : public QMainWindow, public IEditorFrame, public ICommandTarget
{
    Q_OBJECT

public:
    ~CBaseFrame() override;

    [[nodiscard]] CCommandSet& GetCommandSet() override { return *m_pCommands; }
    [[nodiscard]] QWidget* GetWindow() override { return this; }
    [[nodiscard]] CCorvaneHtmlView* GetHelpView() override { return m_pHelp; }
    void ActivateTree() override {}
    void ActivateList() override;
    [[nodiscard]] CCorvaneListView& GetListView() { return *m_pList; }

    // Several frames may share one. Null shows nothing.
    void SetDocument(std::shared_ptr<CCorvaneDoc> document);
    [[nodiscard]] const std::shared_ptr<CCorvaneDoc>& GetDocument() const { return m_pDocument; }
    // The record on display, or null.
    [[nodiscard]] CCorvaneRecord* GetRecord() const;
    // Ends an edit in place; what was typed is kept.
    void EndEdit();

    [[nodiscard]] bool GetCommandState(int id, SCommandState& state) override;
    bool RunCommand(int id) override;

protected:
    // One row of a frame's commands.
    enum class EGuard
    {
        Always,
        Open, // A database is open and nothing is loading.
        Undo,
        Redo,
        NotConnected,
        Later,
    };
    struct SHandler
    {
        int m_nId;
        EGuard m_Guard;
        void (CBaseFrame::*m_pRun)();
    };

    // `main` is the main window itself in its own case; it outlives all others. The manager is already there.
    CBaseFrame(CMainFrame& main, CCorvaneMgr& manager, CUndoMgr& undo);
    // Panes ask their frame for the editor, so that a frame makes them when it has been constructed itself, and
    // deletes them ahead of its own end.
    void CreatePanes();
    void DestroyPanes();

    // The list above the help pane.
    [[nodiscard]] CRatioSplitter& GetListSplitter() { return *m_pListSplitter; }
    // Of the pane that has the focus; null for a pane without commands.
    [[nodiscard]] virtual ICommandTarget* FindPane(const QWidget& focus);

    [[nodiscard]] CCorvaneMgr& GetManager() const { return m_Manager; }
    [[nodiscard]] const CCorvaneContext& GetContext() const;
    [[nodiscard]] virtual std::span<const SHandler> GetHandlers() const = 0;
    [[nodiscard]] virtual bool IsChecked(int /*id*/, bool& /*checked*/) const { return false; }
    [[nodiscard]] virtual QString MakeTitle() const = 0;
    // The document has let go of its record, after the fact; the frame may have got another one since.
    virtual void OnRecordGone() {}
    virtual void OnEvent(const CCorvaneEvent& event);
    void UpdateTitle();
    // In the status bar, for a while.
    void ShowMessage(std::u16string_view text);

    // Bars and menus.
    QMenu* AddMenu(const QString& title, const char* name, std::span<const int> ids);
    QToolBar* AddBar(const QString& title, const char* name, std::span<const int> ids);
    // Kept in the profile under ControlBars\<name>.
    void RestoreBars(std::u16string_view name);
    void StoreBars(std::u16string_view name) const;
    [[nodiscard]] QMenu* GetUndoMenu() const { return m_pUndoMenu; }
    [[nodiscard]] QMenu* GetRedoMenu() const { return m_pRedoMenu; }

    // Commands of every frame.
    void OnSave();
    void OnUndo() { RunUndo(1); }
    void OnRedo() { RunRedo(1); }
    void OnExpertMode();
    void OnRefreshAttributes();
    void OnClose() { close(); }

    void changeEvent(QEvent* event) override;

    CMainFrame& m_Main;

private:
    void OnDocument(ERecordUpdate hint);
    void OnFocusChanged(QWidget* now);
    // What commands depend on changed without an event.
    void OnIdle();
    [[nodiscard]] const SHandler* FindHandler(int id) const;
    [[nodiscard]] bool IsEnabled(EGuard guard) const;
    void UpdateUndoMenu();
    void UpdateRedoMenu();
    void RunUndo(std::size_t steps);
    void RunRedo(std::size_t steps);

    CCorvaneMgr& m_Manager;
    CUndoMgr& m_Undo;
    CCommandSet* m_pCommands;
    QMenu* m_pUndoMenu;
    QMenu* m_pRedoMenu;
    CRatioSplitter* m_pListSplitter;
    CCorvaneHtmlView* m_pHelp;
    CCorvaneListView* m_pList = nullptr;
    CBuildPane* m_pBuildPane;
    std::size_t m_nUndoShown = 0;
    std::size_t m_nRedoShown = 0;
    std::shared_ptr<CCorvaneDoc> m_pDocument;
    CObserverHandle m_ViewHandle;
    CObserverHandle m_EventHandle;
};
