#include "ZRANodeIterator.h"

#include "ZRAHeapAllocator.h"
#include "ZRAUtil.h"
#include "zrassert.h"

CZRANodeIterator::CZRANodeIterator(CZRANode* pRoot)
{
    CZRAHeapAllocator heap;
    if (pRoot != nullptr && m_Wrapper.AllocateElements(1, heap))
        m_Wrapper.SetElement(pRoot, 0);
    m_Stack[0] = &m_Wrapper;
}

CZRANodeIterator::~CZRANodeIterator()
{
    // The root is the caller's.
    if (m_Wrapper.GetNumElements() != 0)
        m_Wrapper.SetElement(nullptr, 0);
    CZRAHeapAllocator heap;
    m_Wrapper.Free(heap);
}

bool CZRANodeIterator::PushNode(CZRANode* pNode)
{
    ZRASSERT(m_nStackPos < 1024 - 1);
    if (m_nStackPos >= kMaxLevels - 1 || pNode == nullptr || pNode->IsAtom())
        return false;
    ++m_nStackPos;
    m_Stack[m_nStackPos] = pNode;
    m_Cursor[m_nStackPos] = 0;
    return true;
}

CZRANode* CZRANodeIterator::GetCursorElement() const
{
    const std::uint32_t cursor = m_Cursor[m_nStackPos];
    return cursor < GetHead()->GetNumElements() ? GetHead()->GetElement(cursor) : nullptr;
}

CZRANode* CZRANodeIterator::NextList()
{
    std::uint32_t& cursor = m_Cursor[m_nStackPos];
    while (cursor < GetHead()->GetNumElements())
    {
        CZRANode* const element = GetHead()->GetElement(cursor++);
        if (element != nullptr && element->IsList())
            return element;
    }
    return nullptr;
}

CZRANode* CZRANodeIterator::FindNextList(const char* pszValue)
{
    CZRANode* list = NextList();
    while (list != nullptr && !CZRAUtil::HasLabel(*list, pszValue))
        list = NextList();
    return list;
}
