// The restore point of one value: holds the other text and exchanges it, so that undo and redo are one
// operation; a value that was added is removed and added again.
#pragma once

#include "CorvaneType.h"
#include "UndoRecorder.h"

#include <string>

class CValueRestorePoint final : public CUndoRestorePoint
{
public:
    // `added` marks a value that did not stand before the change.
    CValueRestorePoint(CCorvaneType& attrib, std::size_t index, bool added);

    [[nodiscard]] bool Undo(bool redoable) override;
    [[nodiscard]] bool Redo() override;
    [[nodiscard]] std::size_t GetSize() const override;
    [[nodiscard]] bool Refers(const CCorvaneRef& object) const override;

private:
    // Sets the other text and keeps the one that stood there.
    [[nodiscard]] bool Exchange();

    CRef<CCorvaneType> m_pAttrib;
    std::size_t m_nIndex;
    std::u16string m_sOther;
    bool m_bAdded;
};

// Hands a restore point over when a group is open.
void RecordValueChange(CCorvaneType& attrib, std::size_t index, bool added);
