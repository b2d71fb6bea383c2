// The restore point of a row that was inserted: while the row is taken back it holds its members.
#pragma once

#include "UndoRecorder.h"
#include "struct/CorvaneTypeStruct.h"

#include <cstddef>
#include <vector>

class CStructRowRestorePoint final : public CUndoRestorePoint
{
public:
    CStructRowRestorePoint(CCorvaneTypeStruct& attrib, std::size_t index);

    // False when the attribute inherits by now or has lost the row's place by other means.
    [[nodiscard]] bool Undo(bool redoable) override;
    [[nodiscard]] bool Redo() override;
    [[nodiscard]] std::size_t GetSize() const override;
    [[nodiscard]] bool Refers(const CCorvaneRef& object) const override;

private:
    CRef<CCorvaneTypeStruct> m_pAttrib;
    std::size_t m_nIndex;
    std::vector<CRef<CCorvaneType>> m_Row;
};

// Hands a restore point over when a group is open.
void RecordRowInsertion(CCorvaneTypeStruct& attrib, std::size_t index);
