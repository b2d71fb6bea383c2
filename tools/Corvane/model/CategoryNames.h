// The categories of one list by their names, and free names for new ones. Whoever owns the list tells of each
// change.
#pragma once

#include "CorvaneCategory.h"
#include "NumberedNames.h"
#include "PointerIndex.h"

class CCategoryNames
{
public:
    void Add(CCorvaneCategory& category) { m_Index.Add(HashName(category.GetName()), category); }
    // `name` is the one under which the category was added. False when it was not.
    bool Remove(std::u16string_view name, const CCorvaneCategory& category)
    {
        m_Numbers.OnFreed(name);
        return m_Index.Remove(HashName(name), category);
    }
    void Clear()
    {
        m_Index.Clear();
        m_Numbers = {};
    }

    // The only category of this name, in any letter case, for which `matches` holds. `ambiguous` is set, and
    // null returned, when several do.
    template <class Match>
    CCorvaneCategory* FindOnly(std::u16string_view name, bool& ambiguous, Match matches) const
    {
        return m_Index.FindOnly(HashName(name), ambiguous,
                                [&](const CCorvaneCategory& category)
                                { return EqualNames(category.GetName(), name) && matches(category); });
    }
    CCorvaneCategory* FindOnly(std::u16string_view name, bool& ambiguous) const
    {
        return FindOnly(name, ambiguous, [](const CCorvaneCategory&) { return true; });
    }

    // `name`, or the first free one of its row.
    [[nodiscard]] std::u16string MakeUnique(std::u16string_view name)
    {
        const auto isFree = [this](std::u16string_view text)
        {
            bool ambiguous = false;
            return FindOnly(text, ambiguous) == nullptr && !ambiguous;
        };
        return isFree(name) ? std::u16string(name)
                            : MakeNumberedName(name, m_Numbers.FindFreeNumber(name, isFree));
    }

private:
    CPointerIndex<CCorvaneCategory> m_Index;
    CNumberedNames m_Numbers;
};
