// Replacing whole files on the disk.
#pragma once

#include "FileSystem.h"

#include <string>

// What IFileSystem::WriteFile promises, for a path of the operating system.
[[nodiscard]] CFileError ReplaceFile(const std::string& path, std::span<const std::byte> content);

// The file that `path` names at the end of its links, which need not exist.
[[nodiscard]] CFileError FollowLinks(std::string& path);

// Brings a file that somebody else wrote and closed down to the disk. `path` is the operating system's.
[[nodiscard]] CFileError FlushFile(const std::string& path);
