// The handles of the creator library: what it is, of which database, and the index in it. A handle of a
// released database is never taken for one of a later database, since databases are numbered through.
#pragma once

#include "idatabasecreator.h"

#include <cstdint>

enum class EHandleKind : std::uint32_t
{
    Database = 0,
    Category = 1,
    Record = 2,
    Attribute = 3,
};

struct SHandle
{
    EHandleKind kind;
    // From 1 to kMaxSerial, so that no handle is 0.
    std::uint32_t serial;
    std::uint32_t index;
};

inline constexpr std::uint32_t kMaxSerial = 0x3FFFFFFF;

constexpr CreatorHandle PackHandle(const SHandle& handle)
{
    return CreatorHandle{static_cast<std::uint32_t>(handle.kind)} << 62 | CreatorHandle{handle.serial} << 32 |
           handle.index;
}

constexpr SHandle UnpackHandle(CreatorHandle handle)
{
    return {static_cast<EHandleKind>(handle >> 62), static_cast<std::uint32_t>(handle >> 32) & kMaxSerial,
            static_cast<std::uint32_t>(handle)};
}
