// The default allocator: nodes and blocks come from the heap. It has no state, so that any number of objects
// and threads may use it and one may free what another has given.
#pragma once

#include "ZRAAllocator.h"

class CZRAHeapAllocator final : public IZRAAllocator
{
public:
    [[nodiscard]] CZRANode* AllocateNode() override;
    void FreeNode(CZRANode* pNode) override;
    [[nodiscard]] void* AllocateBlock(std::size_t nBytes) override;
    void FreeBlock(void* pBlock) override;
};
