// How the tree follows the event line.
#include "CorvaneTreeModel.h"

#include "CorvaneEvent.h"
#include "CorvaneMgr.h"

#include <utility>

namespace
{
// None for an event about something else.
CTreeItem GetEventItem(const CCorvaneEvent& event)
{
    if (const SRecordRenamed* renamed = event.GetRecordRenamed())
        return CTreeItem(*renamed->m_pRecord);
    if (const SCategoryRenamed* renamed = event.GetCategoryRenamed())
        return CTreeItem(*renamed->m_pCategory);
    if (CCorvaneRecord* record = event.GetRecord())
        return CTreeItem(*record);
    CCorvaneCategory* category = event.GetCategory();
    return category ? CTreeItem(*category) : CTreeItem();
}

bool IsAttached(const CTreeItem& item)
{
    const CCorvaneCategory* category = item.GetDestination();
    return category != nullptr && category->IsAttached();
}
} // namespace

void CCorvaneTreeModel::OnEvent(const CCorvaneEvent& event)
{
    OnDatabaseEvent(event);
    if (!m_bLoading)
        OnObjectEvent(event);
    OnStateEvent(event);
}

void CCorvaneTreeModel::OnDatabaseEvent(const CCorvaneEvent& event)
{
    switch (event.GetCode())
    {
    case ECorvaneEvent::LoadBegin:
        m_bLoading = true;
        break;
    case ECorvaneEvent::LoadEnd:
        m_bLoading = false;
        Reset(MakeNodes());
        break;
    case ECorvaneEvent::CloseBegin:
        // Every object is about to be emptied, and must not be held.
        Reset(std::make_unique<CTreeNodes>(m_Manager));
        break;
    case ECorvaneEvent::ReloadBegin:
        m_bRefreshing = true;
        break;
    case ECorvaneEvent::ReloadEnd:
        m_bRefreshing = false;
        for (const CTreeItem& item : std::exchange(m_RemovedWhileRefreshing, {}))
        {
            if (!item.IsInTree())
                Remove(item);
        }
        break;
    default:
        break;
    }
}

void CCorvaneTreeModel::Reset(std::unique_ptr<CTreeNodes> nodes)
{
    beginResetModel();
    m_RemovedWhileRefreshing.clear();
    m_UnreadStates.clear();
    m_pNodes = std::move(nodes);
    endResetModel();
}

void CCorvaneTreeModel::OnObjectEvent(const CCorvaneEvent& event)
{
    const CTreeItem item = GetEventItem(event);
    if (item.IsNone())
        return;
    switch (event.GetCode())
    {
    case ECorvaneEvent::CategoryDeleting:
        PrepareDelete(*item.GetCategory());
        break;
    case ECorvaneEvent::CategoryDeleted:
        Remove(item);
        break;
    case ECorvaneEvent::RecordDeleted:
        if (m_bRefreshing)
            m_RemovedWhileRefreshing.push_back(item);
        else
            Remove(item);
        break;
    case ECorvaneEvent::CategoryAdded:
    case ECorvaneEvent::CategoryComplete:
    case ECorvaneEvent::CategoryMoved:
    case ECorvaneEvent::CategoryRenamed:
    case ECorvaneEvent::RecordAdded:
    case ECorvaneEvent::RecordComplete:
    case ECorvaneEvent::RecordMoved:
    case ECorvaneEvent::RecordRenamed:
    case ECorvaneEvent::RecordReloaded:
        Place(item);
        break;
    default:
        break;
    }
}

void CCorvaneTreeModel::OnStateEvent(const CCorvaneEvent& event)
{
    const auto code = static_cast<int>(event.GetCode());
    constexpr auto kFirst = static_cast<int>(ECorvaneEvent::RecordControlAdded);
    constexpr auto kLast = static_cast<int>(ECorvaneEvent::CategoryLatest);
    if (event.GetCode() == ECorvaneEvent::ChangeSetSubmitted ||
        event.GetCode() == ECorvaneEvent::ChangeSetReverted)
        ForgetAllStates();
    const CTreeItem item = code >= kFirst && code <= kLast ? GetEventItem(event) : CTreeItem();
    CTreeNode* node = item.IsNone() ? nullptr : m_pNodes->Find(item);
    if (node == nullptr)
        return;
    node->m_nState = CTreeNode::kStateUnknown;
    const QModelIndex changed = GetIndex(*node);
    Q_EMIT dataChanged(changed, changed, {StateRole});
    Place(item);
}

void CCorvaneTreeModel::Place(const CTreeItem& item)
{
    if (!IsAttached(item))
        return;
    if (m_pNodes->GetFilter())
        PlaceFiltered(item);
    else
        PlaceLooked(item);
}

void CCorvaneTreeModel::PlaceLooked(const CTreeItem& item)
{
    if (m_pNodes->GetRoot() == nullptr)
        InsertRoot();
    CTreeNode* node = m_pNodes->Find(item);
    CTreeNode* parent = m_pNodes->FindParent(item);
    const bool looked = parent != nullptr && parent->m_pChildren != nullptr;
    if (node && node->m_pParent == parent)
        Settle(*node);
    else if (node && looked)
        MoveRow(*node, *parent);
    else if (node)
        RemoveRow(*node);
    else if (looked)
        InsertRow(*parent, m_pNodes->Make(item));
}

void CCorvaneTreeModel::PlaceFiltered(const CTreeItem& item)
{
    CTreeNode* node = m_pNodes->Find(item);
    if (node == nullptr)
    {
        InsertFiltered(item);
        return;
    }
    const bool hasChildren = node->m_pChildren && !node->m_pChildren->IsEmpty();
    if (node->m_pParent == m_pNodes->FindParent(item) &&
        (hasChildren || m_pNodes->GetFilter()->Accepts(item)))
    {
        Settle(*node);
        return;
    }
    RemoveFiltered(*node);
    InsertFiltered(item);
}

void CCorvaneTreeModel::Remove(const CTreeItem& item)
{
    CTreeNode* node = m_pNodes->Find(item);
    if (node == nullptr)
        RemoveLastUnseen(item);
    else if (m_pNodes->GetFilter())
        RemoveFiltered(*node);
    else
        RemoveRow(*node);
}

void CCorvaneTreeModel::PrepareDelete(CCorvaneCategory& category)
{
    // Afterwards nobody can tell where the category was.
    CTreeNode* parent = m_pNodes->FindParent(CTreeItem(category));
    const CCorvaneCategory* above = category.GetParent();
    if (parent && above && above->GetChildren().size() + above->GetRecords().size() == 1)
        m_pNodes->Look(*parent);
}

void CCorvaneTreeModel::RemoveLastUnseen(const CTreeItem& item)
{
    CTreeNode* parent = item.IsRecord() ? m_pNodes->FindParent(item) : nullptr;
    if (parent == nullptr || parent->m_pChildren || parent->m_Item.IsRoot() ||
        !parent->m_Item.GetCategory()->GetRecords().empty() ||
        !parent->m_Item.GetCategory()->GetChildren().empty())
        return;
    std::vector<std::unique_ptr<CTreeNode>> children;
    children.push_back(m_pNodes->Make(item));
    CTreeNode& last = *children.back();
    CTreeNodes::SetChildren(*parent, std::move(children));
    RemoveRow(last);
}
