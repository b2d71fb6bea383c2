#include "GameAttribute.h"

#include "PackedTables.h"

#include <algorithm>
#include <bit>

std::string_view CGameAttribute::GetName() const
{
    return m_pTables ? m_pTables->Text(m_pTables->EntryOf(m_nRecord, m_nPosition).name())
                     : std::string_view();
}

std::string_view CGameAttribute::GetMemberName() const
{
    return m_pTables ? GetName().substr(m_pTables->EntryOf(m_nRecord, m_nPosition).member())
                     : std::string_view();
}

bool CGameAttribute::IsMember() const
{
    return m_pTables && m_pTables->EntryOf(m_nRecord, m_nPosition).parent() != packed::kNone;
}

CGameRecord CGameAttribute::GetRecord() const
{
    if (!m_pTables)
        return {};
    return {*m_pTables, m_nRecord};
}

EDatabaseValueType CGameAttribute::GetType() const
{
    const int type = m_pTables ? m_pTables->EntryOf(m_nRecord, m_nPosition).type() : 0;
    return static_cast<EDatabaseValueType>(type);
}

EDatabaseValueKind CGameAttribute::GetKind() const
{
    const int kind = m_pTables ? m_pTables->EntryOf(m_nRecord, m_nPosition).kind() : 0;
    return static_cast<EDatabaseValueKind>(kind);
}

std::size_t CGameAttribute::GetCount() const
{
    return m_pTables ? m_pTables->ValuesOf(m_nRecord, m_nPosition).count : 0;
}

bool CGameAttribute::IsOverridden() const
{
    return m_pTables && m_pTables->IsOverridden(m_nRecord, m_nPosition);
}

std::uint32_t CGameAttribute::GetWord(EDatabaseValueType type, std::size_t index) const
{
    if (GetType() != type)
        return 0;
    const SPackedValues values = m_pTables->ValuesOf(m_nRecord, m_nPosition);
    if (index >= values.count)
        return 0;
    return values.count == 1 ? values.value : values.words[values.value + index];
}

bool CGameAttribute::GetBoolean(std::size_t index) const
{
    return GetWord(DBVALUE_BOOLEAN, index) != 0;
}

std::int32_t CGameAttribute::GetInteger(std::size_t index) const
{
    return static_cast<std::int32_t>(GetWord(DBVALUE_INTEGER, index));
}

float CGameAttribute::GetFloat(std::size_t index) const
{
    return std::bit_cast<float>(GetWord(DBVALUE_FLOAT, index));
}

std::string_view CGameAttribute::GetText(std::size_t index) const
{
    return m_pTables ? m_pTables->ValueText(GetWord(DBVALUE_TEXT, index)) : std::string_view();
}

std::u16string_view CGameAttribute::GetWideText(std::size_t index) const
{
    return m_pTables ? m_pTables->WideValueText(GetWord(DBVALUE_WIDETEXT, index)) : std::u16string_view();
}

template <std::size_t Dimension>
std::array<float, Dimension> CGameAttribute::GetVector(std::size_t index) const
{
    std::array<float, Dimension> vector = {};
    if (!m_pTables || packed::Dimension(static_cast<std::uint32_t>(GetType())) != Dimension)
        return vector;
    const SPackedValues values = m_pTables->ValuesOf(m_nRecord, m_nPosition);
    if (index < values.count)
        std::copy_n(values.floats + values.value + index * Dimension, Dimension, vector.begin());
    return vector;
}

std::array<float, 2> CGameAttribute::GetVector2(std::size_t index) const
{
    return GetVector<2>(index);
}
std::array<float, 3> CGameAttribute::GetVector3(std::size_t index) const
{
    return GetVector<3>(index);
}
std::array<float, 4> CGameAttribute::GetVector4(std::size_t index) const
{
    return GetVector<4>(index);
}

CGameRecord CGameAttribute::GetRecordLink(std::size_t index) const
{
    const std::uint32_t link = GetWord(DBVALUE_RECORDLINK, index);
    if (link == 0)
        return {};
    return {*m_pTables, link - 1};
}

CGameStructRow CGameAttribute::GetRow(std::size_t index) const
{
    if (GetType() != DBVALUE_STRUCT || index >= GetCount())
        return {};
    return {*m_pTables, m_nRecord, m_nPosition, static_cast<std::uint32_t>(index)};
}

CGameAttribute CGameAttribute::GetNextMember() const
{
    if (!IsMember())
        return {};
    return GetRecord().GetAttribute(m_pTables->EntryOf(m_nRecord, m_nPosition).next());
}
