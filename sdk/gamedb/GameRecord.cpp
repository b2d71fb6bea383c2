#include "GameRecord.h"

#include "GameAttribute.h"
#include "PackedTables.h"

std::string_view CGameRecord::GetName() const
{
    return m_pTables ? m_pTables->Text(m_pTables->records[m_nIndex].name()) : std::string_view();
}

CGameCategory CGameRecord::GetCategory() const
{
    if (!m_pTables)
        return {};
    return {*m_pTables, m_pTables->records[m_nIndex].category()};
}

std::string CGameRecord::GetPath() const
{
    if (!m_pTables)
        return {};
    std::string path(GetCategory().GetPath());
    path += '/';
    path += GetName();
    return path;
}

std::size_t CGameRecord::GetAttributeCount() const
{
    return m_pTables ? m_pTables->ShapeOf(m_nIndex).entry_count() : 0;
}

CGameAttribute CGameRecord::GetAttribute(std::size_t index) const
{
    if (index >= GetAttributeCount())
        return {};
    return {*m_pTables, m_nIndex, static_cast<std::uint32_t>(index)};
}

CGameAttribute CGameRecord::FindAttribute(std::string_view name) const
{
    if (!m_pTables)
        return {};
    return GetAttribute(m_pTables->FindEntry(m_pTables->ShapeOf(m_nIndex), name));
}
