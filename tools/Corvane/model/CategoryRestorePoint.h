// The restore point of a category that was copied or deleted. It does the operation the other way round and
// rewrites itself, so that it serves any number of undo and redo turns.
#pragma once

#include "CorvaneCategory.h"
#include "RestoreAction.h"
#include "UndoRecorder.h"

class CCategoryRestorePoint final : public CUndoRestorePoint
{
public:
    // `parent` is that of a category which has left the tree; null for a root category.
    CCategoryRestorePoint(CCorvaneCategory& category, ERestoreAction action,
                          CCorvaneCategory* parent = nullptr);
    // What a deleted category still holds ends with the last point that remembers it.
    ~CCategoryRestorePoint() override;

    [[nodiscard]] bool Undo(bool redoable) override;
    [[nodiscard]] bool Redo() override { return Undo(true); }
    [[nodiscard]] std::size_t GetSize() const override { return 16; }
    [[nodiscard]] bool Refers(const CCorvaneRef& object) const override;

private:
    [[nodiscard]] bool TakeOut();

    CRef<CCorvaneCategory> m_pCategory;
    ERestoreAction m_Action;
    CRef<CCorvaneCategory> m_pParent; // A category outside the tree has no link to its parent.
};
