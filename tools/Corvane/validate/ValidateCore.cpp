#include "ValidateCore.h"

#include "CorvaneMgr.h"
#include "RunState.h"
#include "SourceGate.h"

void CValidateCore::AddError(ESeverity severity, std::u16string_view type, std::u16string_view description,
                             CCorvaneAttrib* attrib, std::size_t valueIndex)
{
    m_Errors.push_back({severity, std::u16string(type), std::u16string(description), valueIndex, attrib});
    ++(severity == ESeverity::Critical ? m_nCritical : m_nWarnings);
}

void CValidateCore::Clear()
{
    m_Errors.clear();
    m_nCritical = 0;
    m_nWarnings = 0;
}

bool CValidateCore::ValidateDatabase(CCorvaneMgr& manager, std::uint32_t build)
{
    Clear();
    m_nBuild = build;
    bool valid = true;
    for (const CRef<CCorvaneCategory>& category : manager.GetRootCategories())
        valid = ValidateCategory(*category) && valid;

    const CCorvaneContext& context = manager.GetContext();
    if (!context.m_Run.m_sLogPath.empty())
        static_cast<void>(WriteLog(context.m_Files, context.m_Run.m_sLogPath));
    return valid;
}

bool CValidateCore::ValidateCategory(CCorvaneCategory& category)
{
    // A special category shows other categories' records, which are checked where they lie.
    if (category.GetCategoryType() != 0)
        return true;
    bool valid = true;
    for (const CRef<CCorvaneRecord>& record : category.GetRecords())
        valid = ValidateRecord(*record) && valid;
    for (const CRef<CCorvaneCategory>& child : category.GetChildren())
        valid = ValidateCategory(*child) && valid;
    return valid;
}

bool CValidateCore::ValidateRecord(CCorvaneRecord& record)
{
    const CCorvaneMgr& manager = record.GetManager();
    if (manager.GetGate().IsDeletePending(record))
        return true;
    bool valid = true;
    for (const CRef<CCorvaneAttrib>& attrib : record.GetAttributeList())
    {
        if (manager.IsAttributeAvailableForBuild(attrib.Get(), m_nBuild))
            valid = attrib->Validate(this) && valid;
    }
    return valid;
}
