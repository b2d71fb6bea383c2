#include "CorvaneTreeModel.h"

#include "CorvaneMgr.h"
#include "QtText.h"
#include "SourceGate.h"
#include "TreeState.h"

#include <QTimer>
#include <utility>

namespace
{
// No screen is wide enough for more, and laying out a name of a megabyte takes seconds.
constexpr qsizetype kMaxLabel = 512;
} // namespace

CCorvaneTreeModel::CCorvaneTreeModel(CCorvaneMgr& manager, QObject* parent)
    : QAbstractItemModel(parent), m_Manager(manager), m_pNodes(MakeNodes()), m_pReadStates(new QTimer(this))
{
    m_pReadStates->setSingleShot(true);
    m_pReadStates->setInterval(0);
    connect(m_pReadStates, &QTimer::timeout, this, [this] { ReadStates(); });
    m_Observer = manager.AddObserver(
        [this](const CCorvaneEvent& event)
        {
            OnEvent(event);
            return 0;
        });
}

CCorvaneTreeModel::~CCorvaneTreeModel() = default;

std::unique_ptr<CTreeNodes> CCorvaneTreeModel::MakeNodes() const
{
    auto nodes = std::make_unique<CTreeNodes>(m_Manager);
    if (!m_Manager.GetRootCategories().empty())
        nodes->MakeRoot();
    return nodes;
}

CTreeNode* CCorvaneTreeModel::GetNode(const QModelIndex& index) const
{
    return static_cast<CTreeNode*>(index.internalPointer());
}

QModelIndex CCorvaneTreeModel::GetIndex(const CTreeNode& node) const
{
    const std::size_t row = node.m_pParent ? CTreeNodeList::GetRow(node) : 0;
    return createIndex(static_cast<int>(row), 0, &node);
}

QModelIndex CCorvaneTreeModel::index(int row, int column, const QModelIndex& parent) const
{
    if (column != 0 || row < 0 || row >= rowCount(parent))
        return {};
    if (!parent.isValid())
        return createIndex(0, 0, m_pNodes->GetRoot());
    return createIndex(row, 0, &GetNode(parent)->m_pChildren->At(static_cast<std::size_t>(row)));
}

QModelIndex CCorvaneTreeModel::parent(const QModelIndex& child) const
{
    const CTreeNode* node = GetNode(child);
    return node && node->m_pParent ? GetIndex(*node->m_pParent) : QModelIndex();
}

int CCorvaneTreeModel::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid())
        return m_pNodes->GetRoot() ? 1 : 0;
    CTreeNode& node = *GetNode(parent);
    return parent.column() != 0 || node.m_Item.IsRecord() ? 0
                                                          : static_cast<int>(m_pNodes->Look(node).GetCount());
}

int CCorvaneTreeModel::columnCount(const QModelIndex&) const
{
    return 1;
}

bool CCorvaneTreeModel::hasChildren(const QModelIndex& parent) const
{
    if (!parent.isValid())
        return m_pNodes->GetRoot() != nullptr;
    return m_pNodes->HasChildren(*GetNode(parent));
}

QVariant CCorvaneTreeModel::data(const QModelIndex& index, int role) const
{
    CTreeNode* node = GetNode(index);
    if (node == nullptr)
        return {};
    switch (role)
    {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
        return GetLabel(*node);
    case Qt::EditRole:
        return ToQString(node->m_Item.IsRoot() ? m_Manager.GetRootFile().m_sName : node->m_Item.GetName());
    case Qt::AccessibleDescriptionRole:
        return ToQString(GetStateText(GetState(*node)));
    case StateRole:
        return GetState(*node);
    default:
        return {};
    }
}

QString CCorvaneTreeModel::GetLabel(const CTreeNode& node) const
{
    const std::u16string& name =
        node.m_Item.IsRoot() ? m_Manager.GetRootFile().m_sName : node.m_Item.GetName();
    QString label = ToQString(std::u16string_view(name).substr(0, kMaxLabel));
    for (QChar& unit : label)
        if (unit < u' ')
            unit = u' '; // A row is one line.
    return label;
}

Qt::ItemFlags CCorvaneTreeModel::flags(const QModelIndex& index) const
{
    const CTreeNode* node = GetNode(index);
    if (node == nullptr)
        return Qt::NoItemFlags;
    const Qt::ItemFlags common = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable;
    return node->m_Item.IsRecord() ? common | Qt::ItemNeverHasChildren : common;
}

