// The checksum of a packed file's content: XXH64, a published 64-bit hash that runs at memory speed. Any
// change inside one 8-byte word changes it for certain, any other change but for one case in 2^64.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

[[nodiscard]] std::uint64_t ContentHash(std::span<const std::byte> bytes, std::uint64_t seed = 0);

// The same hash of bytes that come in pieces, wherever they are cut.
class CContentHasher
{
public:
    explicit CContentHasher(std::uint64_t seed = 0);

    void Add(std::span<const std::byte> bytes);
    // The hash of everything added so far.
    [[nodiscard]] std::uint64_t GetHash() const;

private:
    static constexpr std::size_t kBlock = 32;

    std::uint64_t m_nSeed;
    std::uint64_t m_nSize = 0;
    std::array<std::uint64_t, 4> m_Lanes;
    // The bytes of a block that is not complete yet.
    std::array<std::byte, kBlock> m_Rest{};
};
