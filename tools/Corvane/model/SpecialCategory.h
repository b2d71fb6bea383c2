// A category that no file stands for, such as the one of compare results: it is in no output, is found by its
// type, and comes into the tree and leaves it with its records.
#pragma once

#include "CorvaneCategory.h"

class CSpecialCategory : public CCorvaneCategory
{
public:
    // `type` is not 0.
    CSpecialCategory(CCorvaneMgr& manager, std::u16string_view name, std::u16string_view help,
                     std::u16string_view comment, int type)
        : CCorvaneCategory(manager, name, help, comment, nullptr, nullptr, CATEGORY_FLAGS_SPECIAL),
          m_nType(type)
    {
    }

    [[nodiscard]] bool SaveToFile(std::u16string_view) override { return true; }
    [[nodiscard]] CreatorHandle AddToDatabase(IDatabaseCreatorMgr&, CreatorHandle) override { return 0; }
    [[nodiscard]] int GetCategoryType() const override { return m_nType; }

private:
    int m_nType;
};
