#include "TreeFiltering.h"

#include "CorvaneMgr.h"
#include "CorvaneTreeModel.h"
#include "QtText.h"

#include <QScopedValueRollback>
#include <QTimer>
#include <QTreeView>
#include <utility>

namespace
{
constexpr int kCoalesce = 40; // ms; a fast typist's next key comes later.
constexpr std::chrono::milliseconds kSlice{4};
} // namespace

CTreeFiltering::CTreeFiltering(CCorvaneMgr& manager, CCorvaneTreeModel& model, QTreeView& tree,
                               QObject* parent)
    : QObject(parent), m_Manager(manager), m_Model(model), m_Tree(tree), m_pStart(new QTimer(this)),
      m_pStep(new QTimer(this))
{
    m_pStart->setSingleShot(true);
    m_pStart->setInterval(kCoalesce);
    connect(m_pStart, &QTimer::timeout, this, [this] { Start(); });
    m_pStep->setInterval(0);
    connect(m_pStep, &QTimer::timeout, this, [this] { Step(); });
}

CTreeFiltering::~CTreeFiltering() = default;

void CTreeFiltering::SetText(const QString& text)
{
    if (text == m_sText)
        return;
    m_sText = text;
    if (text.isEmpty())
        Clear();
    else
        m_pStart->start();
}

bool CTreeFiltering::IsBusy() const
{
    return m_pStart->isActive() || m_pWalk || !m_ToExpand.empty();
}

void CTreeFiltering::Finish()
{
    if (m_pStart->isActive())
        Start();
    Walk(CTreeFilterWalk::CClock::time_point::max());
    ExpandSome(CTreeFilterWalk::CClock::time_point::max());
}

void CTreeFiltering::Start()
{
    m_pStart->stop();
    if (m_Model.IsLoading() || !IsActive())
        return;
    m_pWalk.reset();
    m_pNodes = std::make_unique<CTreeNodes>(m_Manager, CTreeFilter(ToText(m_sText)));
    m_pWalk = std::make_unique<CTreeFilterWalk>(*m_pNodes, m_Manager);
    m_pStep->start();
}

void CTreeFiltering::Step()
{
    const auto deadline = CTreeFilterWalk::CClock::now() + kSlice;
    // One kind of work a slice, so that what a step adds to the slice is added once.
    if (m_pWalk)
        Walk(deadline);
    else if (!m_ToExpand.empty())
        ExpandSome(deadline);
    else if (BurySome(deadline))
        m_pStep->stop();
}

void CTreeFiltering::Walk(CTreeFilterWalk::CClock::time_point deadline)
{
    if (!m_pWalk || !m_pWalk->Run(deadline))
        return;
    m_pWalk.reset();
    Apply();
}

void CTreeFiltering::Apply()
{
    KeepSelection();
    if (m_Model.GetFilter() == nullptr)
    {
        m_ExpandedBefore.clear();
        for (const CTreeItem& item : m_Model.GetLookedAtCategories())
            if (m_Tree.isExpanded(m_Model.FindIndex(item)))
                m_ExpandedBefore.push_back(item);
    }
    Bury(m_Model.SetFilteredNodes(std::move(m_pNodes)));
    const std::vector<CTreeItem> found = m_Model.GetLookedAtCategories();
    m_ToExpand.assign(found.begin(), found.end());
    RestoreSelection();
    if (m_OnApplied)
        m_OnApplied();
}

void CTreeFiltering::Clear()
{
    m_pStart->stop();
    m_pWalk.reset();
    m_pNodes.reset();
    if (m_Model.GetFilter())
    {
        KeepSelection();
        Bury(m_Model.ClearFilter());
        m_ToExpand.assign(m_ExpandedBefore.begin(), m_ExpandedBefore.end());
        m_ExpandedBefore.clear();
        m_Tree.expand(m_Model.FindIndex(CTreeItem::MakeRoot()));
        RestoreSelection();
        m_pStep->start();
    }
    if (m_OnApplied)
        m_OnApplied();
}

void CTreeFiltering::KeepSelection()
{
    const CTreeItem selected = m_Model.GetItem(m_Tree.currentIndex());
    if (!selected.IsNone())
        m_Selected = selected;
}

void CTreeFiltering::RestoreSelection()
{
    const QScopedValueRollback restoring(m_bRestoring, true);
    const QModelIndex index =
        m_Model.GetFilter() ? m_Model.FindIndex(m_Selected) : m_Model.Locate(m_Selected);
    if (!index.isValid())
        return;
    m_Tree.setCurrentIndex(index);
    m_Tree.scrollTo(index, QAbstractItemView::PositionAtCenter);
}

void CTreeFiltering::ExpandSome(CTreeFilterWalk::CClock::time_point deadline)
{
    // A category may take the whole slice: none begins when a part of it is gone.
    const auto enough = deadline - kSlice * 3 / 4;
    for (bool first = true; !m_ToExpand.empty(); first = false)
    {
        if (!first && CTreeFilterWalk::CClock::now() >= enough)
            return;
        const QModelIndex index = m_Model.FindIndex(m_ToExpand.front());
        m_ToExpand.pop_front();
        if (index.isValid())
            m_Tree.expand(index);
    }
}

void CTreeFiltering::Bury(std::unique_ptr<CTreeNodes> nodes)
{
    if (std::unique_ptr<CTreeNode> root = nodes->TakeRoot())
        m_Grave.push_back(std::move(root));
}

bool CTreeFiltering::BurySome(CTreeFilterWalk::CClock::time_point deadline)
{
    constexpr std::size_t kNodesPerLook = 64;
    for (std::size_t i = 1; !m_Grave.empty(); ++i)
    {
        if (i % kNodesPerLook == 0 && CTreeFilterWalk::CClock::now() >= deadline)
            return false;
        const std::unique_ptr<CTreeNode> node = std::move(m_Grave.back());
        m_Grave.pop_back();
        CTreeNodeList* children = node->m_pChildren.get();
        while (children && !children->IsEmpty())
            m_Grave.push_back(children->Take(children->GetCount() - 1));
    }
    return true;
}

QModelIndex CTreeFiltering::FindFirstMatch() const
{
    const CTreeFilter* filter = m_Model.GetFilter();
    QModelIndex index = m_Model.index(0, 0);
    while (filter && index.isValid() &&
           (!index.parent().isValid() || !filter->Accepts(m_Model.GetItem(index))))
        index = m_Model.index(0, 0, index); // A category without a match of its own is there for one below.
    return filter ? index : QModelIndex();
}

QString CTreeFiltering::GetCountText() const
{
    if (!IsActive() || m_Model.GetFilter() == nullptr)
        return {};
    const std::size_t count = m_Model.GetMatchCount();
    if (count == 0)
        return QStringLiteral("No matches");
    return count == 1 ? QStringLiteral("1 match") : QStringLiteral("%L1 matches").arg(count);
}

void CTreeFiltering::OnStructureChanged()
{
    if (!m_pWalk)
        return;
    m_pWalk.reset();
    m_pNodes.reset();
    m_pStart->start();
}

void CTreeFiltering::OnClosed()
{
    m_pStart->stop();
    m_pStep->stop();
    m_pWalk.reset();
    m_pNodes.reset();
    m_Selected = {};
    m_ExpandedBefore.clear();
    m_ToExpand.clear();
    m_Grave.clear();
}

void CTreeFiltering::OnLoaded()
{
    if (IsActive())
        Start();
}
