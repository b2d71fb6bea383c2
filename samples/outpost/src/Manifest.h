// The manifest of a packed database: a few lines of text by which a server and its clients see, before a
// match starts, whether they hold the same database. It depends on the packed bytes alone, so that two
// machines that pack the same sources write the same manifest.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

// The CRC-32 of zip and PNG, so that other tools can check a manifest. `crc` is the result for the bytes
// before these; 0 begins.
std::uint32_t UpdateCrc32(std::uint32_t crc, std::string_view bytes);

// The manifest's text for `packed`. Nothing when the file cannot be read to its end.
[[nodiscard]] std::optional<std::string> DescribePackedFile(const std::filesystem::path& packed);

// Puts `text` in the place of `manifest` in one step, so that a reader never sees half of it. A file that
// holds this text already is left alone. Returns false when it could not be written; the old file stays then.
[[nodiscard]] bool ReplaceManifest(const std::filesystem::path& manifest, const std::string& text);
