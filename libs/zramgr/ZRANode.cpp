#include "ZRANode.h"

#include "ZRAAllocator.h"
#include "zrassert.h"

#include <algorithm>
#include <type_traits>

static_assert(std::is_standard_layout_v<CZRANode> && sizeof(CZRANode) == 2 * sizeof(void*));

CZRANode::~CZRANode()
{
    ZRASSERT(m_pData == 0);
}

std::uint32_t CZRANode::GetNumElements() const
{
    ZRASSERT(IsList());
    return IsList() ? m_nFlags : 0;
}

CZRANode* CZRANode::GetElement(std::uint32_t nIndex) const
{
    ZRASSERT(IsList());
    ZRASSERT(nIndex < m_nFlags);
    return IsList() && nIndex < m_nFlags ? GetElements()[nIndex] : nullptr;
}

void CZRANode::SetElement(CZRANode* pNode, std::uint32_t nIndex)
{
    ZRASSERT(IsList());
    ZRASSERT(nIndex < m_nFlags);
    if (IsList() && nIndex < m_nFlags)
        GetElements()[nIndex] = pNode;
}

bool CZRANode::AllocateElements(std::uint32_t nCount, IZRAAllocator& allocator)
{
    ZRASSERT(IsList());
    ZRASSERT(m_pData == 0);
    if (IsAtom() || m_pData != nullptr || nCount > kMaxElements)
        return false;
    if (nCount == 0)
        return true;
    auto* const elements = static_cast<CZRANode**>(allocator.AllocateBlock(nCount * sizeof(CZRANode*)));
    if (elements == nullptr)
        return false;
    std::fill_n(elements, nCount, nullptr);
    m_pData = elements;
    m_nFlags = nCount;
    return true;
}

bool CZRANode::AppendElement(CZRANode* pNode, IZRAAllocator& allocator)
{
    ZRASSERT(IsList());
    if (IsAtom() || m_nFlags == kMaxElements)
        return false;
    const std::size_t count = m_nFlags;
    auto* const elements = static_cast<CZRANode**>(allocator.AllocateBlock((count + 1) * sizeof(CZRANode*)));
    if (elements == nullptr)
        return false;
    std::copy_n(GetElements(), count, elements);
    elements[count] = pNode;
    allocator.FreeBlock(m_pData);
    m_pData = elements;
    ++m_nFlags;
    return true;
}

const char* CZRANode::GetValue() const
{
    ZRASSERT(IsAtom());
    return IsAtom() ? static_cast<const char*>(m_pData) : "";
}

bool CZRANode::SetValue(const char* pszValue, bool bQuoted, std::size_t nLength, IZRAAllocator& allocator)
{
    ZRASSERT(pszValue);
    ZRASSERT(IsAtom() || m_pData == 0);
    if (pszValue == nullptr || (IsList() && m_pData != nullptr) || nLength == SIZE_MAX)
        return false;
    auto* const text = static_cast<char*>(allocator.AllocateBlock(nLength + 1));
    if (text == nullptr)
        return false;
    std::copy_n(pszValue, nLength, text);
    text[nLength] = 0;
    allocator.FreeBlock(m_pData);
    m_pData = text;
    m_nFlags = kAtom | (bQuoted ? kQuoted : 0);
    return true;
}

void CZRANode::Free(IZRAAllocator& allocator)
{
    for (std::uint32_t i = 0; IsList() && i < m_nFlags; ++i)
    {
        CZRANode* const element = GetElements()[i];
        if (element != nullptr)
            element->Free(allocator);
        allocator.FreeNode(element);
    }
    allocator.FreeBlock(m_pData);
    m_pData = nullptr;
    m_nFlags = 0;
}
