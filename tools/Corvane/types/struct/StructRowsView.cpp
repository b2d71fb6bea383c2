#include "struct/StructRowsView.h"

#include "CorvaneMgr.h"
#include "RunState.h"
#include "TypeViewRegistry.h"
#include "struct/CorvaneTypeStruct.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

bool CStructRowsView::IsInLine(const CStructRows& rows) const
{
    if (rows.size() != m_Rows.size())
        return false;
    for (std::size_t i = 0; i < m_Rows.size(); ++i)
    {
        const auto members = rows[i];
        if (!std::equal(members.begin(), members.end(), m_Rows[i].m_Members.begin(),
                        m_Rows[i].m_Members.end(),
                        [](const CRef<CCorvaneType>& attrib, const SMember& member)
                        { return attrib == member.m_pAttrib; }))
            return false;
    }
    return true;
}

bool CStructRowsView::Update(const CStructRows& rows)
{
    if (IsInLine(rows))
        return false;
    std::unordered_map<const CCorvaneType*, SMember> before;
    for (SRow& row : m_Rows)
    {
        for (SMember& member : row.m_Members)
            before.emplace(member.m_pAttrib.Get(), std::move(member));
    }
    m_Rows.assign(rows.size(), {});
    for (std::size_t i = 0; i < m_Rows.size(); ++i)
    {
        for (const CRef<CCorvaneType>& attrib : rows[i])
        {
            const auto known = before.extract(attrib.Get());
            m_Rows[i].m_Members.push_back(known ? std::move(known.mapped()) : MakeMember(*attrib));
        }
    }
    for (const auto& [attrib, member] : before)
        member.m_pView->Detach();
    return true;
}

CStructRowsView::SMember CStructRowsView::MakeMember(CCorvaneType& attrib)
{
    SMember member{CRef<CCorvaneType>(&attrib), GetTypeViews().Create(attrib, m_List)};
    // Who opens a struct wants to see what is in it; a struct in it would show all of its own rows.
    const CCorvaneMgr* manager = attrib.GetManager();
    const bool expandAll = manager != nullptr && manager->GetContext().m_Run.Test(APP_EXPAND);
    member.m_pView->SetExpanded(expandAll || attrib.GetTypeGuid() != CCorvaneTypeStruct::kTypeGuid);
    return member;
}

void CStructRowsView::Clear()
{
    for (const SRow& row : std::exchange(m_Rows, {}))
    {
        for (const SMember& member : row.m_Members)
            member.m_pView->Detach();
    }
}

void CStructRowsView::Layout(int top, int width)
{
    for (SRow& row : m_Rows)
    {
        row.m_nTop = top;
        for (SMember& member : row.m_Members)
        {
            member.m_nTop = top;
            member.m_nHeight = member.m_pView->Measure(width);
            top += member.m_nHeight;
        }
        if (row.m_Members.empty()) // Its number still wants a place.
            top += kListRowHeight;
        row.m_nHeight = top - row.m_nTop;
    }
    m_nBottom = top;
}

const CStructRowsView::SMember* CStructRowsView::GetMember(const SPlace& place) const
{
    if (place.m_nRow < 0 || place.m_nRow >= GetRowCount() || place.m_nMember < 0)
        return nullptr;
    const std::vector<SMember>& members = GetRow(place.m_nRow).m_Members;
    const auto index = static_cast<std::size_t>(place.m_nMember);
    return index < members.size() ? &members[index] : nullptr;
}

CStructRowsView::SPlace CStructRowsView::Find(const CCorvaneTypeView* view) const
{
    for (int row = 0; row < GetRowCount(); ++row)
    {
        const std::vector<SMember>& members = GetRow(row).m_Members;
        const auto found = std::find_if(members.begin(), members.end(),
                                        [view](const SMember& member) { return member.m_pView == view; });
        if (found != members.end())
            return {row, static_cast<int>(found - members.begin())};
    }
    return {};
}

int CStructRowsView::FindRow(int y) const
{
    const auto behind = std::upper_bound(m_Rows.begin(), m_Rows.end(), y,
                                         [](int value, const SRow& row) { return value < row.m_nTop; });
    return behind == m_Rows.begin() ? (m_Rows.empty() ? -1 : 0)
                                    : static_cast<int>(behind - m_Rows.begin()) - 1;
}
