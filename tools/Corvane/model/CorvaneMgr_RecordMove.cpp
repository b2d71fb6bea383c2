// Moves of records between categories. Inside one directory only a key of the record's file changes; between
// directories the record is written to the new one.
#include "CorvaneMgr.h"

#include "FormatText.h"
#include "RecordMoveRestorePoint.h"
#include "RunState.h"
#include "SourceGate.h"
#include "UndoRecorder.h"
#include "host/Questions.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace
{
// Where a record stood in the tree, for a move that fails half-way.
class CTreePlace
{
public:
    explicit CTreePlace(CCorvaneRecord& record)
        : m_Record(record), m_pCategory(record.GetCategory()), m_sName(record.GetName()),
          m_bModified(record.TestFlag(RECORD_FLAG_MODIFIED))
    {
        const auto records = m_pCategory->GetRecords();
        const auto place = std::find(records.begin(), records.end(), &record);
        m_nPosition = static_cast<std::size_t>(place - records.begin());
    }

    void Restore() const
    {
        m_Record.GetCategory()->RemoveRecord(m_Record);
        static_cast<void>(m_Record.SetCategory(m_pCategory.Get(), true));
        // Source control has let the new name pass, so that it lets the old one.
        static_cast<void>(m_Record.SetName(m_sName));
        m_Record.SetFlag(RECORD_FLAG_MODIFIED, m_bModified);
        m_pCategory->AddRecord(m_Record, m_nPosition);
    }

private:
    CCorvaneRecord& m_Record;
    CRef<CCorvaneCategory> m_pCategory;
    std::u16string m_sName;
    bool m_bModified;
    std::size_t m_nPosition = 0;
};
} // namespace

bool CCorvaneMgr::MayMoveRecord(const CCorvaneCategory* dest, CCorvaneRecord& record) const
{
    const CCorvaneCategory* source = record.GetCategory();
    if (dest == nullptr || source == nullptr || dest == source || !source->Contains(record))
        return false;
    if (dest->GetSchema() != source->GetSchema())
    {
        m_Context.m_Questions.Tell(
            u"Move Record Failed",
            u"Failed to move record: The destination category is of a different schema.");
        return false;
    }
    const int dependencies = Notify(CCorvaneEvent(ECorvaneEvent::RecordMoving, &record));
    return dependencies == 0 || m_Undo.IsReplaying() ||
           AskYes(u"Record Dependencies",
                  FormatText(u"The record '%s' contains dependencies.  Are you sure you want to move this "
                             u"record?",
                             record.GetName()));
}

bool CCorvaneMgr::MoveRecord(CCorvaneCategory* dest, CCorvaneRecord& record, bool silent)
{
    if (!MayMoveRecord(dest, record))
        return false;
    const CRef<CCorvaneRecord> keepAlive(&record);
    CCorvaneCategory* system = GetSystemCategory(dest);
    if (system == GetSystemCategory(record.GetCategory()))
    {
        if (!MoveRecordVirtual(dest, &record, silent))
            return false;
        Notify(CCorvaneEvent(ECorvaneEvent::RecordMoved, &record));
        return true;
    }
    if (system == nullptr || !system->IsAttached() || !SaveCategory(system, nullptr))
        return false;
    const CStateScope moving(m_Context.m_Run, APP_MOVING);
    const bool controlled = !silent && m_Gate.IsConnected();
    if (controlled && !TakeUnderControl(*dest, record))
        return false;
    SRecordPlace former(record);
    const CTreePlace place(record);
    if (!MoveToDirectory(*dest, *system, record, silent))
    {
        place.Restore();
        return false;
    }
    FinishRecordMove(record, std::move(former));
    return true;
}

bool CCorvaneMgr::TakeUnderControl(CCorvaneCategory& dest, CCorvaneRecord& record)
{
    if (!m_Gate.AddCategoryTree(dest))
        return false;
    if (!m_Gate.IsControlled(record.GetFile()) && !m_Gate.AddRecord(record))
        return false;
    return m_Gate.CheckOutForEdit(record);
}

bool CCorvaneMgr::MoveToDirectory(CCorvaneCategory& dest, CCorvaneCategory& system, CCorvaneRecord& record,
                                  bool silent)
{
    if (!record.GetCategory()->RemoveRecord(record) || !record.SetCategory(&system, silent))
        return false;
    system.AddRecord(record);
    if (!silent && m_Gate.IsConnected() && !m_Gate.Move(record, system))
        return false;
    if (!record.SetName(MakeRecordNameUnique(system, record.GetName(), &record)))
        return false;
    if (&dest != &system)
        return MoveRecordVirtual(&dest, &record, silent);
    // A file that could not be written was told, and the record waits for the next save.
    static_cast<void>(SaveRecord(&record, silent));
    return true;
}

bool CCorvaneMgr::MoveRecordUnchecked(CCorvaneCategory* dest, CCorvaneRecord& record, bool silent)
{
    if (!MayMoveRecord(dest, record))
        return false;
    const CStateScope moving(m_Context.m_Run, APP_MOVING);
    const CRef<CCorvaneRecord> keepAlive(&record);
    SRecordPlace former(record);
    const CTreePlace place(record);
    former.m_pCategory->RemoveRecord(record);
    if (!record.SetName(MakeRecordNameUnique(*dest, record.GetName(), nullptr)) ||
        !record.SetCategory(dest, silent))
    {
        place.Restore();
        return false;
    }
    dest->AddRecord(record);
    FinishRecordMove(record, std::move(former));
    return true;
}

void CCorvaneMgr::FinishRecordMove(CCorvaneRecord& record, SRecordPlace former)
{
    record.MarkReferenceesModified();
    Notify(CCorvaneEvent(ECorvaneEvent::RecordMoved, &record));
    if (m_Undo.IsRecording())
        m_Undo.AddRestorePoint(std::make_unique<CRecordMoveRestorePoint>(record, std::move(former)));
}
