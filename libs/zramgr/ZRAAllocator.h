// Where node trees take their memory from. Nodes do not know their allocator: whoever releases a tree passes
// the one that it was made with.
//
// The allocator outlives every tree and builder that uses it. One object serves one thread at a time, unless
// its class says otherwise. Nothing throws: exhausted memory is a null result.
#pragma once

#include <cstddef>

class CZRANode;

class IZRAAllocator
{
public:
    virtual ~IZRAAllocator() = default;

    // A cleared node, that is an empty list; null when there is no memory.
    [[nodiscard]] virtual CZRANode* AllocateNode() = 0;
    // Takes a node that holds no data any more; null is passed over.
    virtual void FreeNode(CZRANode* pNode) = 0;
    // `nBytes` bytes that any object may lie in, not cleared; null when there is no memory.
    [[nodiscard]] virtual void* AllocateBlock(std::size_t nBytes) = 0;
    // Null is passed over.
    virtual void FreeBlock(void* pBlock) = 0;
};
