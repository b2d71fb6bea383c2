#include "ZRAHeapAllocator.h"

#include "ZRANode.h"

#include <new>

CZRANode* CZRAHeapAllocator::AllocateNode()
{
    return new (std::nothrow) CZRANode;
}

void CZRAHeapAllocator::FreeNode(CZRANode* pNode)
{
    delete pNode;
}

void* CZRAHeapAllocator::AllocateBlock(std::size_t nBytes)
{
    return ::operator new(nBytes, std::nothrow);
}

void CZRAHeapAllocator::FreeBlock(void* pBlock)
{
    ::operator delete(pBlock);
}
