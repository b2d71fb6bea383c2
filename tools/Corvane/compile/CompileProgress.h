// How far a compile has come, and whether the user has had enough of it.
//
// The bar runs from 0 to 100 in each pass: only the phases of the current mask count. The host is told and
// may breathe at most once in eight items, since a database has many thousands.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

class CCorvaneCategory;
class CCorvaneMgr;
class IProgress;

enum ECompilePhase : std::uint32_t
{
    PHASE_CATEGORIES = 0x1,
    PHASE_RECORDS = 0x2,
    PHASE_ATTRIBUTES = 0x8,
    PHASE_ALL = 0xF,
};

class CCompileProgress
{
public:
    // Counts the totals of the whole tree in one walk. `window` is not owned.
    CCompileProgress(IProgress& window, const CCorvaneMgr& manager);

    void SetText(std::u16string_view text);
    void BeginPhase(ECompilePhase phase, std::u16string_view text);
    void Count(ECompilePhase phase, std::size_t items = 1);
    // Shows the position and lets the host breathe. False once the user has cancelled.
    [[nodiscard]] bool Update();
    // Called for each category and record: an Update at each eighth call.
    [[nodiscard]] bool Step();
    [[nodiscard]] bool IsCancelled() const { return m_bCancelled; }
    // 0 when there is nothing to do.
    [[nodiscard]] int GetPercent() const;

private:
    struct SCounter
    {
        ECompilePhase m_Phase;
        std::uint32_t m_nTotal = 0;
        std::uint32_t m_nDone = 0;
    };

    void AddTotals(const CCorvaneCategory& category);
    [[nodiscard]] SCounter& GetCounter(ECompilePhase phase);

    IProgress& m_Window;
    std::array<SCounter, 3> m_Counters{{{PHASE_CATEGORIES}, {PHASE_RECORDS}, {PHASE_ATTRIBUTES}}};
    std::uint32_t m_nMask = PHASE_ALL;
    int m_nSteps = 0;
    bool m_bCancelled = false;
};
