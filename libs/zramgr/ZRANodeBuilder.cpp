#include "ZRANodeBuilder.h"

#include "ZRAAllocator.h"
#include "ZRAConverter.h"
#include "ZRANode.h"
#include "zrassert.h"

#include <algorithm>
#include <cstring>

CZRANodeBuilder::CZRANodeBuilder(IZRAAllocator* pAllocator) : m_pAllocator(pAllocator)
{
    ZRASSERT(m_pAllocator);
}

CZRANodeBuilder::~CZRANodeBuilder()
{
    Truncate(0);
    for (CZRANode** const row : m_pCache)
    {
        if (row != nullptr)
            m_pAllocator->FreeBlock(row);
    }
}

bool CZRANodeBuilder::Push()
{
    if (m_pAllocator == nullptr || m_nDepth == kMaxDepth)
        return false;
    m_Stack[m_nDepth++] = {m_nNumElements, 0};
    return true;
}

bool CZRANodeBuilder::AddValue(const char* pszValue, bool bQuoted)
{
    CZRANode* const atom = MakeAtom(pszValue, bQuoted);
    return atom != nullptr && AddNode(atom);
}

bool CZRANodeBuilder::AddInteger(int nValue)
{
    // A buffer of its own for each call, since two threads may build trees at once.
    std::array<char, 128> text;
    CZRAConverter::IntToStr(nValue, text.data(), text.size());
    return AddValue(text.data(), false);
}

bool CZRANodeBuilder::PushValue(const char* pszValue, bool bQuoted)
{
    if (!Push())
        return false;
    if (AddValue(pszValue, bQuoted))
        return true;
    --m_nDepth;
    return false;
}

bool CZRANodeBuilder::Pop()
{
    if (m_nDepth == 0)
        return false;
    CZRANode* const list = MakeList(m_Stack[--m_nDepth].m_nCount);
    return list != nullptr && AddNode(list);
}

bool CZRANodeBuilder::PopAll()
{
    bool whole = true;
    while (m_nDepth != 0)
        whole = Pop() && whole;
    return whole;
}

std::uint32_t CZRANodeBuilder::DetachHeads(CZRANode** ppNodeList, std::uint32_t nMax)
{
    ZRASSERT(ppNodeList);
    const bool whole = PopAll();
    const std::uint32_t count = whole && ppNodeList != nullptr ? std::min(nMax, m_nNumElements) : 0;
    for (std::uint32_t i = 0; i < count; ++i)
    {
        ppNodeList[i] = GetCacheElement(i);
        GetCacheElement(i) = nullptr;
    }
    Truncate(0);
    return count;
}

CZRANode* CZRANodeBuilder::DetachHead()
{
    CZRANode* head = nullptr;
    return DetachHeads(&head, 1) == 1 ? head : nullptr;
}

CZRANode*& CZRANodeBuilder::GetCacheElement(std::uint32_t nIndex)
{
    const std::uint32_t nRow = nIndex / kRowSize;
    ZRASSERT(nRow < MAX_CACHE_ROWS);
    ZRASSERT(m_pCache[nRow]);
    return m_pCache[nRow][nIndex % kRowSize];
}

bool CZRANodeBuilder::ReserveSlot()
{
    const std::uint32_t row = m_nNumElements / kRowSize;
    if (row == MAX_CACHE_ROWS)
        return false;
    if (m_pCache[row] != nullptr)
        return true;
    auto* const slots = static_cast<CZRANode**>(m_pAllocator->AllocateBlock(kRowSize * sizeof(CZRANode*)));
    if (slots == nullptr)
        return false;
    std::fill_n(slots, kRowSize, nullptr);
    m_pCache[row] = slots;
    return true;
}

bool CZRANodeBuilder::AddNode(CZRANode* pNode)
{
    if (!ReserveSlot())
    {
        FreeTree(pNode);
        return false;
    }
    GetCacheElement(m_nNumElements++) = pNode;
    if (m_nDepth != 0)
        ++m_Stack[m_nDepth - 1].m_nCount;
    return true;
}

CZRANode* CZRANodeBuilder::MakeAtom(const char* pszValue, bool bQuoted)
{
    ZRASSERT(pszValue);
    if (m_pAllocator == nullptr || pszValue == nullptr)
        return nullptr;
    CZRANode* const atom = m_pAllocator->AllocateNode();
    if (atom == nullptr || atom->SetValue(pszValue, bQuoted, std::strlen(pszValue), *m_pAllocator))
        return atom;
    m_pAllocator->FreeNode(atom);
    return nullptr;
}

CZRANode* CZRANodeBuilder::MakeList(std::uint32_t nCount)
{
    const std::uint32_t start = m_nNumElements - nCount;
    CZRANode* list = m_pAllocator->AllocateNode();
    if (list != nullptr && !list->AllocateElements(nCount, *m_pAllocator))
    {
        m_pAllocator->FreeNode(list);
        list = nullptr;
    }
    for (std::uint32_t i = 0; list != nullptr && i < nCount; ++i)
    {
        list->SetElement(GetCacheElement(start + i), i);
        GetCacheElement(start + i) = nullptr;
    }
    Truncate(start);
    return list;
}

void CZRANodeBuilder::Truncate(std::uint32_t nStart)
{
    while (m_nNumElements > nStart)
    {
        CZRANode*& element = GetCacheElement(--m_nNumElements);
        if (element != nullptr)
            FreeTree(element);
        element = nullptr;
    }
}

void CZRANodeBuilder::FreeTree(CZRANode* pNode)
{
    pNode->Free(*m_pAllocator);
    m_pAllocator->FreeNode(pNode);
}
