// Between the bytes of a file and their compressed form, whole in memory.
#pragma once

#include "FileSystem.h"

#include <cstddef>
#include <functional>
#include <span>
#include <string>

// Told now and then how many of the input's bytes are done.
using ConversionProgress = std::function<void(std::size_t)>;

// Replaces `out` by the result. After a failure `out` is not the whole of it.
using Conversion = CFileError (*)(std::span<const std::byte> input, std::string& out,
                                  const ConversionProgress& progress);

[[nodiscard]] CFileError Compress(std::span<const std::byte> input, std::string& out,
                                  const ConversionProgress& progress);
// InvalidData for an input that does not begin as a compressed file. One that is cut short gives what its
// whole tokens stand for, since a reader cannot tell it from a file that ends there.
[[nodiscard]] CFileError Expand(std::span<const std::byte> input, std::string& out,
                                const ConversionProgress& progress);

// Whether the bytes begin as a compressed file does.
[[nodiscard]] bool IsCompressed(std::span<const std::byte> input);
