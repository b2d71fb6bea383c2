// The server's side of override output: applies the text that an administrator edited to a loaded database,
// so that every reader of it sees the changed values.
//
//     CGameOverrides overrides = CGameOverrides::Apply(database, "MPCustomizations.txt",
//     "DBConstraints.dat"); for (const SOverrideReport& report : overrides.GetReports()) ... tell it
//
// Nothing in the two files is trusted. A fault in a line is reported and its attribute keeps the packed
// value; the other lines are applied. A line that still says what the text was made with changes nothing, so
// that an untouched setting follows the packed database also after an update of the game.
#pragma once

#include "GameOverrideCause.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

class CGameDatabase;

struct SOverrideReport
{
    // Of the text, from 1; 0 for what concerns a file as a whole.
    std::size_t line = 0;
    EOverrideCause cause = EOverrideCause::None;
    // One sentence (UTF-8, without control characters) that names the setting or the file.
    std::string message;
};

class CGameOverrides
{
public:
    // More faults than these are only counted.
    static constexpr std::size_t kMaxReports = 1000;

    // Reads both files (paths are UTF-8) and sets the values of `database`; what an earlier call had set is
    // gone first. No other thread may read the database meanwhile, and texts that it gave before are no
    // longer valid. When a file cannot be used, one report tells why and all values are the packed ones.
    [[nodiscard]] static CGameOverrides Apply(CGameDatabase& database, const std::string& textPath,
                                              const std::string& limitsPath);
    // The same for files in memory, which need not live longer.
    [[nodiscard]] static CGameOverrides ApplyMemory(CGameDatabase& database, std::span<const std::byte> text,
                                                    std::span<const std::byte> limits);

    // Attributes that have other values now than the packed file says.
    std::size_t GetCount() const { return m_nCount; }
    // In the order of the lines, ahead of them what concerns a whole file.
    std::span<const SOverrideReport> GetReports() const { return m_Reports; }
    // Faults beyond kMaxReports.
    std::size_t GetUntoldCount() const { return m_nUntold; }

private:
    CGameOverrides() = default;

    std::size_t m_nCount = 0;
    std::size_t m_nUntold = 0;
    std::vector<SOverrideReport> m_Reports;
};
