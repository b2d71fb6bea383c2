// Reading whole files from the disk, shared by the file layer's reading and writing halves.
#pragma once

#include "FileSystem.h"

#include <string>

struct stat;
class CDescriptor;

[[nodiscard]] SFileInfo MakeFileInfo(const struct stat& status);

// Opens a plain file; `path` takes the disk's own letter case where it differs. Never waits: what is no plain
// file is NotAFile.
[[nodiscard]] CFileError OpenForReading(std::string& path, CDescriptor& file, struct stat& status);

// Reads from the start to the end, also of a file that grows or shrinks meanwhile. `status` is that of the
// open file and is brought up to date when the size has changed.
[[nodiscard]] CFileError ReadWhole(const CDescriptor& file, struct stat& status, CFileBuffer& content);
