// The checksum of a packed file's content: XXH64, a published 64-bit hash that runs at memory speed. Any
// change inside one 8-byte word changes it for certain, any other change but for one case in 2^64.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

[[nodiscard]] std::uint64_t ContentHash(std::span<const std::byte> bytes, std::uint64_t seed = 0);
