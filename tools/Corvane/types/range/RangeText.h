// The text form of a range: "<minimum>, <maximum>", each with six decimals.
#pragma once

#include <string>
#include <string_view>

struct SRange
{
    float m_fMinimum = 0;
    float m_fMaximum = 0;
};

// Numbers that are missing are 0. Nothing puts the two into order.
[[nodiscard]] SRange ParseRange(std::u16string_view text);
[[nodiscard]] std::u16string FormatRange(const SRange& range);
