#include "TreeFilter.h"

#include "NameCompare.h"

#include <algorithm>
#include <array>

CTreeFilter::CTreeFilter(std::u16string_view text) : m_sText(text), m_sFolded(text)
{
    FoldUnits(text.data(), text.size(), m_sFolded.data());
}

bool CTreeFilter::Matches(std::u16string_view name) const
{
    if (name.size() < m_sFolded.size())
        return false;
    // Nearly all names fit, so that a walk over all of them takes no memory.
    std::array<char16_t, 128> shortName;
    std::u16string longName;
    char16_t* folded = shortName.data();
    if (name.size() > shortName.size())
    {
        longName.resize(name.size());
        folded = longName.data();
    }
    FoldUnits(name.data(), name.size(), folded);
    return std::u16string_view(folded, name.size()).find(m_sFolded) != std::u16string_view::npos;
}

void CTreeFilter::Keep(const CTreeItem& item)
{
    if (!IsKept(item))
        m_Kept.push_back(item);
}

bool CTreeFilter::IsKept(const CTreeItem& item) const
{
    return std::find(m_Kept.begin(), m_Kept.end(), item) != m_Kept.end();
}
