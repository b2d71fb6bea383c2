#include "GameOverrides.h"

#include "FileBytes.h"
#include "GameDatabase.h"
#include "OverrideApplier.h"
#include "OverrideCursor.h"
#include "OverrideLimitsFile.h"
#include "OverrideTextFile.h"
#include "PackedTables.h"

namespace
{
// A report about a file as a whole.
std::vector<SOverrideReport> Refusal(EOverrideCause why, const std::string& file, const std::string& cause)
{
    return {{0, why, "The " + file + " cannot be used: " + cause + "."}};
}
} // namespace

CGameOverrides CGameOverrides::Apply(CGameDatabase& database, const std::string& textPath,
                                     const std::string& limitsPath)
{
    database.SetOverlay(nullptr);
    CGameOverrides result;
    std::string text;
    std::string limits;
    if (const std::string cause = ReadFileBytes(textPath, text); !cause.empty())
        result.m_Reports =
            Refusal(EOverrideCause::UnreadableFile, "override text " + QuoteForMessage(textPath), cause);
    else if (const std::string other = ReadFileBytes(limitsPath, limits); !other.empty())
        result.m_Reports =
            Refusal(EOverrideCause::UnreadableFile, "limits file " + QuoteForMessage(limitsPath), other);
    else
        return ApplyMemory(database, std::as_bytes(std::span(text)), std::as_bytes(std::span(limits)));
    return result;
}

CGameOverrides CGameOverrides::ApplyMemory(CGameDatabase& database, std::span<const std::byte> text,
                                           std::span<const std::byte> limits)
{
    database.SetOverlay(nullptr);
    CGameOverrides result;
    std::vector<SOverrideAttribute> attributes;
    COverrideLines lines;
    if (const std::string cause = ReadOverrideLimits(limits, attributes); !cause.empty())
    {
        result.m_Reports = Refusal(EOverrideCause::DamagedLimits, "limits file", cause);
        return result;
    }
    if (const std::string cause = lines.Open(text); !cause.empty())
    {
        result.m_Reports = Refusal(EOverrideCause::UnreadableFile, "override text", cause);
        return result;
    }
    COverrideApplier applier(database.GetTables(), attributes);
    applier.Run(lines);
    result.m_nUntold = applier.GetFaultCount() - applier.GetReports().size();
    result.m_Reports = applier.TakeReports();
    std::unique_ptr<CPackedOverlay> overlay = applier.TakeOverlay();
    result.m_nCount = overlay->GetCount();
    if (result.m_nCount != 0)
        database.SetOverlay(std::move(overlay));
    return result;
}
