// A packed database with a setting of each kind, and what its override files hold.
#pragma once

#include "OverrideAttribute.h"

#include <cstddef>
#include <vector>

// The settings of the record Units/Orc.
std::vector<SOverrideAttribute> MakeOverrideSettings();
// A database with these values in Units/Orc, the records Units/Elf (of the same schema), Items/Axe and
// Items/Pie, and what in them shows which words and kinds of record are in use. With more than one Orc, the
// others are Units/Orc1 and so on, with a setting "Health" alone.
std::vector<std::byte> MakeOverrideDatabase(const std::vector<SOverrideAttribute>& settings, int orcs = 1);
