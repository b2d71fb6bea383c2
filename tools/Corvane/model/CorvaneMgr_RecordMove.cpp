// Moves of records between categories. Inside one directory only a key of the record's file changes; between
// directories the record is written to the new one.
#include "CorvaneMgr.h"

#include "FormatText.h"
#include "RunState.h"
#include "UndoRecorder.h"
#include "host/Questions.h"

#include <utility>

bool CCorvaneMgr::MayMoveRecord(const CCorvaneCategory* dest, CCorvaneRecord& record) const
{
    const CCorvaneCategory* source = record.GetCategory();
    if (dest == nullptr || source == nullptr || dest == source)
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

bool CCorvaneMgr::MoveRecordUnchecked(CCorvaneCategory* dest, CCorvaneRecord& record, bool silent)
{
    if (!MayMoveRecord(dest, record))
        return false;
    const CStateScope moving(m_Context.m_Run, APP_MOVING);
    const CRef<CCorvaneRecord> keepAlive(&record);
    const CRef<CCorvaneCategory> source(record.GetCategory());
    if (!source->RemoveRecord(record))
        return false;
    if (!record.SetName(MakeRecordNameUnique(*dest, record.GetName(), nullptr)) ||
        !record.SetCategory(dest, silent))
    {
        source->AddRecord(record);
        return false;
    }
    dest->AddRecord(record);
    Notify(CCorvaneEvent(ECorvaneEvent::RecordMoved, &record));
    return true;
}
