// The children of a node, in their order. Rows are found by number and by node, and come and go one by one,
// in a time that stays short for a list of 100,000: chunks of a few hundred nodes each know their first row.
#pragma once

#include "TreeNode.h"

#include <cstddef>
#include <memory>
#include <vector>

struct STreeChunk
{
    std::vector<std::unique_ptr<CTreeNode>> m_Nodes; // Never empty.
    std::size_t m_nFirst = 0;                        // Row of the first one.
    std::size_t m_nIndex = 0;                        // Of the chunk itself.
};

class CTreeNodeList
{
public:
    CTreeNodeList() = default;
    // Takes the nodes in their order.
    explicit CTreeNodeList(std::vector<std::unique_ptr<CTreeNode>> nodes);

    [[nodiscard]] std::size_t GetCount() const;
    [[nodiscard]] bool IsEmpty() const { return m_Chunks.empty(); }
    // `row` is below the count.
    [[nodiscard]] CTreeNode& At(std::size_t row) const;
    // `node` is in the list.
    [[nodiscard]] static std::size_t GetRow(const CTreeNode& node);

    void Insert(std::size_t row, std::unique_ptr<CTreeNode> node);
    [[nodiscard]] std::unique_ptr<CTreeNode> Take(std::size_t row);
    // The row from `first` to `last` before which `item` belongs, behind its equals.
    [[nodiscard]] std::size_t FindPlace(const CTreeItem& item, std::size_t first, std::size_t last) const;

private:
    [[nodiscard]] STreeChunk& GetChunk(std::size_t row) const;
    void Split(STreeChunk& chunk);
    void Renumber(std::size_t firstChunk);

    std::vector<std::unique_ptr<STreeChunk>> m_Chunks;
};
