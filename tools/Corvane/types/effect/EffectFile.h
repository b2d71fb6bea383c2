// The names of the effects in one packed effect file; its form is described in docs/formats/effect-files.md.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

// A longer file is none that a game ships, and memory is not its to take.
inline constexpr std::size_t kLongestEffectFile = 16 * 1024 * 1024;

enum class EEffectFile
{
    Read,
    Foreign, // Not an effect file, or one of another version.
    Damaged, // An offset or a count leads out of the file, or a name has no end.
};

// Appends the names in the order of the file's index; nothing unless the result is Read.
[[nodiscard]] EEffectFile ReadEffectNames(std::span<const std::byte> file,
                                          std::vector<std::u16string>& names);
