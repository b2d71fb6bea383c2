// The restore points of changes to the rows of a struct attribute by a user.
#pragma once

#include "UndoRecorder.h"
#include "struct/CorvaneTypeStruct.h"

#include <cstddef>
#include <vector>

// A row that was inserted or removed: while it is out of the attribute, the point holds its members.
class CStructRowRestorePoint final : public CUndoRestorePoint
{
public:
    // An inserted row.
    CStructRowRestorePoint(CCorvaneTypeStruct& attrib, std::size_t index);
    // Removes a row, with a point of its own when a group is open. False changed nothing.
    [[nodiscard]] static bool RemoveRow(CCorvaneTypeStruct& attrib, std::size_t index);

    // False when the attribute inherits by now or has lost the row's place by other means.
    [[nodiscard]] bool Undo(bool redoable) override;
    [[nodiscard]] bool Redo() override { return Exchange(); }
    [[nodiscard]] std::size_t GetSize() const override;
    [[nodiscard]] bool Refers(const CCorvaneRef& object) const override;

private:
    [[nodiscard]] bool Exchange();
    [[nodiscard]] bool TakeOut();
    [[nodiscard]] bool PutBack();

    CRef<CCorvaneTypeStruct> m_pAttrib;
    std::size_t m_nIndex;
    bool m_bOut = false;
    std::vector<CRef<CCorvaneType>> m_Row;
};

// A row that changed places with its neighbour.
class CStructMoveRestorePoint final : public CUndoRestorePoint
{
public:
    // `upper` is the lower number of the two.
    CStructMoveRestorePoint(CCorvaneTypeStruct& attrib, std::size_t upper);

    [[nodiscard]] bool Undo(bool redoable) override;
    [[nodiscard]] bool Redo() override { return Undo(false); }
    [[nodiscard]] std::size_t GetSize() const override { return sizeof *this; }
    [[nodiscard]] bool Refers(const CCorvaneRef& object) const override;

private:
    CRef<CCorvaneTypeStruct> m_pAttrib;
    std::size_t m_nUpper;
};

// Hands a restore point over when a group is open.
void RecordRowInsertion(CCorvaneTypeStruct& attrib, std::size_t index);
// Moves a row by one place, with a restore point when a group is open. False changed nothing.
[[nodiscard]] bool MoveRowUndoable(CCorvaneTypeStruct& attrib, std::size_t index, bool up);
