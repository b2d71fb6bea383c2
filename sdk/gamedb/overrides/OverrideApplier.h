// Holds the lines of an override text against the limits file and the packed database, and collects the
// values that pass.
#pragma once

#include "GameOverrides.h"
#include "OverrideAttribute.h"
#include "PackedOverlay.h"
#include "PackedUse.h"

#include <memory>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

class COverrideLines;
class IOverrideForm;
struct SOverrideLine;

class COverrideApplier
{
public:
    // Both outlive the object.
    COverrideApplier(const SPackedTables& tables, std::span<const SOverrideAttribute> attributes);

    void Run(COverrideLines& lines);

    std::span<const SOverrideReport> GetReports() const { return m_Reports; }
    // With the faults that were not reported any more.
    std::size_t GetFaultCount() const { return m_nFaults; }
    std::vector<SOverrideReport> TakeReports() { return std::move(m_Reports); }
    std::unique_ptr<CPackedOverlay> TakeOverlay() { return std::move(m_pOverlay); }

private:
    // An attribute of the limits file and its place in the packed database.
    struct STarget
    {
        const SOverrideAttribute* attribute;
        std::uint32_t record;
        std::uint32_t position;
        // The line that speaks for it, 0 for none so far.
        std::size_t line;
        bool isFound;
    };

    STarget Locate(const SOverrideAttribute& attribute) const;
    bool IsAsDescribed(const STarget& target) const;
    void ReportForeign(std::size_t count);
    void Report(std::size_t line, EOverrideCause cause, std::string message);

    [[nodiscard]] bool ApplyLine(const SOverrideLine& line, SOverrideError& error);
    [[nodiscard]] bool Accept(const STarget& target, const IOverrideForm& form,
                              const std::vector<SOverrideValue>& values, SOverrideError& error);
    void SetValues(const STarget& target, const std::vector<SOverrideValue>& values);
    std::uint32_t WordOf(EDatabaseValueType type, const SOverrideValue& value);

    const SPackedTables& m_Tables;
    CPackedUse m_Use;
    std::unordered_map<std::string_view, STarget> m_Targets;
    std::vector<SOverrideReport> m_Reports;
    std::size_t m_nFaults = 0;
    std::unique_ptr<CPackedOverlay> m_pOverlay;
};
