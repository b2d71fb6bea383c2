// Keeps the tree to what the filter field asks for. Keystrokes are coalesced, and all that takes time (the
// walk over the database, the opening of what was found, the end of rows that are of no use any more) runs in
// slices between events, so that no keystroke waits for it.
//
// Selection survives by identity. What was open before the first letter is open again after the last.
#pragma once

#include "TreeFilterWalk.h"
#include "TreeItem.h"

#include <QObject>
#include <QString>
#include <deque>
#include <functional>
#include <memory>
#include <vector>

class CCorvaneMgr;
class CCorvaneTreeModel;
class CTreeNodes;
class QModelIndex;
class QTimer;
class QTreeView;

class CTreeFiltering final : public QObject
{
public:
    // None of them is owned.
    CTreeFiltering(CCorvaneMgr& manager, CCorvaneTreeModel& model, QTreeView& tree, QObject* parent);
    ~CTreeFiltering() override;

    // The field's text; empty shows everything, at once.
    void SetText(const QString& text);
    [[nodiscard]] bool IsActive() const { return !m_sText.isEmpty(); }
    // Something of a change of the text is still to be shown.
    [[nodiscard]] bool IsBusy() const;
    // Does the rest of it now.
    void Finish();
    // The selection is being put back, by nobody's will.
    [[nodiscard]] bool IsRestoring() const { return m_bRestoring; }
    // Invalid when there is none.
    [[nodiscard]] QModelIndex FindFirstMatch() const;
    // "3 matches", "No matches"; empty without a filter, and before the first result.
    [[nodiscard]] QString GetCountText() const;

    // Objects came, went or changed their names.
    void OnStructureChanged();
    // Lets go of every object.
    void OnClosed();
    void OnLoaded();

    // Filtered rows have taken the place of others.
    std::function<void()> m_OnApplied;

private:
    void Start();
    void Clear();
    void Step();
    // Each does what it can before the deadline.
    void Walk(CTreeFilterWalk::CClock::time_point deadline);
    void ExpandSome(CTreeFilterWalk::CClock::time_point deadline);
    // True when nothing is left.
    bool BurySome(CTreeFilterWalk::CClock::time_point deadline);
    void Apply();
    void Bury(std::unique_ptr<CTreeNodes> nodes);
    void KeepSelection();
    void RestoreSelection();

    CCorvaneMgr& m_Manager;
    CCorvaneTreeModel& m_Model;
    QTreeView& m_Tree;
    QTimer* m_pStart;
    QTimer* m_pStep;
    QString m_sText;
    std::unique_ptr<CTreeNodes> m_pNodes; // Those that the walk fills.
    std::unique_ptr<CTreeFilterWalk> m_pWalk;
    CTreeItem m_Selected;
    std::vector<CTreeItem> m_ExpandedBefore; // Categories that were open without a filter, parents first.
    std::deque<CTreeItem> m_ToExpand;
    std::vector<std::unique_ptr<CTreeNode>> m_Grave;
    bool m_bRestoring = false;
};
