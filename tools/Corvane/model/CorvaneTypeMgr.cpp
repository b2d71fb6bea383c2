#include "CorvaneTypeMgr.h"

#include "CorvaneSchemaAttribData.h"
#include "CorvaneType.h"
#include "NameCompare.h"
#include "zrassert.h"

#include <algorithm>

namespace
{
template <class Entries> auto FindEntry(const Entries& entries, std::u16string_view name)
{
    return std::find_if(entries.begin(), entries.end(),
                        [&](const auto& entry) { return EqualNames(entry.m_sName, name); });
}
} // namespace

void CCorvaneTypeMgr::RegisterType(std::u16string_view name, FCreate create)
{
    if (FindEntry(m_Entries, name) == m_Entries.end())
        m_Entries.push_back({std::u16string(name), create});
    else
        ZRASSERT_FORCED("[CCorvaneTypeMgr::RegisterType] - Error: Type already registered");
}

CRef<CCorvaneType> CCorvaneTypeMgr::CreateType(std::u16string_view name, std::u16string_view defaultText,
                                               CCorvaneSchemaAttribData& attribData,
                                               CCorvaneRecord* parentRecord) const
{
    const auto found = FindEntry(m_Entries, name);
    return found == m_Entries.end() ? nullptr : found->m_Create(defaultText, attribData, parentRecord);
}

void CorvaneSchemaAttribDataMgr::RegisterAttribData(std::u16string_view name, FCreate create)
{
    if (FindEntry(m_Entries, name) == m_Entries.end())
        m_Entries.push_back({std::u16string(name), create});
    else
        ZRASSERT_FORCED("[CorvaneSchemaAttribDataMgr::RegisterAttribData] - Error: Type already registered");
}

CRef<CCorvaneSchemaAttribData>
CorvaneSchemaAttribDataMgr::CreateAttribData(std::u16string_view name,
                                             const SAttribDataConstruct& construct) const
{
    const auto found = FindEntry(m_Entries, name);
    return found == m_Entries.end() ? nullptr : found->m_Create(construct);
}