CTreeItem CCorvaneTreeModel::GetItem(const QModelIndex& index) const
{
    const CTreeNode* node = GetNode(index);
    return node ? node->m_Item : CTreeItem();
}

QModelIndex CCorvaneTreeModel::FindIndex(const CTreeItem& item) const
{
    const CTreeNode* node = item.IsNone() ? nullptr : m_pNodes->Find(item);
    return node ? GetIndex(*node) : QModelIndex();
}

QModelIndex CCorvaneTreeModel::Locate(const CTreeItem& item)
{
    const QModelIndex index = FindIndex(item);
    if (index.isValid() || m_bLoading || item.IsNone() || item.IsRoot() || !item.IsInTree() ||
        m_pNodes->GetRoot() == nullptr)
        return index;
    CCorvaneCategory* parent = item.GetParent();
    const QModelIndex above = Locate(parent ? CTreeItem(*parent) : CTreeItem::MakeRoot());
    if (above.isValid())
        m_pNodes->Look(*GetNode(above));
    return FindIndex(item);
}

std::vector<CTreeItem> CCorvaneTreeModel::GetLookedAtCategories() const
{
    std::vector<CTreeItem> items;
    std::vector<const CTreeNode*> stack;
    if (m_pNodes->GetRoot())
        stack.push_back(m_pNodes->GetRoot());
    while (!stack.empty())
    {
        const CTreeNode* node = stack.back();
        stack.pop_back();
        if (!node->m_pChildren)
            continue;
        items.push_back(node->m_Item);
        std::size_t categories = 0; // They stand ahead of the records.
        while (categories < node->m_pChildren->GetCount() &&
               node->m_pChildren->At(categories).m_Item.IsCategory())
            ++categories;
        while (categories > 0)
            stack.push_back(&node->m_pChildren->At(--categories));
    }
    return items;
}

std::unique_ptr<CTreeNodes> CCorvaneTreeModel::SetFilteredNodes(std::unique_ptr<CTreeNodes> nodes)
{
    beginResetModel();
    std::swap(m_pNodes, nodes);
    endResetModel();
    return nodes;
}

std::unique_ptr<CTreeNodes> CCorvaneTreeModel::ClearFilter()
{
    return SetFilteredNodes(MakeNodes());
}

void CCorvaneTreeModel::Keep(const CTreeItem& item)
{
    CTreeFilter* filter = m_pNodes->GetFilter();
    if (filter == nullptr || item.IsNone() || item.IsRoot())
        return;
    filter->Keep(item);
    Place(item);
}

int CCorvaneTreeModel::GetState(CTreeNode& node) const
{
    if (!m_Manager.GetGate().IsConnected())
        return 0;
    if (node.m_nState != CTreeNode::kStateUnknown)
        return node.m_nState;
    node.m_nState = 0;
    m_UnreadStates.push_back(node.m_Item);
    m_pReadStates->start();
    return 0;
}

void CCorvaneTreeModel::ReadStates()
{
    const std::vector<CTreeItem> items = std::exchange(m_UnreadStates, {});
    for (const CTreeItem& item : items)
    {
        const int state = ReadStateIndex(m_Manager.GetGate(), item);
        // The provider may have pumped events, under which the row went.
        CTreeNode* node = m_pNodes->Find(item);
        if (node == nullptr || node->m_nState == state)
            continue;
        node->m_nState = static_cast<std::int8_t>(state);
        const QModelIndex changed = GetIndex(*node);
        Q_EMIT dataChanged(changed, changed, {StateRole});
    }
}

void CCorvaneTreeModel::ForgetStates(const QModelIndex& parent)
{
    const CTreeNode* node = GetNode(parent);
    if (node == nullptr || !node->m_pChildren || node->m_pChildren->IsEmpty() ||
        !m_Manager.GetGate().IsConnected())
        return;
    const CTreeNodeList& children = *node->m_pChildren;
    for (std::size_t i = 0; i < children.GetCount(); ++i)
        children.At(i).m_nState = CTreeNode::kStateUnknown;
    const int last = static_cast<int>(children.GetCount()) - 1;
    Q_EMIT dataChanged(index(0, 0, parent), index(last, 0, parent), {StateRole});
}

void CCorvaneTreeModel::ForgetAllStates()
{
    for (const CTreeItem& item : GetLookedAtCategories())
        ForgetStates(FindIndex(item));
}
