// The order of the attribute list's rows by a column.
#pragma once

#include "TypeViewList.h"

class CCorvaneType;

// Below 0, 0 or above it. Texts compare without regard to case, flags and numbers as numbers. The column
// without a title orders nothing.
[[nodiscard]] int CompareAttributes(const CCorvaneType& a, const CCorvaneType& b, EListColumn column);
