// Walks over the lists of a tree, level by level. The root is found as well: it stands in a list of its own,
// which is the first level. The iterator owns no node of the tree, which must outlive it.
//
// A stack object of some 12 KB. When its memory cannot be had, it finds nothing.
#pragma once

#include "ZRANode.h"

#include <array>
#include <cstdint>

class CZRANodeIterator
{
public:
    static constexpr std::uint32_t kMaxLevels = 1024;

    // A null root is a tree without a list.
    explicit CZRANodeIterator(CZRANode* pRoot);
    ~CZRANodeIterator();
    CZRANodeIterator(const CZRANodeIterator&) = delete;
    CZRANodeIterator& operator=(const CZRANodeIterator&) = delete;

    // Goes down to the elements of a list. False when kMaxLevels levels are entered, or for no list.
    [[nodiscard]] bool PushNode(CZRANode* pNode);
    // The list of the level that is looked at.
    [[nodiscard]] CZRANode* GetHead() const { return m_Stack[m_nStackPos]; }
    // The element of the head at the cursor; null behind the last one.
    [[nodiscard]] CZRANode* GetCursorElement() const;
    // The next element of the head, from the cursor on, that is a list, with the cursor behind it; null at
    // the end.
    [[nodiscard]] CZRANode* NextList();
    // The next list whose first element is the atom `pszValue`, letter case counts.
    [[nodiscard]] CZRANode* FindNextList(const char* pszValue);

private:
    CZRANode m_Wrapper;
    std::array<CZRANode*, kMaxLevels> m_Stack{};
    std::array<std::uint32_t, kMaxLevels> m_Cursor{};
    std::uint32_t m_nStackPos = 0;
};
