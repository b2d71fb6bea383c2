// The seal of a packed file: the checksum over every byte but the eight that hold it. The hash of what stands
// ahead of them is the seed for what stands behind.
#pragma once

#include <cstddef>
#include <span>

namespace packed
{
// Where the checksum lies in a file whose offsets are sound: among its first bytes, ahead of every vector.
// The size of `bytes` when there is no field for one.
[[nodiscard]] std::size_t FindChecksum(std::span<const std::byte> bytes);
// True when the file, whose offsets are sound, carries the checksum of its content.
[[nodiscard]] bool IsSealed(std::span<const std::byte> bytes);
// Writes the checksum into a file whose offsets are sound. Returns false when it has no field for one.
[[nodiscard]] bool Seal(std::span<std::byte> bytes);
} // namespace packed
