#include "ZRAUtil.h"

#include "ZRANode.h"
#include "ZRANodeIterator.h"
#include "zrassert.h"

#include <algorithm>
#include <cstring>

bool CZRAUtil::IsFileCompressed(std::string_view sFileName)
{
    return sFileName.ends_with('c') || sFileName.ends_with('C');
}

bool CZRAUtil::HasLabel(const CZRANode& node, const char* pszValue)
{
    ZRASSERT(pszValue);
    if (pszValue == nullptr || node.IsAtom() || node.GetNumElements() == 0)
        return false;
    const CZRANode* const first = node.GetElement(0);
    return first != nullptr && first->IsAtom() && std::strcmp(first->GetValue(), pszValue) == 0;
}

CZRANode* CZRAUtil::FindList(const CZRANode* pNode, const char* pszValue)
{
    const std::uint32_t count = pNode != nullptr && pNode->IsList() ? pNode->GetNumElements() : 0;
    for (std::uint32_t i = 0; i < count; ++i)
    {
        CZRANode* const element = pNode->GetElement(i);
        if (element != nullptr && HasLabel(*element, pszValue))
            return element;
    }
    return nullptr;
}

std::size_t CZRAUtil::ShallowFindAll(std::vector<CZRANode*>& list, CZRANode* pNode, const char* pszValue)
{
    ZRASSERT(pszValue);
    CZRANodeIterator iterator(pNode);
    CZRANode* const root = iterator.NextList();
    if (pszValue == nullptr || root == nullptr || !iterator.PushNode(root))
        return 0;
    const std::size_t before = list.size();
    while (CZRANode* const found = iterator.FindNextList(pszValue))
        list.push_back(found);
    return list.size() - before;
}

bool CZRAUtil::IsTextExact(std::string_view sText, bool bQuoted)
{
    const auto breaks = [bQuoted](char byte)
    {
        const bool control = static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F;
        return control || byte == '"' || (!bQuoted && (byte == ' ' || byte == '(' || byte == ')'));
    };
    return (bQuoted || !sText.empty()) && std::none_of(sText.begin(), sText.end(), breaks);
}

void CZRAUtil::FindInexactAtoms(std::vector<const CZRANode*>& atoms, const CZRANode* pNode)
{
    if (pNode == nullptr)
        return;
    if (pNode->IsAtom())
    {
        if (!IsTextExact(pNode->GetValue(), pNode->IsQuoted()))
            atoms.push_back(pNode);
        return;
    }
    for (std::uint32_t i = 0; i < pNode->GetNumElements(); ++i)
        FindInexactAtoms(atoms, pNode->GetElement(i));
}
