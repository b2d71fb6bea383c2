#include "RecordLayout.h"

#include "CorvaneRecord.h"
#include "CorvaneSchema.h"
#include "CorvaneSchemaAttribData.h"
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

bool IsBelow(std::u16string_view name, std::u16string_view prefix)
{
    return name.size() > prefix.size() && name[prefix.size()] == u'.' &&
           IsSameText(name.substr(0, prefix.size()), prefix);
}
} // namespace

CRecordLayout::CRecordLayout(const CCorvaneSchema& schema)
{
    std::unordered_set<std::u16string_view, CNameHash, CNameEqual> seen;
    const auto attributes = schema.GetTemplate()->GetAttributeList();
    m_Entries.reserve(attributes.size());
    for (const CRef<CCorvaneAttrib>& attrib : attributes)
    {
        SEntry& entry = m_Entries.emplace_back();
        attrib->GetSectionName(entry.m_sName, {});
        entry.m_bMembers = attrib->GetAttribData() && attrib->GetAttribData()->GetMemberStore() != nullptr;
        m_bMembers = m_bMembers || entry.m_bMembers;
        m_bUnique = seen.insert(entry.m_sName).second && m_bUnique;
    }
}

std::ptrdiff_t CRecordLayout::Match(const CUnicodeFileParse_ReadOnly& parser,
                                    std::vector<std::uint32_t>& places) const
{
    places.clear();
    const std::size_t count = parser.GetSectionCount();
    if (!m_bUnique || count < m_Entries.size() + 1 || !IsSameText(parser.GetSectionName(0), kRecordSection))
        return -1;
    const std::size_t first = count > 1 && IsSameText(parser.GetSectionName(1), kHierarchySection) ? 2 : 1;
    const bool matches = m_bMembers ? MatchMembers(parser, first, places) : MatchPlain(parser, first);
    return matches ? static_cast<std::ptrdiff_t>(first) : -1;
}

bool CRecordLayout::MatchPlain(const CUnicodeFileParse_ReadOnly& parser, std::size_t first) const
{
    if (parser.GetSectionCount() - first != m_Entries.size())
        return false;
    for (std::size_t i = 0; i < m_Entries.size(); ++i)
    {
        if (!IsSameText(parser.GetSectionName(first + i), m_Entries[i].m_sName))
            return false;
    }
    return true;
}

// Names of members begin with that of their attribute and a point, and no attribute's own name does: a name
// that was passed over is none that a later attribute could be looking for.
bool CRecordLayout::MatchMembers(const CUnicodeFileParse_ReadOnly& parser, std::size_t first,
                                 std::vector<std::uint32_t>& places) const
{
    const std::size_t count = parser.GetSectionCount();
    std::size_t section = first;
    places.reserve(m_Entries.size());
    for (const SEntry& entry : m_Entries)
    {
        if (section == count || !IsSameText(parser.GetSectionName(section), entry.m_sName))
            return false;
        places.push_back(static_cast<std::uint32_t>(section++));
        while (entry.m_bMembers && section < count && IsBelow(parser.GetSectionName(section), entry.m_sName))
            ++section;
    }
    return section == count;
}
