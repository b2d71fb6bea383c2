// The floor that a save is held against: each file's lines are put together as UTF-16 text, written to a
// temporary name in the same directory, flushed and renamed over the old file, one file after the other.
#pragma once

#include <span>
#include <string>
#include <vector>

struct SPlainFile
{
    std::string m_sPath;
    std::vector<std::u16string> m_Lines;
};

// Throws std::runtime_error when a file is no UTF-16 text.
[[nodiscard]] std::vector<SPlainFile> ReadLines(std::span<const std::string> paths);
[[nodiscard]] bool ReplacePlainly(const std::vector<SPlainFile>& files);
