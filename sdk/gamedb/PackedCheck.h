// Checks a packed file before anything in it is used.
#pragma once

#include <cstddef>
#include <span>
#include <string>

struct SPackedTables;

namespace packed
{
// Fills `tables` from `bytes`, which begin at a multiple of 8. Returns the cause of a refusal, empty when the
// file is sound: then every index and offset in the tables is in range and every walk in them ends. The time
// is linear in the size, whatever the file holds.
[[nodiscard]] std::string Check(std::span<const std::byte> bytes, SPackedTables& tables);
} // namespace packed
