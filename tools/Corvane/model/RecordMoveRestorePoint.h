// The restore point of a record's move to another directory.
#pragma once

#include "CorvaneCategory.h"
#include "CorvaneRecord.h"
#include "UndoRecorder.h"

#include <string>

// Where a record was ahead of a move: its category, and the name and file that it had there.
struct SRecordPlace
{
    explicit SRecordPlace(const CCorvaneRecord& record);

    CRef<CCorvaneCategory> m_pCategory;
    std::u16string m_sName;
    std::u16string m_sFile;
    SFileStamp m_Stamp;
};

class CRecordMoveRestorePoint final : public CUndoRestorePoint
{
public:
    CRecordMoveRestorePoint(CCorvaneRecord& record, SRecordPlace former);

    [[nodiscard]] bool Undo(bool redoable) override;
    [[nodiscard]] bool Redo() override { return Undo(true); }
    [[nodiscard]] std::size_t GetSize() const override { return 36; }
    [[nodiscard]] bool Refers(const CCorvaneRef& object) const override;

private:
    [[nodiscard]] bool IsFormerFileOurs() const;

    CRef<CCorvaneRecord> m_pRecord;
    SRecordPlace m_Former;
};
