#include "struct/StructRowRestorePoint.h"

#include "CorvaneMgr.h"

#include <algorithm>
#include <memory>
#include <utility>

CStructRowRestorePoint::CStructRowRestorePoint(CCorvaneTypeStruct& attrib, std::size_t index)
    : m_pAttrib(&attrib), m_nIndex(index)
{
}

bool CStructRowRestorePoint::Undo(bool)
{
    if (m_pAttrib->GetInherit() || m_nIndex >= m_pAttrib->GetValueCount() || !m_pAttrib->BeginRowChange())
        return false;
    m_pAttrib->UnfollowRows(m_nIndex);
    m_Row = m_pAttrib->TakeRow(m_nIndex);
    m_pAttrib->OnRowsChanged(m_nIndex);
    return true;
}

bool CStructRowRestorePoint::Redo()
{
    // Members that came to the struct file, or left it, meanwhile are not in the row.
    if (m_pAttrib->GetInherit() || m_nIndex > m_pAttrib->GetValueCount() || !m_pAttrib->IsRowOfFile(m_Row) ||
        !m_pAttrib->BeginRowChange())
        return false;
    m_pAttrib->UnfollowRows(m_nIndex);
    m_pAttrib->PlaceRow(m_nIndex, std::exchange(m_Row, {}));
    m_pAttrib->OnRowsChanged(m_nIndex);
    return true;
}

std::size_t CStructRowRestorePoint::GetSize() const
{
    constexpr std::size_t kMemberSize = 160;
    return sizeof *this + m_Row.size() * kMemberSize;
}

bool CStructRowRestorePoint::Refers(const CCorvaneRef& object) const
{
    return m_pAttrib.Get() == &object ||
           std::any_of(m_Row.begin(), m_Row.end(),
                       [&](const auto& member) { return member.Get() == &object; });
}

void RecordRowInsertion(CCorvaneTypeStruct& attrib, std::size_t index)
{
    CCorvaneMgr* manager = attrib.GetManager();
    if (manager && manager->GetUndo().IsRecording())
        manager->GetUndo().AddRestorePoint(std::make_unique<CStructRowRestorePoint>(attrib, index));
}
