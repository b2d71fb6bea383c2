// The two forms of a validation's result, which docs/corvanectl.md describes.
#pragma once

#include "MessageCollector.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

class CValidateCore;

struct SValidation
{
    std::u16string_view m_sRootFile;
    // Null for a database that did not load.
    const CValidateCore* m_pCore = nullptr;
    std::size_t m_nRecords = 0;
    std::span<const CMessageCollector::SMessage> m_Messages;
};

// A line a finding, as compilers write theirs. UTF-8.
[[nodiscard]] std::string FormatFindings(const SValidation& validation);
// One object. UTF-8.
[[nodiscard]] std::string FormatFindingsJson(const SValidation& validation);
// One sentence about a database that did load.
[[nodiscard]] std::string FormatSummary(const SValidation& validation);
