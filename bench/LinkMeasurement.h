// What record links cost beside the attributes around them: in the attribute pass of a pack, and in the
// question whether anything links to a record that is about to be deleted.
#pragma once

#include <cstddef>
#include <filesystem>

struct SMeasurement;

inline constexpr std::size_t kLinksPerRecord = 5;

// The child's side. Makes databases of `records` records with five links each below `directory`; false has
// told why.
[[nodiscard]] bool MeasureLinks(const std::filesystem::path& directory, std::size_t records,
                                SMeasurement& out);
