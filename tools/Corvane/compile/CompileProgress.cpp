#include "CompileProgress.h"

#include "CorvaneMgr.h"
#include "host/Questions.h"

namespace
{
constexpr int kItemsBetweenUpdates = 8;
} // namespace

CCompileProgress::CCompileProgress(IProgress& window, const CCorvaneMgr& manager) : m_Window(window)
{
    for (const CRef<CCorvaneCategory>& category : manager.GetRootCategories())
        AddTotals(*category);
}

void CCompileProgress::SetText(std::u16string_view text)
{
    m_Window.SetText(text);
}

void CCompileProgress::BeginPhase(ECompilePhase phase, std::u16string_view text)
{
    SetText(text);
    m_nMask = phase;
}

void CCompileProgress::Count(ECompilePhase phase, std::size_t items)
{
    GetCounter(phase).m_nDone += static_cast<std::uint32_t>(items);
}

bool CCompileProgress::Update()
{
    m_nSteps = 0;
    m_Window.SetPercent(GetPercent());
    // A cancel stays, even if the host forgets it.
    m_bCancelled = m_Window.Pump() || m_bCancelled;
    return !m_bCancelled;
}

bool CCompileProgress::Step()
{
    if (++m_nSteps < kItemsBetweenUpdates)
        return !m_bCancelled;
    return Update();
}

int CCompileProgress::GetPercent() const
{
    std::uint64_t total = 0;
    std::uint64_t done = 0;
    for (const SCounter& counter : m_Counters)
    {
        if ((m_nMask & counter.m_Phase) == 0)
            continue;
        total += counter.m_nTotal;
        done += counter.m_nDone;
    }
    return total == 0 ? 0 : static_cast<int>(100 * done / total);
}

void CCompileProgress::AddTotals(const CCorvaneCategory& category)
{
    if (category.GetCategoryType() != 0)
        return;
    ++GetCounter(PHASE_CATEGORIES).m_nTotal;
    GetCounter(PHASE_RECORDS).m_nTotal += static_cast<std::uint32_t>(category.GetRecords().size());
    for (const CRef<CCorvaneRecord>& record : category.GetRecords())
        GetCounter(PHASE_ATTRIBUTES).m_nTotal +=
            static_cast<std::uint32_t>(record->GetAttributeList().size());
    for (const CRef<CCorvaneCategory>& child : category.GetChildren())
        AddTotals(*child);
}

CCompileProgress::SCounter& CCompileProgress::GetCounter(ECompilePhase phase)
{
    for (SCounter& counter : m_Counters)
    {
        if (counter.m_Phase == phase)
            return counter;
    }
    return m_Counters.back();
}
