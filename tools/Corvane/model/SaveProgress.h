// The percentage of a save: done and total counts of the kinds of work, in one number.
#pragma once

#include <cstdint>

class IProgress;

enum ESaveKind : std::uint32_t
{
    SAVE_CATEGORIES,
    SAVE_RECORDS,
    SAVE_SCHEMAS,
    SAVE_ATTRIBUTES,
    SAVE_KINDS,
};

class CSaveProgress
{
public:
    explicit CSaveProgress(IProgress& progress) : m_Progress(progress) {}

    void AddTotal(ESaveKind kind, std::uint64_t count) { m_nTotals[kind] += count; }
    // A done count never passes its total, so that the percentage stays within 100.
    void AddDone(ESaveKind kind, std::uint64_t count);
    void Show();
    [[nodiscard]] int GetPercent() const;

private:
    IProgress& m_Progress;
    std::uint64_t m_nTotals[SAVE_KINDS] = {};
    std::uint64_t m_nDone[SAVE_KINDS] = {};
};
