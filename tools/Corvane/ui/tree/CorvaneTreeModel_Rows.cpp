// How rows come, go and change places.
#include "CorvaneTreeModel.h"

#include "CorvaneCategory.h"
#include "TreeFilterWalk.h"

#include <utility>

void CCorvaneTreeModel::InsertRoot()
{
    beginInsertRows({}, 0, 0);
    m_pNodes->MakeRoot();
    endInsertRows();
}

void CCorvaneTreeModel::InsertRow(CTreeNode& parent, std::unique_ptr<CTreeNode> node)
{
    const std::size_t place = m_pNodes->FindPlace(parent, node->m_Item);
    const int row = static_cast<int>(place);
    beginInsertRows(GetIndex(parent), row, row);
    node->m_pParent = &parent;
    parent.m_pChildren->Insert(place, std::move(node));
    endInsertRows();
}

void CCorvaneTreeModel::RemoveRow(CTreeNode& node)
{
    CTreeNode& parent = *node.m_pParent;
    const std::size_t place = CTreeNodeList::GetRow(node);
    const int row = static_cast<int>(place);
    beginRemoveRows(GetIndex(parent), row, row);
    m_pNodes->Drop(parent.m_pChildren->Take(place));
    endRemoveRows();
}

void CCorvaneTreeModel::MoveRow(CTreeNode& node, CTreeNode& parent)
{
    CTreeNode& source = *node.m_pParent;
    const std::size_t from = CTreeNodeList::GetRow(node);
    const std::size_t to = m_pNodes->FindPlace(parent, node.m_Item);
    const int row = static_cast<int>(from);
    if (!beginMoveRows(GetIndex(source), row, row, GetIndex(parent), static_cast<int>(to)))
        return;
    std::unique_ptr<CTreeNode> moved = source.m_pChildren->Take(from);
    moved->m_pParent = &parent;
    parent.m_pChildren->Insert(to, std::move(moved));
    endMoveRows();
    Settle(node);
}

void CCorvaneTreeModel::Settle(CTreeNode& node)
{
    // Views search for a row that is said to have changed.
    const bool renamed = m_pNodes->UpdateName(node);
    CTreeNode& parent = *node.m_pParent;
    CTreeNodeList& list = *parent.m_pChildren;
    const std::size_t row = CTreeNodeList::GetRow(node);
    std::size_t place = row;
    if (!parent.m_Item.IsRoot())
    {
        if (row > 0 && IsTreeOrder(node.m_Item, list.At(row - 1).m_Item))
            place = list.FindPlace(node.m_Item, 0, row);
        else if (row + 1 < list.GetCount() && IsTreeOrder(list.At(row + 1).m_Item, node.m_Item))
            place = list.FindPlace(node.m_Item, row + 1, list.GetCount());
    }
    const int from = static_cast<int>(row);
    const QModelIndex above = GetIndex(parent);
    if (place != row && beginMoveRows(above, from, from, above, static_cast<int>(place)))
    {
        std::unique_ptr<CTreeNode> moved = list.Take(row);
        list.Insert(place > row ? place - 1 : place, std::move(moved));
        endMoveRows();
    }
    if (!renamed)
        return;
    const QModelIndex changed = GetIndex(node);
    Q_EMIT dataChanged(changed, changed, {Qt::DisplayRole, Qt::EditRole});
}

void CCorvaneTreeModel::InsertFiltered(const CTreeItem& item)
{
    std::unique_ptr<CTreeNode> top;
    if (CCorvaneCategory* category = item.GetCategory())
    {
        CTreeFilterWalk walk(*m_pNodes, *category);
        static_cast<void>(walk.Run(CTreeFilterWalk::CClock::time_point::max()));
        top = walk.Take();
    }
    else if (m_pNodes->GetFilter()->Accepts(item))
        top = m_pNodes->Make(item);
    if (!top)
        return;
    // The categories above come with it where they had nothing to show before.
    CTreeNode* parent = m_pNodes->FindParent(top->m_Item);
    while (parent == nullptr)
    {
        std::unique_ptr<CTreeNode> above = m_pNodes->Make(CTreeItem(*top->m_Item.GetParent()));
        std::vector<std::unique_ptr<CTreeNode>> children;
        children.push_back(std::move(top));
        CTreeNodes::SetChildren(*above, std::move(children));
        top = std::move(above);
        parent = m_pNodes->FindParent(top->m_Item);
    }
    InsertRow(*parent, std::move(top));
}

void CCorvaneTreeModel::RemoveFiltered(CTreeNode& node)
{
    CTreeNode* top = &node;
    while (top->m_pParent->m_Item.IsCategory() && top->m_pParent->m_pChildren->GetCount() == 1 &&
           !m_pNodes->GetFilter()->Accepts(top->m_pParent->m_Item))
        top = top->m_pParent;
    RemoveRow(*top);
}
