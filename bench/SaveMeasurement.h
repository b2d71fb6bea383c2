// What a save of changed records takes beside the plain replacement of the same files, and a refresh that
// finds nothing changed beside the plain look at them.
#pragma once

#include <cstddef>
#include <filesystem>

struct SMeasurement;

// The child's side. Changes every record of the database in `tree` and saves it; false has told why.
[[nodiscard]] bool MeasureSaves(const std::filesystem::path& tree, std::size_t records, SMeasurement& out);
