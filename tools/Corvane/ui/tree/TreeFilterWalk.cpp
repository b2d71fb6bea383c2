#include "TreeFilterWalk.h"

#include "CorvaneMgr.h"

#include <algorithm>
#include <utility>

CTreeFilterWalk::CTreeFilterWalk(CTreeNodes& nodes, const CCorvaneMgr& manager)
    : m_Nodes(nodes), m_Filter(*nodes.GetFilter())
{
    SFrame root;
    root.m_Item = CTreeItem::MakeRoot();
    for (const CRef<CCorvaneCategory>& category : manager.GetRootCategories())
        if (category->GetParent() == nullptr)
            root.m_Children.push_back(category);
    m_Frames.push_back(std::move(root));
}

CTreeFilterWalk::CTreeFilterWalk(CTreeNodes& nodes, CCorvaneCategory& category)
    : m_Nodes(nodes), m_Filter(*nodes.GetFilter())
{
    Enter(category);
}

bool CTreeFilterWalk::Run(CClock::time_point deadline)
{
    while (!m_Frames.empty())
    {
        if (CClock::now() >= deadline)
            return false;
        Step();
    }
    return true;
}

void CTreeFilterWalk::Enter(CCorvaneCategory& category)
{
    SFrame frame;
    frame.m_Item = CTreeItem(category);
    frame.m_Children.assign(category.GetChildren().begin(), category.GetChildren().end());
    m_Frames.push_back(std::move(frame));
}

void CTreeFilterWalk::Step()
{
    SFrame& frame = m_Frames.back();
    if (frame.m_nNextChild < frame.m_Children.size())
        Enter(*frame.m_Children[frame.m_nNextChild++]);
    else if (frame.m_Item.IsRoot() || !LookAtRecords(frame))
        Leave();
}

bool CTreeFilterWalk::LookAtRecords(SFrame& frame)
{
    constexpr std::size_t kRecordsPerStep = 256;
    const auto records = frame.m_Item.GetCategory()->GetRecords();
    const std::size_t end = std::min(records.size(), frame.m_nNextRecord + kRecordsPerStep);
    for (; frame.m_nNextRecord < end; ++frame.m_nNextRecord)
    {
        CTreeItem item(*records[frame.m_nNextRecord]);
        // A record that is just being moved may stand in its new list ahead of the event.
        if (m_Filter.Accepts(item) && m_Nodes.Find(item) == nullptr)
            frame.m_Found.push_back(m_Nodes.Make(std::move(item)));
    }
    return end < records.size();
}

void CTreeFilterWalk::Leave()
{
    SFrame frame = std::move(m_Frames.back());
    m_Frames.pop_back();
    if (frame.m_Item.IsRoot())
    {
        CTreeNodes::SetChildren(*m_Nodes.GetRoot(), std::move(frame.m_Found));
        return;
    }
    if (frame.m_Found.empty() && !m_Filter.Accepts(frame.m_Item))
        return;
    CTreeNodes::Sort(frame.m_Found);
    std::unique_ptr<CTreeNode> node = m_Nodes.Make(std::move(frame.m_Item));
    CTreeNodes::SetChildren(*node, std::move(frame.m_Found));
    if (m_Frames.empty())
        m_pResult = std::move(node);
    else
        m_Frames.back().m_Found.push_back(std::move(node));
}
