// Paths of the game's files: stored below the project's resource root, so that a database works wherever the
// project lies. Pure text work. `root` ends in a separator, as CProjectInfo has it.
#pragma once

#include <string>
#include <string_view>

// `path` without `root` at its start, whatever the letter case and the separators; any other path comes back
// as it is. The result is a view of `path`.
[[nodiscard]] std::u16string_view ToResourcePath(std::u16string_view root, std::u16string_view path);

// True for a path that does not lie below the root: it names a drive or a server ("c:\a.dds", "\\server\a").
[[nodiscard]] bool IsOutsideResources(std::u16string_view path);

// Where the file lies: `path` behind `root` unless it is outside the resources.
[[nodiscard]] std::u16string ToFullPath(std::u16string_view root, std::u16string_view path);
