#include "TreeNodes.h"

#include "CorvaneMgr.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string_view>
#include <utility>

namespace
{
// Objects lie at addresses with the same low bits; the table looks at those.
std::size_t HashObject(const CCorvaneRef* object)
{
    const std::uint64_t hash = (reinterpret_cast<std::uintptr_t>(object) >> 4U) * 0x9E37'79B9'7F4A'7C15U;
    return hash ^ (hash >> 32U);
}
} // namespace

CTreeNodes::CTreeNodes(CCorvaneMgr& manager, CTreeFilter filter)
    : m_Manager(manager), m_Filter(std::move(filter))
{
    MakeRoot();
}

CTreeNodes::~CTreeNodes() = default;

void CTreeNodes::MakeRoot()
{
    m_pRoot = std::make_unique<CTreeNode>(CTreeItem::MakeRoot());
    if (m_Filter)
        m_pRoot->m_pChildren = std::make_unique<CTreeNodeList>();
}

CTreeNode* CTreeNodes::Find(const CTreeItem& item) const
{
    if (item.IsRoot())
        return m_pRoot.get();
    bool ambiguous = false;
    return m_Index.FindOnly(HashObject(item.GetObject()), ambiguous,
                            [&](const CTreeNode& node) { return node.m_Item == item; });
}

CTreeNode* CTreeNodes::FindParent(const CTreeItem& item) const
{
    if (CCorvaneCategory* parent = item.GetParent())
        return Find(CTreeItem(*parent));
    return item.IsCategory() ? m_pRoot.get() : nullptr;
}

std::vector<CTreeItem> CTreeNodes::ListChildren(const CTreeNode& node) const
{
    std::vector<CTreeItem> items;
    if (node.m_Item.IsRoot())
    {
        for (const CRef<CCorvaneCategory>& category : m_Manager.GetRootCategories())
            if (category->GetParent() == nullptr)
                items.emplace_back(*category);
        return items;
    }
    const CCorvaneCategory& category = *node.m_Item.GetCategory();
    items.reserve(category.GetChildren().size() + category.GetRecords().size());
    for (const CRef<CCorvaneCategory>& child : category.GetChildren())
        items.emplace_back(*child);
    for (const CRef<CCorvaneRecord>& record : category.GetRecords())
        items.emplace_back(*record);
    return items;
}

CTreeNodeList& CTreeNodes::Look(CTreeNode& node)
{
    if (node.m_pChildren)
        return *node.m_pChildren;
    std::vector<std::unique_ptr<CTreeNode>> children;
    for (CTreeItem& item : ListChildren(node))
    {
        // An object that is just being moved may stand in its new list ahead of the event.
        if (Find(item) == nullptr)
            children.push_back(Make(std::move(item)));
    }
    if (!node.m_Item.IsRoot())
        Sort(children);
    SetChildren(node, std::move(children));
    return *node.m_pChildren;
}

bool CTreeNodes::HasChildren(CTreeNode& node)
{
    if (node.m_Item.IsRecord())
        return false;
    if (node.m_pChildren)
        return !node.m_pChildren->IsEmpty();
    if (node.m_Item.IsRoot())
        return !Look(node).IsEmpty();
    const CCorvaneCategory& category = *node.m_Item.GetCategory();
    if (!category.GetChildren().empty() || !category.GetRecords().empty())
        return true;
    // Who was told that there is nothing must be told of the first child.
    node.m_pChildren = std::make_unique<CTreeNodeList>();
    return false;
}

std::size_t CTreeNodes::FindPlace(const CTreeNode& parent, const CTreeItem& item) const
{
    if (!parent.m_Item.IsRoot())
        return parent.m_pChildren->FindPlace(item, 0, parent.m_pChildren->GetCount());
    // Root categories keep the manager's order.
    std::size_t row = 0;
    for (const CRef<CCorvaneCategory>& category : m_Manager.GetRootCategories())
    {
        if (category.Get() == item.GetObject())
            break;
        const CTreeNode* node = Find(CTreeItem(*category));
        row += node != nullptr && node->m_pParent == &parent ? 1U : 0U;
    }
    return row;
}

std::unique_ptr<CTreeNode> CTreeNodes::Make(CTreeItem item)
{
    auto node = std::make_unique<CTreeNode>(std::move(item));
    m_Index.Add(HashObject(node->m_Item.GetObject()), *node);
    UpdateName(*node);
    return node;
}

void CTreeNodes::Drop(std::unique_ptr<CTreeNode> node)
{
    Forget(*node);
}

void CTreeNodes::Forget(const CTreeNode& node)
{
    m_Index.Remove(HashObject(node.m_Item.GetObject()), node);
    m_nMatches -= node.m_bMatch ? 1U : 0U;
    if (!node.m_pChildren)
        return;
    for (std::size_t i = 0; i < node.m_pChildren->GetCount(); ++i)
        Forget(node.m_pChildren->At(i));
}

void CTreeNodes::SetChildren(CTreeNode& parent, std::vector<std::unique_ptr<CTreeNode>> children)
{
    for (const std::unique_ptr<CTreeNode>& child : children)
        child->m_pParent = &parent;
    parent.m_pChildren = std::make_unique<CTreeNodeList>(std::move(children));
}

void CTreeNodes::Sort(std::vector<std::unique_ptr<CTreeNode>>& nodes)
{
    std::stable_sort(nodes.begin(), nodes.end(),
                     [](const auto& a, const auto& b) { return IsTreeOrder(a->m_Item, b->m_Item); });
}

bool CTreeNodes::UpdateName(CTreeNode& node)
{
    const std::size_t hash = std::hash<std::u16string_view>()(node.m_Item.GetName());
    const auto mark = static_cast<std::uint32_t>(hash) | 1U;
    if (node.m_nNameMark == mark)
        return false;
    node.m_nNameMark = mark;
    const bool match = m_Filter && m_Filter->Matches(node.m_Item.GetName());
    m_nMatches += match ? 1U : 0U;
    m_nMatches -= node.m_bMatch ? 1U : 0U;
    node.m_bMatch = match;
    return true;
}
