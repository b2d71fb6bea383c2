#include "RecordLayout.h"

#include "CorvaneRecord.h"
#include "CorvaneSchema.h"
#include "NameCompare.h"
#include "UnicodeFileParse_ReadOnly.h"

#include <cstring>
#include <unordered_set>

namespace
{
bool IsSameText(std::u16string_view a, std::u16string_view b)
{
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(char16_t)) == 0;
}
} // namespace

CRecordLayout::CRecordLayout(const CCorvaneSchema& schema)
{
    std::unordered_set<std::u16string_view, CNameHash, CNameEqual> seen;
    const auto attributes = schema.GetTemplate()->GetAttributeList();
    m_Names.reserve(attributes.size());
    for (const CRef<CCorvaneAttrib>& attrib : attributes)
    {
        attrib->GetSectionName(m_Names.emplace_back(), {});
        m_bUnique = seen.insert(m_Names.back()).second && m_bUnique;
    }
}

std::ptrdiff_t CRecordLayout::Match(const CUnicodeFileParse_ReadOnly& parser) const
{
    const std::size_t count = parser.GetSectionCount();
    const std::size_t first = count - m_Names.size();
    if (!m_bUnique || count < m_Names.size() + 1 || first > 2 ||
        !IsSameText(parser.GetSectionName(0), kRecordSection) ||
        (first == 2 && !IsSameText(parser.GetSectionName(1), kHierarchySection)))
        return -1;
    for (std::size_t i = 0; i < m_Names.size(); ++i)
    {
        if (!IsSameText(parser.GetSectionName(first + i), m_Names[i]))
            return -1;
    }
    return static_cast<std::ptrdiff_t>(first);
}
