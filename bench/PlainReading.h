// The floor that a load is held against: every source file opened, sized, read and closed once, one after
// the other, into one buffer.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

// All files below `directory`; each directory's own in the order of their names, then its sub-directories.
[[nodiscard]] std::vector<std::string> ListSourceFiles(const std::filesystem::path& directory);

// The bytes that were read, or -1 when a file could not be.
[[nodiscard]] std::int64_t ReadPlainly(const std::vector<std::string>& files);
