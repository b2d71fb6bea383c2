#include "ValueRestorePoint.h"

#include "CorvaneMgr.h"

#include <memory>
#include <utility>

CValueRestorePoint::CValueRestorePoint(CCorvaneType& attrib, std::size_t index, bool added)
    : m_pAttrib(&attrib), m_nIndex(index), m_bAdded(added)
{
    if (!added)
        m_sOther = attrib.GetValue(index);
}

bool CValueRestorePoint::Undo(bool redoable)
{
    if (m_nIndex >= m_pAttrib->GetValueCount())
        return false;
    if (!m_bAdded)
        return Exchange();
    std::u16string current;
    if (redoable)
        current = m_pAttrib->GetValue(m_nIndex);
    if (!m_pAttrib->RemoveValue(m_nIndex))
        return false;
    m_sOther = std::move(current);
    m_pAttrib->NotifyViews(nullptr, kViewValueChanged);
    return true;
}

bool CValueRestorePoint::Redo()
{
    if (!m_bAdded)
        return Exchange();
    // The stored text goes back as it stands: a type's own operation would encode it a second time. The gate
    // and the modified mark take part as they did the first time.
    if (!m_pAttrib->CCorvaneType::AddValue(m_sOther))
        return false;
    m_pAttrib->NotifyViews(nullptr, kViewValueChanged);
    return true;
}

bool CValueRestorePoint::Exchange()
{
    std::u16string current(m_pAttrib->GetValue(m_nIndex));
    if (!m_pAttrib->CCorvaneType::SetValue(m_nIndex, m_sOther))
        return false;
    m_sOther = std::move(current);
    m_pAttrib->NotifyViews(nullptr, kViewValueChanged);
    return true;
}

std::size_t CValueRestorePoint::GetSize() const
{
    return m_sOther.capacity() * 2 + 48;
}

bool CValueRestorePoint::Refers(const CCorvaneRef& object) const
{
    return m_pAttrib.Get() == &object;
}

void RecordValueChange(CCorvaneType& attrib, std::size_t index, bool added)
{
    CCorvaneMgr* manager = attrib.GetManager();
    if (manager && manager->GetUndo().IsRecording())
        manager->GetUndo().AddRestorePoint(std::make_unique<CValueRestorePoint>(attrib, index, added));
}
