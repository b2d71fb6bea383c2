// The popup menus of the tree, by the kind of a row and what source control says about it.
#pragma once

#include "TreeState.h"

#include <span>
#include <vector>

class CTreeItem;

// Ids of commands and separators; the first is the default.
[[nodiscard]] std::span<const int> GetTreeMenu(const CTreeItem& item);
// Those of the submenu for source control; of class None, where nothing is to be had, all of them.
[[nodiscard]] std::vector<int> GetTreeControlMenu(EControlClass controlClass);
// Whether it is one of them.
[[nodiscard]] bool IsTreeControlCommand(int id);
