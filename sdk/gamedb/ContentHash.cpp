#include "ContentHash.h"

#include <array>
#include <bit>
#include <cstring>

namespace
{
constexpr std::uint64_t kPrime1 = 0x9E3779B185EBCA87;
constexpr std::uint64_t kPrime2 = 0xC2B2AE3D27D4EB4F;
constexpr std::uint64_t kPrime3 = 0x165667B19E3779F9;
constexpr std::uint64_t kPrime4 = 0x85EBCA77C2B2AE63;
constexpr std::uint64_t kPrime5 = 0x27D4EB2F165667C5;

template <class Word> std::uint64_t Load(const std::byte* from)
{
    Word word;
    std::memcpy(&word, from, sizeof(word));
    return word;
}

std::uint64_t Round(std::uint64_t lane, std::uint64_t word)
{
    return std::rotl(lane + word * kPrime2, 31) * kPrime1;
}

// Takes whole blocks of 32 bytes off `bytes` and returns the four lanes as one number.
std::uint64_t HashBlocks(std::span<const std::byte>& bytes, std::uint64_t seed)
{
    std::array<std::uint64_t, 4> lanes{seed + kPrime1 + kPrime2, seed + kPrime2, seed, seed - kPrime1};
    const std::byte* at = bytes.data();
    const std::byte* const end = at + bytes.size() / 32 * 32;
    for (; at != end; at += 32)
    {
        for (std::size_t i = 0; i < lanes.size(); ++i)
            lanes[i] = Round(lanes[i], Load<std::uint64_t>(at + i * 8));
    }
    bytes = bytes.subspan(bytes.size() / 32 * 32);
    std::uint64_t hash =
        std::rotl(lanes[0], 1) + std::rotl(lanes[1], 7) + std::rotl(lanes[2], 12) + std::rotl(lanes[3], 18);
    for (const std::uint64_t lane : lanes)
        hash = (hash ^ Round(0, lane)) * kPrime1 + kPrime4;
    return hash;
}

std::uint64_t HashTail(std::uint64_t hash, std::span<const std::byte> bytes)
{
    for (; bytes.size() >= 8; bytes = bytes.subspan(8))
        hash = std::rotl(hash ^ Round(0, Load<std::uint64_t>(bytes.data())), 27) * kPrime1 + kPrime4;
    for (; bytes.size() >= 4; bytes = bytes.subspan(4))
        hash = std::rotl(hash ^ (Load<std::uint32_t>(bytes.data()) * kPrime1), 23) * kPrime2 + kPrime3;
    for (; !bytes.empty(); bytes = bytes.subspan(1))
        hash = std::rotl(hash ^ (Load<std::uint8_t>(bytes.data()) * kPrime5), 11) * kPrime1;
    return hash;
}
} // namespace

std::uint64_t ContentHash(std::span<const std::byte> bytes, std::uint64_t seed)
{
    const std::size_t size = bytes.size();
    std::uint64_t hash = size >= 32 ? HashBlocks(bytes, seed) : seed + kPrime5;
    hash = HashTail(hash + size, bytes);
    hash = (hash ^ (hash >> 33)) * kPrime2;
    hash = (hash ^ (hash >> 29)) * kPrime3;
    return hash ^ (hash >> 32);
}
