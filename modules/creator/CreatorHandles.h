// The handles of the creator library: what it is, of which database, and the index in it. A handle of a
// released database, or of the other creator, is never taken for one of a later database, since the databases
// of both are numbered through.
#pragma once

#include "idatabasecreator.h"

#include <atomic>
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

// The next number of a database; 0 when all have been used. The two creators may work in two threads.
inline std::uint32_t TakeSerial()
{
    static std::atomic<std::uint32_t> last{0};
    std::uint32_t previous = last.load();
    while (previous < kMaxSerial && !last.compare_exchange_weak(previous, previous + 1))
    {
    }
    return previous < kMaxSerial ? previous + 1 : 0;
}

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
