#include "RecordMoveRestorePoint.h"

#include "CorvaneMgr.h"
#include "SourceGate.h"

#include <utility>

SRecordPlace::SRecordPlace(const CCorvaneRecord& record)
    : m_pCategory(record.GetCategory()), m_sName(record.GetName()), m_sFile(record.GetFile()),
      m_Stamp(record.GetFileStamp())
{
}

CRecordMoveRestorePoint::CRecordMoveRestorePoint(CCorvaneRecord& record, SRecordPlace former)
    : m_pRecord(&record), m_Former(std::move(former))
{
}

bool CRecordMoveRestorePoint::Undo(bool)
{
    CCorvaneRecord& record = *m_pRecord;
    SRecordPlace current(record);
    // The move back takes the name that the record had there, and the file that it left there: otherwise the
    // next load would find the record twice.
    if (IsFormerFileOurs())
        record.SetFile(m_Former.m_sFile);
    static_cast<void>(record.SetName(m_Former.m_sName));
    if (!record.GetManager().MoveRecord(m_Former.m_pCategory.Get(), record, false))
    {
        record.SetFile(current.m_sFile);
        static_cast<void>(record.SetName(current.m_sName));
        return false;
    }
    m_Former = std::move(current);
    return true;
}

// Somebody may have written to it, or another record may have taken it, since the record left.
bool CRecordMoveRestorePoint::IsFormerFileOurs() const
{
    const CCorvaneMgr& manager = m_pRecord->GetManager();
    SFileInfo info;
    return !m_Former.m_sFile.empty() && !manager.GetGate().IsConnected() &&
           manager.GetContext().m_Files.GetInfo(m_Former.m_sFile, info).IsOk() && info.m_bExists &&
           info.m_Stamp == m_Former.m_Stamp &&
           !m_Former.m_pCategory->IsFileTaken(m_Former.m_sFile, m_pRecord.Get());
}

bool CRecordMoveRestorePoint::Refers(const CCorvaneRef& object) const
{
    return m_pRecord.Get() == &object || m_Former.m_pCategory.Get() == &object;
}
