#include "GameStructRow.h"

#include "GameAttribute.h"
#include "PackedTables.h"

CGameAttribute CGameStructRow::GetFirstMember() const
{
    if (!m_pTables)
        return {};
    const std::uint32_t head =
        m_pTables->rowHeads[m_pTables->EntryOf(m_nRecord, m_nPosition).rows() + m_nRow];
    if (head == packed::kNone)
        return {};
    return {*m_pTables, m_nRecord, head};
}

CGameAttribute CGameStructRow::FindMember(std::string_view name) const
{
    if (!m_pTables)
        return {};
    const std::uint32_t position =
        m_pTables->FindMember(m_pTables->ShapeOf(m_nRecord), m_nPosition, m_nRow, name);
    if (position == packed::kNone)
        return {};
    return {*m_pTables, m_nRecord, position};
}
