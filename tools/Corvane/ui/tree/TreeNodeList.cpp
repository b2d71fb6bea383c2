#include "TreeNodeList.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace
{
constexpr std::size_t kMaxChunk = 512;
} // namespace

CTreeNode::CTreeNode(CTreeItem item) : m_Item(std::move(item)) {}

CTreeNode::~CTreeNode() = default;

CTreeNodeList::CTreeNodeList(std::vector<std::unique_ptr<CTreeNode>> nodes)
{
    // Half full, so that the first insert does not split.
    constexpr std::size_t kFill = kMaxChunk / 2;
    m_Chunks.reserve(nodes.size() / kFill + 1);
    for (std::size_t i = 0; i < nodes.size(); i += kFill)
    {
        auto chunk = std::make_unique<STreeChunk>();
        const auto first = nodes.begin() + static_cast<std::ptrdiff_t>(i);
        const auto last = first + static_cast<std::ptrdiff_t>(std::min(kFill, nodes.size() - i));
        chunk->m_Nodes.assign(std::make_move_iterator(first), std::make_move_iterator(last));
        for (const std::unique_ptr<CTreeNode>& node : chunk->m_Nodes)
            node->m_pChunk = chunk.get();
        m_Chunks.push_back(std::move(chunk));
    }
    Renumber(0);
}

std::size_t CTreeNodeList::GetCount() const
{
    return m_Chunks.empty() ? 0 : m_Chunks.back()->m_nFirst + m_Chunks.back()->m_Nodes.size();
}

STreeChunk& CTreeNodeList::GetChunk(std::size_t row) const
{
    const auto behind =
        std::upper_bound(m_Chunks.begin(), m_Chunks.end(), row,
                         [](std::size_t value, const auto& chunk) { return value < chunk->m_nFirst; });
    return **std::prev(behind);
}

CTreeNode& CTreeNodeList::At(std::size_t row) const
{
    const STreeChunk& chunk = GetChunk(row);
    return *chunk.m_Nodes[row - chunk.m_nFirst];
}

std::size_t CTreeNodeList::GetRow(const CTreeNode& node)
{
    const auto& nodes = node.m_pChunk->m_Nodes;
    const auto found =
        std::find_if(nodes.begin(), nodes.end(), [&](const auto& one) { return one.get() == &node; });
    return node.m_pChunk->m_nFirst + static_cast<std::size_t>(found - nodes.begin());
}

void CTreeNodeList::Insert(std::size_t row, std::unique_ptr<CTreeNode> node)
{
    if (m_Chunks.empty())
        m_Chunks.push_back(std::make_unique<STreeChunk>());
    STreeChunk& chunk = GetChunk(row);
    node->m_pChunk = &chunk;
    chunk.m_Nodes.insert(chunk.m_Nodes.begin() + static_cast<std::ptrdiff_t>(row - chunk.m_nFirst),
                         std::move(node));
    const std::size_t index = chunk.m_nIndex;
    if (chunk.m_Nodes.size() > kMaxChunk)
        Split(chunk);
    Renumber(index);
}

void CTreeNodeList::Split(STreeChunk& chunk)
{
    auto half = std::make_unique<STreeChunk>();
    const auto middle = chunk.m_Nodes.begin() + static_cast<std::ptrdiff_t>(chunk.m_Nodes.size() / 2);
    half->m_Nodes.assign(std::make_move_iterator(middle), std::make_move_iterator(chunk.m_Nodes.end()));
    chunk.m_Nodes.erase(middle, chunk.m_Nodes.end());
    for (const std::unique_ptr<CTreeNode>& node : half->m_Nodes)
        node->m_pChunk = half.get();
    m_Chunks.insert(m_Chunks.begin() + static_cast<std::ptrdiff_t>(chunk.m_nIndex) + 1, std::move(half));
}

std::unique_ptr<CTreeNode> CTreeNodeList::Take(std::size_t row)
{
    STreeChunk& chunk = GetChunk(row);
    const auto place = chunk.m_Nodes.begin() + static_cast<std::ptrdiff_t>(row - chunk.m_nFirst);
    std::unique_ptr<CTreeNode> node = std::move(*place);
    chunk.m_Nodes.erase(place);
    node->m_pChunk = nullptr;
    const std::size_t index = chunk.m_nIndex;
    if (chunk.m_Nodes.empty())
        m_Chunks.erase(m_Chunks.begin() + static_cast<std::ptrdiff_t>(index));
    Renumber(index);
    return node;
}

void CTreeNodeList::Renumber(std::size_t firstChunk)
{
    for (std::size_t i = firstChunk; i < m_Chunks.size(); ++i)
    {
        const STreeChunk* before = i == 0 ? nullptr : m_Chunks[i - 1].get();
        m_Chunks[i]->m_nFirst = before ? before->m_nFirst + before->m_Nodes.size() : 0;
        m_Chunks[i]->m_nIndex = i;
    }
}

std::size_t CTreeNodeList::FindPlace(const CTreeItem& item, std::size_t first, std::size_t last) const
{
    while (first < last)
    {
        const std::size_t middle = first + (last - first) / 2;
        if (IsTreeOrder(item, At(middle).m_Item))
            last = middle;
        else
            first = middle + 1;
    }
    return first;
}
