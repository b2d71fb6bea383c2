#include "GameCategory.h"

#include "PackedTables.h"

std::string_view CGameCategory::GetPath() const
{
    return m_pTables ? m_pTables->Text(m_pTables->categories[m_nIndex].path()) : std::string_view();
}

std::string_view CGameCategory::GetSchemaName() const
{
    return m_pTables ? m_pTables->Text(m_pTables->categories[m_nIndex].schema()) : std::string_view();
}
