// The restore point of a category's move: holds the other place and exchanges it.
#pragma once

#include "CorvaneCategory.h"
#include "UndoRecorder.h"

#include <string>

class CCategoryMoveRestorePoint final : public CUndoRestorePoint
{
public:
    // The place ahead of the move: `parent` is null for a root category.
    CCategoryMoveRestorePoint(CCorvaneCategory& category, CCorvaneCategory* parent, std::u16string name);

    [[nodiscard]] bool Undo(bool redoable) override;
    [[nodiscard]] bool Redo() override { return Undo(true); }
    [[nodiscard]] std::size_t GetSize() const override { return 36; }
    [[nodiscard]] bool Refers(const CCorvaneRef& object) const override;

private:
    CRef<CCorvaneCategory> m_pCategory;
    CRef<CCorvaneCategory> m_pOtherParent;
    std::u16string m_sOtherName; // A move gives a new name where the old one is taken.
};
