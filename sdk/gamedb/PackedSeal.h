// The seal of a packed file: the checksum over every byte but the eight that hold it.
#pragma once

#include <cstddef>
#include <span>

namespace packed
{
// True when the file, whose offsets are sound, carries the checksum of its content.
[[nodiscard]] bool IsSealed(std::span<const std::byte> bytes);
// Writes the checksum into a file whose offsets are sound. Returns false when it has no field for one.
[[nodiscard]] bool Seal(std::span<std::byte> bytes);
} // namespace packed
