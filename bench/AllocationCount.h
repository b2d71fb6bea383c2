// Counts the heap blocks that the whole process asks for, those of loaded modules and system libraries too.
// Off until it is switched on, so that timed runs do not pay for it.
#pragma once

#include <cstdint>

class CAllocationCount
{
public:
    // Counts from 0 for the life of the object; one at a time.
    CAllocationCount();
    ~CAllocationCount();
    CAllocationCount(const CAllocationCount&) = delete;
    CAllocationCount& operator=(const CAllocationCount&) = delete;

    // Blocks since the last call, or since the start of the count.
    [[nodiscard]] std::uint64_t Take();
};
