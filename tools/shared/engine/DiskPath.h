// From the system's path texts to the operating system's paths.
#pragma once

#include <cerrno>
#include <string>
#include <string_view>

// `path` in UTF-8 with '/' separators and without its drive letter. A zero unit becomes U+FFFD, so that a
// text never names a file that it shows only the start of.
[[nodiscard]] std::string ToDiskPath(std::u16string_view path);

// Replaces each element that does not exist by the entry that equals it without regard to case (the first
// in the order of names). From the first element without such an entry on, the rest stays as it is. True
// when anything was replaced.
bool MatchDiskCase(std::string& path);

// A name from the disk as the system's text; false when it cannot be named by a path text again: it is not
// valid UTF-8 or holds a '\'.
[[nodiscard]] bool FromDiskName(std::string_view name, std::u16string& out);

// The path with the entry that a writer replaces: as ToDiskPath, in the disk's own case where it exists.
[[nodiscard]] std::string FindDiskPath(std::u16string_view path);

// Calls `operation` with the path as it is written; when nothing has that name, once more with the path in
// the disk's own letter case. The operation's result: -1 for a failure, with errno set.
template <class Operation> int WithDiskCase(std::string& path, Operation operation)
{
    const int result = operation(path.c_str());
    if (result >= 0 || (errno != ENOENT && errno != ENOTDIR))
        return result;
    const int cause = errno;
    if (MatchDiskCase(path))
        return operation(path.c_str());
    errno = cause;
    return -1;
}
