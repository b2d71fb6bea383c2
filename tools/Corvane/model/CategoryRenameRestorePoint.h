// The restore point of a category's rename: holds the other name and exchanges it.
#pragma once

#include "CorvaneCategory.h"
#include "UndoRecorder.h"

#include <string>

class CCategoryRenameRestorePoint final : public CUndoRestorePoint
{
public:
    CCategoryRenameRestorePoint(CCorvaneCategory& category, std::u16string other);

    [[nodiscard]] bool Undo(bool redoable) override;
    [[nodiscard]] bool Redo() override { return Undo(true); }
    [[nodiscard]] std::size_t GetSize() const override { return 60; }
    [[nodiscard]] bool Refers(const CCorvaneRef& object) const override
    {
        return m_pCategory.Get() == &object;
    }

private:
    CRef<CCorvaneCategory> m_pCategory;
    std::u16string m_sOther;
};
