// Owns a whole tree: releases what the root holds and then the root, with the allocator of the tree.
#pragma once

#include "ZRAAllocator.h"
#include "ZRANode.h"

#include <memory>

struct CZRANodeRelease
{
    // Not owned; outlives the tree.
    IZRAAllocator* m_pAllocator = nullptr;

    void operator()(CZRANode* pNode) const
    {
        pNode->Free(*m_pAllocator);
        m_pAllocator->FreeNode(pNode);
    }
};

// CZRANodePtr root(builder.DetachHead(), {&allocator});
using CZRANodePtr = std::unique_ptr<CZRANode, CZRANodeRelease>;
