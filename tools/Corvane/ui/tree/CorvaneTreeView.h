// The tree pane: the filter field above the tree of categories and records, and the commands on what is
// selected. It owns no data: it mirrors the manager and follows its events.
#pragma once

#include "CommandTarget.h"
#include "ObserverList.h"

#include <QWidget>

class CCorvaneCategory;
class CCorvaneEvent;
class CCorvaneMgr;
class CCorvaneRecord;
class CCorvaneTreeModel;
class CTreeClipboard;
class CTreeControl;
class CTreeFiltering;
class CTreeItem;
class CTreeLabelEdit;
class IEditorFrame;
class QLabel;
class QLineEdit;
class QModelIndex;
class QTimer;

class CCorvaneTreeView final : public QWidget, public ICommandTarget
{
public:
    // `frame` outlives the view, and so does the manager.
    CCorvaneTreeView(IEditorFrame& frame, QWidget* parent);
    ~CCorvaneTreeView() override;

    [[nodiscard]] bool GetCommandState(int id, SCommandState& state) override;
    bool RunCommand(int id) override;

    // Takes what is being typed as a name. For whoever is about to close or to replace the database.
    void EndEdit();
    void FocusFilter();
    // Selects a row without opening it. False when it is not in the tree, or not under the filter.
    bool SelectRecord(CCorvaneRecord& record);
    bool SelectCategory(CCorvaneCategory& category);
    // The states of all rows are read again.
    void RefreshState();

    // Parts, for tests and measurements.
    [[nodiscard]] CTreeControl& GetTree() const { return *m_pTree; }
    [[nodiscard]] CCorvaneTreeModel& GetModel() const { return *m_pModel; }
    [[nodiscard]] CTreeFiltering& GetFiltering() const { return *m_pFiltering; }
    [[nodiscard]] CTreeClipboard& GetClipboard() const { return *m_pClipboard; }
    [[nodiscard]] QLineEdit& GetFilterEdit() const { return *m_pFilter; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using FCan = bool (CCorvaneTreeView::*)(const CTreeItem&) const;
    using FRun = void (CCorvaneTreeView::*)(const CTreeItem&);
    struct SRow
    {
        int m_nId;
        FCan m_Can;
        FRun m_Run;
    };
    static const SRow kRows[];
    [[nodiscard]] static const SRow* FindRow(int id);

    void CreateControls();
    void ConnectTree();
    void ConnectFilter();
    void OnEvent(const CCorvaneEvent& event);
    void OnObjectComplete(const CTreeItem& item);
    void ReadSettings();

    [[nodiscard]] CTreeItem GetSelected() const;
    bool Select(const CTreeItem& item);
    void OnCurrentChanged(const QModelIndex& current, const QModelIndex& previous);
    void OnActivated(const QModelIndex& index);
    void OpenSelected();
    void ExpandSingle(const QModelIndex& current, const QModelIndex& previous);
    void OnFilterKey(int key);
    void UpdateCount();
    void ShowMenu(const QPoint& position);
    [[nodiscard]] QString GetTip(const QModelIndex& index, const QPoint& position) const;
    [[nodiscard]] bool IsSilent() const;

    // Commands (CorvaneTreeView_Commands): the guard stands beside the action.
    [[nodiscard]] bool CanExpand(const CTreeItem& item) const;
    void Expand(const CTreeItem& item);
    [[nodiscard]] bool IsRecord(const CTreeItem& item) const;
    void Open(const CTreeItem& item);
    void OpenWindow(const CTreeItem& item);
    void Validate(const CTreeItem& item);
    [[nodiscard]] bool CanRename(const CTreeItem& item) const;
    void Rename(const CTreeItem& item);
    [[nodiscard]] bool CanDelete(const CTreeItem& item) const;
    void Delete(const CTreeItem& item);
    [[nodiscard]] bool DeleteItem(const CTreeItem& item);
    [[nodiscard]] bool CanAddCategory(const CTreeItem& item) const;
    void AddCategory(const CTreeItem& item);
    void AskAndAddCategory(const CTreeItem& item);
    [[nodiscard]] bool CanAddRecord(const CTreeItem& item) const;
    void AddRecord(const CTreeItem& item);
    [[nodiscard]] bool CanShowProperties(const CTreeItem& item) const;
    void ShowItemProperties(const CTreeItem& item);
    [[nodiscard]] bool CanCopy(const CTreeItem& item) const;
    void Cut(const CTreeItem& item);
    void Copy(const CTreeItem& item);
    [[nodiscard]] bool CanPaste(const CTreeItem& item) const;
    void Paste(const CTreeItem& item);
    [[nodiscard]] bool CanSave(const CTreeItem& item) const;
    void Save(const CTreeItem& item);
    [[nodiscard]] bool CanQuickCopy(const CTreeItem& item) const;
    void QuickClone(const CTreeItem& item);
    void QuickReference(const CTreeItem& item);

    IEditorFrame& m_Frame;
    CCorvaneMgr& m_Manager;
    QLineEdit* m_pFilter;
    QLabel* m_pCount;
    CCorvaneTreeModel* m_pModel;
    CTreeControl* m_pTree;
    CTreeFiltering* m_pFiltering;
    CTreeLabelEdit* m_pLabelEdit;
    CTreeClipboard* m_pClipboard;
    QTimer* m_pCountUpdate;
    bool m_bSingleClickActivate = true;
    bool m_bSingleClickExpand = false;
    bool m_bOpenOnRelease = false;
    bool m_bQuiet = false; // The selection changes, but nothing is to be opened.
    CObserverHandle m_Settings;
    CObserverHandle m_Events;
};
