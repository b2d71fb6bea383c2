#include "ContentHash.h"

#include <algorithm>
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

using CLanes = std::array<std::uint64_t, 4>;

CLanes StartLanes(std::uint64_t seed)
{
    return {seed + kPrime1 + kPrime2, seed + kPrime2, seed, seed - kPrime1};
}

// Takes whole blocks of 32 bytes off `bytes`.
void TakeBlocks(CLanes& lanes, std::span<const std::byte>& bytes)
{
    const std::size_t size = bytes.size() / 32 * 32;
    CLanes current = lanes;
    for (std::size_t at = 0; at != size; at += 32)
    {
        for (std::size_t i = 0; i < current.size(); ++i)
            current[i] = Round(current[i], Load<std::uint64_t>(bytes.data() + at + i * 8));
    }
    lanes = current;
    bytes = bytes.subspan(size);
}

std::uint64_t MergeLanes(const CLanes& lanes)
{
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

std::uint64_t Finish(std::uint64_t hash, std::span<const std::byte> tail)
{
    hash = HashTail(hash, tail);
    hash = (hash ^ (hash >> 33)) * kPrime2;
    hash = (hash ^ (hash >> 29)) * kPrime3;
    return hash ^ (hash >> 32);
}
} // namespace

std::uint64_t ContentHash(std::span<const std::byte> bytes, std::uint64_t seed)
{
    const std::size_t size = bytes.size();
    if (size < 32)
        return Finish(seed + kPrime5 + size, bytes);
    CLanes lanes = StartLanes(seed);
    TakeBlocks(lanes, bytes);
    return Finish(MergeLanes(lanes) + size, bytes);
}

CContentHasher::CContentHasher(std::uint64_t seed) : m_nSeed(seed), m_Lanes(StartLanes(seed)) {}

void CContentHasher::Add(std::span<const std::byte> bytes)
{
    const std::size_t held = m_nSize % kBlock;
    m_nSize += bytes.size();
    if (held != 0)
    {
        const std::size_t taken = std::min(kBlock - held, bytes.size());
        std::copy_n(bytes.begin(), taken, m_Rest.begin() + held);
        bytes = bytes.subspan(taken);
        if (held + taken < kBlock)
            return;
        std::span<const std::byte> block(m_Rest);
        TakeBlocks(m_Lanes, block);
    }
    TakeBlocks(m_Lanes, bytes);
    std::copy(bytes.begin(), bytes.end(), m_Rest.begin());
}

std::uint64_t CContentHasher::GetHash() const
{
    const std::uint64_t start = m_nSize < kBlock ? m_nSeed + kPrime5 : MergeLanes(m_Lanes);
    return Finish(start + m_nSize, std::span(m_Rest).first(m_nSize % kBlock));
}
