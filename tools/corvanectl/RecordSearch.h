// Finds the record that an argument names.
#pragma once

#include <string>
#include <string_view>
#include <vector>

class CCorvaneMgr;
class CCorvaneRecord;

// The display path, with virtual categories in it.
[[nodiscard]] std::u16string GetDisplayPath(const CCorvaneRecord& record);
// In the order of the walk: a category's records, then its child categories.
[[nodiscard]] std::vector<CCorvaneRecord*> GetAllRecords(const CCorvaneMgr& manager);

// The records that `name` fits, by the first of these that fits any: the path of the record's file, the
// display path, the record path (without virtual categories), and for a name without '/' the record's name.
[[nodiscard]] std::vector<CCorvaneRecord*> FindRecords(const CCorvaneMgr& manager, std::u16string_view name);
