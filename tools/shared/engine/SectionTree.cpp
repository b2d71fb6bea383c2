#include "SectionTree.h"

#include "NameCompare.h"

namespace
{
std::uint32_t HashChild(CSectionTree::Node parent, std::u16string_view element)
{
    const std::uint64_t hash = HashName(element) ^ (parent * 0x9E3779B97F4A7C15);
    return static_cast<std::uint32_t>(hash ^ (hash >> 32));
}

// Takes a name apart. Behind the deepest level the rest of the name is one element, so that a damaged file
// full of points costs no node for each of them.
class CElements
{
public:
    explicit CElements(std::u16string_view name) : m_sRest(name) {}

    [[nodiscard]] bool Next(std::u16string_view& element)
    {
        constexpr int kDeepest = 256;
        if (m_bDone)
            return false;
        const std::size_t point = ++m_nDepth < kDeepest ? m_sRest.find(u'.') : std::u16string_view::npos;
        m_bDone = point == std::u16string_view::npos;
        element = m_sRest.substr(0, point);
        m_sRest = m_bDone ? std::u16string_view() : m_sRest.substr(point + 1);
        return true;
    }

private:
    std::u16string_view m_sRest;
    int m_nDepth = 0;
    bool m_bDone = false;
};
} // namespace

void CSectionTree::Begin(std::size_t count)
{
    constexpr std::size_t kFirstSlots = 64;
    m_Nodes.assign(1, {});
    m_SectionNodes.assign(count, kRoot);
    m_Slots.assign(kFirstSlots, kNone);
    m_Path.clear();
}

void CSectionTree::Insert(std::size_t section, std::u16string_view name)
{
    Node node = kRoot;
    std::size_t depth = 0;
    std::u16string_view element;
    for (CElements elements(name); elements.Next(element); ++depth)
    {
        if (depth < m_Path.size() && m_Nodes[m_Path[depth]].m_sElement == element)
        {
            node = m_Path[depth];
            continue;
        }
        m_Path.resize(depth);
        const std::uint32_t hash = HashChild(node, element);
        const Node known = m_Slots[FindSlot(node, element, hash)];
        node = known != kNone ? known : AddChild(node, element, hash);
        m_Path.push_back(node);
    }
    m_Path.resize(depth);
    m_SectionNodes[section] = node;
    if (m_Nodes[node].m_nSection < 0)
        m_Nodes[node].m_nSection = static_cast<std::ptrdiff_t>(section);
}

CSectionTree::Node CSectionTree::AddChild(Node parent, std::u16string_view element, std::uint32_t hash)
{
    if (m_Nodes.size() * 2 > m_Slots.size())
        Grow();
    const Node node = static_cast<Node>(m_Nodes.size());
    m_Slots[FindSlot(parent, element, hash)] = node;
    SNode added;
    added.m_sElement = element;
    added.m_nHash = hash;
    added.m_nParent = parent;
    m_Nodes.push_back(added);
    SNode& above = m_Nodes[parent];
    (above.m_nLastChild == kNone ? above.m_nFirstChild : m_Nodes[above.m_nLastChild].m_nNextSibling) = node;
    above.m_nLastChild = node;
    return node;
}

std::size_t CSectionTree::FindSlot(Node parent, std::u16string_view element, std::uint32_t hash) const
{
    const std::size_t mask = m_Slots.size() - 1;
    for (std::size_t slot = hash & mask;; slot = (slot + 1) & mask)
    {
        if (m_Slots[slot] == kNone)
            return slot;
        const SNode& node = m_Nodes[m_Slots[slot]];
        if (node.m_nHash == hash && node.m_nParent == parent && EqualNames(node.m_sElement, element))
            return slot;
    }
}

void CSectionTree::Grow()
{
    m_Slots.assign(m_Slots.size() * 4, kNone);
    const std::size_t mask = m_Slots.size() - 1;
    for (std::size_t node = 1; node < m_Nodes.size(); ++node)
    {
        std::size_t slot = m_Nodes[node].m_nHash & mask;
        while (m_Slots[slot] != kNone)
            slot = (slot + 1) & mask;
        m_Slots[slot] = static_cast<Node>(node);
    }
}

CSectionTree::Node CSectionTree::Find(std::u16string_view name) const
{
    Node node = kRoot;
    std::u16string_view element;
    for (CElements elements(name); node != kNone && elements.Next(element);)
        node = FindChild(node, element);
    return node;
}

CSectionTree::Node CSectionTree::FindChild(Node parent, std::u16string_view element) const
{
    if (parent == kNone || m_Nodes[parent].m_nFirstChild == kNone)
        return kNone;
    return m_Slots[FindSlot(parent, element, HashChild(parent, element))];
}
