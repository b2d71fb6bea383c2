// The database as an item model: the root, its categories and their records. Nodes are made when somebody
// looks; see CTreeNodes. Follows the event line row by row; a whole reset comes with a load, a close and a
// new filter only.
//
// An index holds for as long as its row is there. Its internal pointer is the node, which is unique, and
// records never have children, both of which keep persistent indexes cheap.
#pragma once

#include "ObserverList.h"
#include "TreeNodes.h"

#include <QAbstractItemModel>
#include <memory>
#include <vector>

class CCorvaneEvent;
class CCorvaneMgr;
class QTimer;

class CCorvaneTreeModel final : public QAbstractItemModel
{
public:
    enum ERole : int
    {
        // State column, 0 to 10; see TreeState.h. 0 until it has been read, which asking for it sets off.
        StateRole = Qt::UserRole,
    };

    // `manager` outlives the model.
    CCorvaneTreeModel(CCorvaneMgr& manager, QObject* parent);
    ~CCorvaneTreeModel() override;

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& child) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] bool hasChildren(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

    // None for an invalid index.
    [[nodiscard]] CTreeItem GetItem(const QModelIndex& index) const;
    // Invalid when the item has no row yet, or none under the filter.
    [[nodiscard]] QModelIndex FindIndex(const CTreeItem& item) const;
    // The same, but makes the rows that lead to it.
    [[nodiscard]] QModelIndex Locate(const CTreeItem& item);
    // Categories whose rows were looked at, parents first.
    [[nodiscard]] std::vector<CTreeItem> GetLookedAtCategories() const;

    // Takes nodes that a walk has filled. Gives those that were there, for a caller who wants to take his
    // time with their end.
    std::unique_ptr<CTreeNodes> SetFilteredNodes(std::unique_ptr<CTreeNodes> nodes);
    std::unique_ptr<CTreeNodes> ClearFilter();
    // Null without one.
    [[nodiscard]] CTreeFilter* GetFilter() const { return m_pNodes->GetFilter(); }
    [[nodiscard]] std::size_t GetMatchCount() const { return m_pNodes->GetMatchCount(); }
    // Shows an item that the filter does not accept.
    void Keep(const CTreeItem& item);

    // The states of the children are read again, when they are painted.
    void ForgetStates(const QModelIndex& parent);
    void ForgetAllStates();

    // The database is being opened: the tree is empty, and stays so until the end of it.
    [[nodiscard]] bool IsLoading() const { return m_bLoading; }
    // New objects come from the disk.
    [[nodiscard]] bool IsRefreshing() const { return m_bRefreshing; }

private:
    // Events (CorvaneTreeModel_Events).
    void OnEvent(const CCorvaneEvent& event);
    void OnDatabaseEvent(const CCorvaneEvent& event);
    void OnObjectEvent(const CCorvaneEvent& event);
    void OnStateEvent(const CCorvaneEvent& event);
    void Reset(std::unique_ptr<CTreeNodes> nodes);
    [[nodiscard]] std::unique_ptr<CTreeNodes> MakeNodes() const;
    // Gives the item the row that it belongs to, whatever it had before.
    void Place(const CTreeItem& item);
    void PlaceLooked(const CTreeItem& item);
    void PlaceFiltered(const CTreeItem& item);
    void Remove(const CTreeItem& item);
    // The view shows that the parent has something in it, and is to be told of the end of that.
    void PrepareDelete(CCorvaneCategory& category);
    void RemoveLastUnseen(const CTreeItem& item);

    // Rows (CorvaneTreeModel_Rows).
    void InsertRoot();
    void InsertRow(CTreeNode& parent, std::unique_ptr<CTreeNode> node);
    void RemoveRow(CTreeNode& node);
    void MoveRow(CTreeNode& node, CTreeNode& parent);
    // After a change of the node's name: its place among its siblings, and its label.
    void Settle(CTreeNode& node);
    void InsertFiltered(const CTreeItem& item);
    // With the categories that have no other reason to be there.
    void RemoveFiltered(CTreeNode& node);

    [[nodiscard]] CTreeNode* GetNode(const QModelIndex& index) const;
    [[nodiscard]] QModelIndex GetIndex(const CTreeNode& node) const;
    [[nodiscard]] QString GetLabel(const CTreeNode& node) const;
    [[nodiscard]] int GetState(CTreeNode& node) const;
    void ReadStates();

    CCorvaneMgr& m_Manager;
    std::unique_ptr<CTreeNodes> m_pNodes;
    std::vector<CTreeItem> m_RemovedWhileRefreshing;
    // Asked for, not read yet. A provider takes its time and may show dialogs: nothing for a paint event.
    mutable std::vector<CTreeItem> m_UnreadStates;
    QTimer* m_pReadStates;
    bool m_bLoading = false;
    bool m_bRefreshing = false;
    CObserverHandle m_Observer;
};
