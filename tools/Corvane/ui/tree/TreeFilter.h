// What the filter field looks for: names that contain a text, without regard to case.
#pragma once

#include "TreeItem.h"

#include <string>
#include <string_view>
#include <vector>

class CTreeFilter
{
public:
    explicit CTreeFilter(std::u16string_view text);

    [[nodiscard]] bool Matches(std::u16string_view name) const;
    [[nodiscard]] const std::u16string& GetText() const { return m_sText; }

    // An object that stays in sight though its name does not match: it was just made, or is being renamed.
    void Keep(const CTreeItem& item);
    [[nodiscard]] bool IsKept(const CTreeItem& item) const;
    [[nodiscard]] bool Accepts(const CTreeItem& item) const
    {
        return Matches(item.GetName()) || IsKept(item);
    }

private:
    std::u16string m_sText;
    std::u16string m_sFolded;
    std::vector<CTreeItem> m_Kept;
};
