// What the writer and the reader of a packed database must agree on beside the schema of the file itself.
#pragma once

#include "idatabasecreator.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace packed
{
static_assert(std::endian::native == std::endian::little, "packed databases are read in place");

inline constexpr std::uint32_t kFormatVersion = 1;
inline constexpr std::uint32_t kNone = 0xFFFFFFFF;
// FlatBuffers' offsets are signed 32-bit numbers; some room is left for the table and the alignment.
inline constexpr std::uint64_t kMaxFileBytes = 0x7FFFFFFF - 4096;
// Values that one attribute can have.
inline constexpr std::uint32_t kMaxValues = 0xFFFFFF;

inline constexpr std::uint64_t kNameHashStart = 0xCBF29CE484222325;

// FNV-1a with 64 bits, byte by byte, so that a name can be hashed in pieces.
constexpr std::uint64_t AddToNameHash(std::uint64_t hash, std::string_view text)
{
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3;
    return hash;
}

// Folds the hash to the 32 bits from which a slot is taken.
constexpr std::uint32_t FinishNameHash(std::uint64_t hash)
{
    return static_cast<std::uint32_t>(hash ^ (hash >> 32));
}

// A power of two that leaves at least one slot in three free, so that a search always ends.
constexpr std::uint32_t SlotCount(std::size_t entries)
{
    return static_cast<std::uint32_t>(std::bit_ceil(entries + entries / 2 + 1));
}

// Floats of one value of a vector type; 0 for every other type.
constexpr std::uint32_t Dimension(std::uint32_t type)
{
    return type >= DBVALUE_VECTOR2 && type <= DBVALUE_VECTOR4 ? type - DBVALUE_VECTOR2 + 2 : 0;
}

// Words that an attribute's values take in the side vector of words; a single one lies in the attribute.
constexpr std::uint32_t WordCount(std::uint32_t type, std::uint32_t count)
{
    return Dimension(type) != 0 || type == DBVALUE_STRUCT || count == 1 ? 0 : count;
}
} // namespace packed
