#include "ValueListRestorePoint.h"

#include "CorvaneMgr.h"
#include "CorvaneRecord.h"

#include <memory>
#include <utility>

namespace
{
// Runs `change` and keeps what stood before it.
template <class Change> bool ChangeList(CCorvaneType& attrib, Change change)
{
    CCorvaneValueList before = attrib.GetOwnValues();
    if (!change())
        return false;
    CCorvaneMgr* manager = attrib.GetManager();
    if (manager != nullptr && manager->GetUndo().IsRecording())
        manager->GetUndo().AddRestorePoint(
            std::make_unique<CValueListRestorePoint>(attrib, std::move(before)));
    return true;
}
} // namespace

CValueListRestorePoint::CValueListRestorePoint(CCorvaneType& attrib, CCorvaneValueList before)
    : m_pAttrib(&attrib), m_Other(std::move(before))
{
}

bool CValueListRestorePoint::Undo(bool)
{
    return Exchange();
}

bool CValueListRestorePoint::Exchange()
{
    if (!m_pAttrib->PrepareForEdit())
        return false;
    CCorvaneRecord* record = m_pAttrib->GetOwnerRecord();
    if (record != nullptr)
        record->SetModified(true);
    if (record != nullptr && record->GetParent() != nullptr)
        m_pAttrib->SetInherit(false, false); // As with every value that is written.
    CCorvaneValueList current = m_pAttrib->GetOwnValues();
    m_pAttrib->ReplaceValues(m_Other);
    m_Other = std::move(current);
    if (CCorvaneMgr* manager = m_pAttrib->GetManager())
        manager->MarkAttributeAsModified(m_pAttrib.Get());
    if (record != nullptr)
        record->NotifyReferencees(EHierarchyEvent::ValueSet, *m_pAttrib);
    m_pAttrib->NotifyViews(nullptr, kViewValueChanged);
    return true;
}

std::size_t CValueListRestorePoint::GetSize() const
{
    std::size_t units = 0;
    for (std::size_t i = 0; i < m_Other.GetCount(); ++i)
        units += m_Other.Get(i).size();
    return units * 2 + 48;
}

bool CValueListRestorePoint::Refers(const CCorvaneRef& object) const
{
    return m_pAttrib.Get() == &object;
}

bool RemoveValueUndoable(CCorvaneType& attrib, std::size_t index)
{
    return ChangeList(attrib, [&] { return attrib.RemoveValue(index); });
}

bool MoveValueUndoable(CCorvaneType& attrib, std::size_t index, bool up)
{
    return ChangeList(attrib, [&] { return up ? attrib.MoveValueUp(index) : attrib.MoveValueDown(index); });
}
