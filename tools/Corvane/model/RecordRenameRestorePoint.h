// The restore point of a record's rename: holds the other name and exchanges it.
#pragma once

#include "CorvaneRecord.h"
#include "UndoRecorder.h"

#include <string>

class CRecordRenameRestorePoint final : public CUndoRestorePoint
{
public:
    CRecordRenameRestorePoint(CCorvaneRecord& record, std::u16string other);

    [[nodiscard]] bool Undo(bool redoable) override;
    [[nodiscard]] bool Redo() override { return Undo(true); }
    [[nodiscard]] std::size_t GetSize() const override { return 60; }
    [[nodiscard]] bool Refers(const CCorvaneRef& object) const override;

private:
    CRef<CCorvaneRecord> m_pRecord;
    std::u16string m_sOther;
};
