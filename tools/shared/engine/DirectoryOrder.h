// The stable order of a directory's entries, shared by the file layer's implementations.
#pragma once

#include <vector>

struct SDirectoryEntry;

// Sorts by NameOrder; each name is folded once.
void SortDirectoryEntries(std::vector<SDirectoryEntry>& entries);
