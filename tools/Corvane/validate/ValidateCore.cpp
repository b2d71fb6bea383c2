#include "ValidateCore.h"

#include "BuildFilter.h"
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
    CBuildFilter filter(manager, build);
    for (const CRef<CCorvaneCategory>& category : manager.GetRootCategories())
        valid = CheckCategory(*category, filter) && valid;

    const CCorvaneContext& context = manager.GetContext();
    if (!context.m_Run.m_sLogPath.empty())
        static_cast<void>(WriteLog(context.m_Files, context.m_Run.m_sLogPath));
    return valid;
}

bool CValidateCore::ValidateCategory(CCorvaneCategory& category)
{
    CBuildFilter filter(category.GetManager(), m_nBuild);
    return CheckCategory(category, filter);
}

bool CValidateCore::ValidateRecord(CCorvaneRecord& record)
{
    CBuildFilter filter(record.GetManager(), m_nBuild);
    return CheckRecord(record, filter);
}

bool CValidateCore::CheckCategory(CCorvaneCategory& category, CBuildFilter& filter)
{
    // A special category shows other categories' records, which are checked where they lie.
    if (category.GetCategoryType() != 0)
        return true;
    bool valid = true;
    for (const CRef<CCorvaneRecord>& record : category.GetRecords())
        valid = CheckRecord(*record, filter) && valid;
    for (const CRef<CCorvaneCategory>& child : category.GetChildren())
        valid = CheckCategory(*child, filter) && valid;
    return valid;
}

bool CValidateCore::CheckRecord(CCorvaneRecord& record, CBuildFilter& filter)
{
    if (record.GetManager().GetGate().IsDeletePending(record))
        return true;
    filter.TakeRecord(record);
    bool valid = true;
    const auto attribs = record.GetAttributeList();
    for (std::size_t i = 0; i < attribs.size(); ++i)
    {
        if (filter.IsAvailable(i))
            valid = attribs[i]->Validate(this) && valid;
    }
    return valid;
}
