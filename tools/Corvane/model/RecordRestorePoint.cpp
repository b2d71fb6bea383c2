#include "RecordRestorePoint.h"

#include "CorvaneMgr.h"

CRecordRestorePoint::~CRecordRestorePoint()
{
    if (m_Action == ERestoreAction::Deleted && m_bApplied)
        m_pRecord->Clear();
}

bool CRecordRestorePoint::Undo(bool redoable)
{
    const bool deleted = m_Action == ERestoreAction::Deleted;
    if (!(deleted ? BringBack() : TakeOut()))
        return false;
    if (redoable)
        m_Action = deleted ? ERestoreAction::Referenced : ERestoreAction::Deleted;
    return true;
}

bool CRecordRestorePoint::TakeOut()
{
    m_pCategory = CRef<CCorvaneCategory>(m_pRecord->GetCategory());
    return m_pRecord->GetManager().DeleteRecord(*m_pRecord, true);
}

bool CRecordRestorePoint::BringBack()
{
    if (m_pRecord->GetCategory() == nullptr && m_pCategory)
        static_cast<void>(m_pRecord->SetCategory(m_pCategory.Get(), true));
    return m_pRecord->GetManager().ReinsertRecord(*m_pRecord);
}

bool CRecordRestorePoint::Refers(const CCorvaneRef& object) const
{
    return m_pRecord.Get() == &object || m_pCategory.Get() == &object;
}
