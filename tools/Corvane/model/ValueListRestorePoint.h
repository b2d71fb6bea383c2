// The restore point of a change that moves values to other places of an attribute's list: holds the other
// list whole, since places are what all other restore points of values go by.
#pragma once

#include "CorvaneType.h"
#include "UndoRecorder.h"

class CValueListRestorePoint final : public CUndoRestorePoint
{
public:
    // `before` are the own values that stood before the change.
    CValueListRestorePoint(CCorvaneType& attrib, CCorvaneValueList before);

    [[nodiscard]] bool Undo(bool redoable) override;
    [[nodiscard]] bool Redo() override { return Exchange(); }
    [[nodiscard]] std::size_t GetSize() const override;
    [[nodiscard]] bool Refers(const CCorvaneRef& object) const override;

private:
    [[nodiscard]] bool Exchange();

    CRef<CCorvaneType> m_pAttrib;
    CCorvaneValueList m_Other;
};

// Removes or moves a value of an attribute that holds texts, and hands a restore point over when a group is
// open. False changed nothing; the gate has then told why.
[[nodiscard]] bool RemoveValueUndoable(CCorvaneType& attrib, std::size_t index);
[[nodiscard]] bool MoveValueUndoable(CCorvaneType& attrib, std::size_t index, bool up);
