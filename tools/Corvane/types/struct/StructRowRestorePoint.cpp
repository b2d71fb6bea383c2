#include "struct/StructRowRestorePoint.h"

#include "CorvaneMgr.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace
{
void AddPoint(CCorvaneTypeStruct& attrib, std::unique_ptr<CUndoRestorePoint> point)
{
    CCorvaneMgr* manager = attrib.GetManager();
    if (manager && manager->GetUndo().IsRecording())
        manager->GetUndo().AddRestorePoint(std::move(point));
}
} // namespace

CStructRowRestorePoint::CStructRowRestorePoint(CCorvaneTypeStruct& attrib, std::size_t index)
    : m_pAttrib(&attrib), m_nIndex(index)
{
}

bool CStructRowRestorePoint::Undo(bool)
{
    return Exchange();
}

bool CStructRowRestorePoint::Exchange()
{
    if (m_bOut ? !PutBack() : !TakeOut())
        return false;
    m_bOut = !m_bOut;
    return true;
}

bool CStructRowRestorePoint::TakeOut()
{
    if (m_pAttrib->GetInherit() || m_nIndex >= m_pAttrib->GetValueCount() || !m_pAttrib->BeginRowChange())
        return false;
    m_pAttrib->UnfollowRows(m_nIndex);
    m_Row = m_pAttrib->TakeRow(m_nIndex);
    m_pAttrib->OnRowsChanged(m_nIndex);
    return true;
}

bool CStructRowRestorePoint::PutBack()
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

bool CStructRowRestorePoint::RemoveRow(CCorvaneTypeStruct& attrib, std::size_t index)
{
    auto point = std::make_unique<CStructRowRestorePoint>(attrib, index);
    if (!attrib.CutRow(index, point->m_Row))
        return false;
    point->m_bOut = true;
    AddPoint(attrib, std::move(point));
    return true;
}

CStructMoveRestorePoint::CStructMoveRestorePoint(CCorvaneTypeStruct& attrib, std::size_t upper)
    : m_pAttrib(&attrib), m_nUpper(upper)
{
}

bool CStructMoveRestorePoint::Undo(bool)
{
    return !m_pAttrib->GetInherit() && m_pAttrib->MoveValueDown(m_nUpper);
}

bool CStructMoveRestorePoint::Refers(const CCorvaneRef& object) const
{
    return m_pAttrib.Get() == &object;
}

void RecordRowInsertion(CCorvaneTypeStruct& attrib, std::size_t index)
{
    AddPoint(attrib, std::make_unique<CStructRowRestorePoint>(attrib, index));
}

bool MoveRowUndoable(CCorvaneTypeStruct& attrib, std::size_t index, bool up)
{
    if (!(up ? attrib.MoveValueUp(index) : attrib.MoveValueDown(index)))
        return false;
    AddPoint(attrib, std::make_unique<CStructMoveRestorePoint>(attrib, up ? index - 1 : index));
    return true;
}
