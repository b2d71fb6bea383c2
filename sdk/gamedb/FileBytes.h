// A file of the disk as bytes in memory, for files that a person may edit or replace at any time: a map of
// them would end the program when somebody shortens them.
#pragma once

#include <string>

// Reads `path` (UTF-8, as the operating system spells it). Returns the cause of a failure, empty on success.
// A file of more than 256 MB is refused.
[[nodiscard]] std::string ReadFileBytes(const std::string& path, std::string& bytes);

// Why the operating system would not open or read a file, as a clause for a message.
[[nodiscard]] std::string DescribeReadError(int error);
