// The nodes of one tree and the way from an object to its node. Without a filter a node's children are made
// when they are looked at. With one the tree holds all that the filter accepts and the categories above it,
// and a category without a child that is not accepted itself has no place.
//
// Every object has one node at most: a root category that was moved below another one shows there only.
#pragma once

#include "PointerIndex.h"
#include "TreeFilter.h"
#include "TreeNode.h"
#include "TreeNodeList.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

class CCorvaneMgr;

class CTreeNodes
{
public:
    // Empty; see MakeRoot.
    explicit CTreeNodes(CCorvaneMgr& manager) : m_Manager(manager) {}
    // The tree begins with the root alone; see CTreeFilterWalk.
    CTreeNodes(CCorvaneMgr& manager, CTreeFilter filter);
    ~CTreeNodes();

    // Null until there is a category.
    [[nodiscard]] CTreeNode* GetRoot() const { return m_pRoot.get(); }
    void MakeRoot();
    // For a caller who wants to take his time with the end of the nodes; all else is of no use afterwards.
    [[nodiscard]] std::unique_ptr<CTreeNode> TakeRoot() { return std::move(m_pRoot); }
    // Null without a filter.
    [[nodiscard]] CTreeFilter* GetFilter() { return m_Filter ? &*m_Filter : nullptr; }
    // Nodes whose own name matches; 0 without a filter.
    [[nodiscard]] std::size_t GetMatchCount() const { return m_nMatches; }

    // Null when the object has none.
    [[nodiscard]] CTreeNode* Find(const CTreeItem& item) const;
    // The node under which the item belongs; null when it has not been made.
    [[nodiscard]] CTreeNode* FindParent(const CTreeItem& item) const;
    // The children, which are made when nobody has looked before. Not for a record.
    CTreeNodeList& Look(CTreeNode& node);
    // Whether there are children, without making them. Only then they count as not looked at.
    [[nodiscard]] bool HasChildren(CTreeNode& node);
    // The row among the parent's children before which the item belongs.
    [[nodiscard]] std::size_t FindPlace(const CTreeNode& parent, const CTreeItem& item) const;

    // A node that is in no list yet; Find knows it.
    [[nodiscard]] std::unique_ptr<CTreeNode> Make(CTreeItem item);
    // Forgets a node that was taken out of its list, with all below it.
    void Drop(std::unique_ptr<CTreeNode> node);
    static void SetChildren(CTreeNode& parent, std::vector<std::unique_ptr<CTreeNode>> children);
    static void Sort(std::vector<std::unique_ptr<CTreeNode>>& nodes);
    // Takes notice of a change of the name. False when there was none.
    bool UpdateName(CTreeNode& node);

private:
    [[nodiscard]] std::vector<CTreeItem> ListChildren(const CTreeNode& node) const;
    void Forget(const CTreeNode& node);

    CCorvaneMgr& m_Manager;
    std::optional<CTreeFilter> m_Filter;
    std::unique_ptr<CTreeNode> m_pRoot;
    CPointerIndex<CTreeNode> m_Index;
    std::size_t m_nMatches = 0;
};
