#include "range/RangeText.h"

#include "FormatText.h"
#include "common/NumberList.h"

#include <array>

SRange ParseRange(std::u16string_view text)
{
    std::array<float, 2> values{};
    ScanFloats(text, values);
    return {values[0], values[1]};
}

std::u16string FormatRange(const SRange& range)
{
    return FormatText(u"%f, %f", range.m_fMinimum, range.m_fMaximum);
}
