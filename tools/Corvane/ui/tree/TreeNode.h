// A row of the tree as the item model keeps it. Nodes are made when somebody looks at their parent: a
// database of any size costs one node until then.
#pragma once

#include "TreeItem.h"

#include <cstdint>
#include <memory>

class CTreeNodeList;
struct STreeChunk;

struct CTreeNode
{
    // The state column has not been read yet.
    static constexpr std::int8_t kStateUnknown = -1;

    explicit CTreeNode(CTreeItem item);
    ~CTreeNode();
    CTreeNode(const CTreeNode&) = delete;
    CTreeNode& operator=(const CTreeNode&) = delete;

    CTreeItem m_Item;
    CTreeNode* m_pParent = nullptr;             // Null for the root.
    STreeChunk* m_pChunk = nullptr;             // Where the parent's list has it.
    std::unique_ptr<CTreeNodeList> m_pChildren; // Null before they are looked at, and in a record.
    std::int8_t m_nState = kStateUnknown;
    bool m_bMatch = false;         // The name is one that the filter looks for.
    std::uint32_t m_nNameMark = 0; // Tells whether the name has changed since the row was told of.
};
