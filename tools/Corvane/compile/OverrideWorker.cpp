#include "OverrideWorker.h"

#include "CallGuarded.h"
#include "CorvaneMgr.h"
#include "RunState.h"
#include "Worker.h"

namespace
{
class COverrideWalk
{
public:
    COverrideWalk(const SOverrideParameters& parameters, IWorkerEvents& events)
        : m_Parameters(parameters), m_Manager(*parameters.m_pManager), m_Events(events)
    {
    }

    [[nodiscard]] std::int32_t Run();

private:
    void AddTotals(const CCorvaneCategory& category);
    [[nodiscard]] std::int32_t SaveTree();
    [[nodiscard]] std::int32_t SaveCategoryOverrides(const CCorvaneCategory& category);
    [[nodiscard]] bool SaveRecordOverrides(const CCorvaneRecord& record);
    void ShowPosition()
    {
        m_Events.SetPosition(m_nTotal == 0 ? 100 : static_cast<int>(m_nDone * 100 / m_nTotal));
    }

    const SOverrideParameters& m_Parameters;
    const CCorvaneMgr& m_Manager;
    IWorkerEvents& m_Events;
    CreatorHandle m_nDatabase = 0;
    std::uint64_t m_nTotal = 0; // Categories, records and attributes.
    std::uint64_t m_nDone = 0;
};

std::int32_t COverrideWalk::Run()
{
    IDatabaseCreatorUnpackedMgr* creator = m_Parameters.m_pCreator;
    if (creator == nullptr)
        return kExitFailed;
    // The handle is not given back: the interface lives as long as the process, and the calls of this output
    // have no release.
    m_nDatabase = CallGuarded([&] { return creator->CreateDatabase(); });
    if (m_nDatabase == 0)
        return kExitFailed;
    if (m_Events.IsCancelled())
        return kResultCancelled;
    if (const std::int32_t result = SaveTree(); result < 0)
        return result;
    if (m_Events.IsCancelled())
        return kResultCancelled;
    const auto save = [&]
    {
        return creator->SaveDatabase(m_nDatabase, m_Parameters.m_sDatabase.c_str(),
                                     m_Parameters.m_sConstraints.c_str());
    };
    return CallGuarded(save) ? kExitOk : kExitFailed;
}

void COverrideWalk::AddTotals(const CCorvaneCategory& category)
{
    m_nTotal += 1 + category.GetRecords().size();
    for (const CRef<CCorvaneRecord>& record : category.GetRecords())
        m_nTotal += record->GetAttributeList().size();
    for (const CRef<CCorvaneCategory>& child : category.GetChildren())
        AddTotals(*child);
}

std::int32_t COverrideWalk::SaveTree()
{
    // A special category stands for no file and takes no part in any output.
    const auto isSpecial = [](const CRef<CCorvaneCategory>& category)
    { return category->GetCategoryType() != 0; };
    for (const CRef<CCorvaneCategory>& category : m_Manager.GetRootCategories())
    {
        if (!isSpecial(category))
            AddTotals(*category);
    }
    m_Events.SetStatus(u"Generating Override Output...");
    for (const CRef<CCorvaneCategory>& category : m_Manager.GetRootCategories())
    {
        if (isSpecial(category))
            continue;
        if (const std::int32_t result = SaveCategoryOverrides(*category); result < 0)
            return result;
        ++m_nDone;
    }
    return kExitOk;
}

// Virtual categories are visited like all others.
std::int32_t COverrideWalk::SaveCategoryOverrides(const CCorvaneCategory& category)
{
    ShowPosition();
    for (const CRef<CCorvaneRecord>& record : category.GetRecords())
    {
        if (m_Events.IsCancelled())
            return kResultCancelled;
        if (!CallGuarded([&] { return SaveRecordOverrides(*record); }))
            return kExitFailed;
        m_nDone += 1 + record->GetAttributeList().size();
        ShowPosition();
    }
    for (const CRef<CCorvaneCategory>& child : category.GetChildren())
    {
        if (m_Events.IsCancelled())
            return kResultCancelled;
        if (const std::int32_t result = SaveCategoryOverrides(*child); result < 0)
            return result;
        ++m_nDone;
    }
    return kExitOk;
}

bool COverrideWalk::SaveRecordOverrides(const CCorvaneRecord& record)
{
    std::u16string prefix;
    m_Manager.GetRecordPath(&record, prefix);
    prefix += u'/';
    for (const CRef<CCorvaneAttrib>& attrib : record.GetAttributeList())
    {
        if (attrib->GetOverride() &&
            m_Manager.IsAttributeAvailableForBuild(attrib.Get(), m_Parameters.m_nBuild) &&
            !attrib->SaveToOverride(m_Parameters.m_pCreator, m_nDatabase, prefix, {}))
            return false;
    }
    return true;
}
} // namespace

std::int32_t SaveOverrides(const SOverrideParameters* parameters, IWorkerEvents& events)
{
    return parameters ? COverrideWalk(*parameters, events).Run() : kResultNoParameters;
}
