#include "RecordRenameRestorePoint.h"

#include "CorvaneMgr.h"
#include "NameCompare.h"

#include <utility>

CRecordRenameRestorePoint::CRecordRenameRestorePoint(CCorvaneRecord& record, std::u16string other)
    : m_pRecord(&record), m_sOther(std::move(other))
{
}

bool CRecordRenameRestorePoint::Undo(bool)
{
    CCorvaneRecord& record = *m_pRecord;
    const CCorvaneCategory* category = record.GetCategory();
    const std::u16string current = record.GetName();
    // The name may have been taken meanwhile by something that no undo knows of, such as a refresh.
    const bool sameName = category == nullptr || EqualNames(current, m_sOther);
    const std::u16string name =
        sameName ? m_sOther : record.GetManager().MakeRecordNameUnique(*category, m_sOther, &record);
    if (!record.GetManager().RenameRecord(record, name))
        return false;
    m_sOther = current;
    return true;
}

bool CRecordRenameRestorePoint::Refers(const CCorvaneRef& object) const
{
    return m_pRecord.Get() == &object;
}
