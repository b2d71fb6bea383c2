// The restore point of a record that was inserted, copied or deleted. It does the operation the other way
// round and rewrites itself, so that it serves any number of undo and redo turns. While the record is out of
// the tree, the point keeps it alive.
#pragma once

#include "CorvaneCategory.h"
#include "CorvaneRecord.h"
#include "RestoreAction.h"
#include "UndoRecorder.h"

class CRecordRestorePoint final : public CUndoRestorePoint
{
public:
    CRecordRestorePoint(CCorvaneRecord& record, ERestoreAction action) : m_pRecord(&record), m_Action(action)
    {
    }
    // A deleted record ends with the last point that remembers it.
    ~CRecordRestorePoint() override;

    [[nodiscard]] bool Undo(bool redoable) override;
    [[nodiscard]] bool Redo() override { return Undo(true); }
    [[nodiscard]] std::size_t GetSize() const override { return 16; }
    [[nodiscard]] bool Refers(const CCorvaneRef& object) const override;

private:
    [[nodiscard]] bool TakeOut();
    [[nodiscard]] bool BringBack();

    CRef<CCorvaneRecord> m_pRecord;
    ERestoreAction m_Action;
    CRef<CCorvaneCategory> m_pCategory; // Where the record stood: one that was emptied does not know it.
};
