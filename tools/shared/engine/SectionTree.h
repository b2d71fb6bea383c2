// The section names of one file as a tree of their elements, the texts between the points: "Attrib.N.0.2.M"
// stands below "Attrib.N.0.2". It tells in constant time which sections begin with a name and a point, where
// a scan would compare every name.
//
// Names are compared without regard to case. Elements behind the 256th count as one. The names themselves
// stay with the parser, which passes a function from a section's number to its name; the tree lives as long
// as they do.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

class CSectionTree
{
public:
    using Node = std::uint32_t;
    static constexpr Node kRoot = 0;
    static constexpr Node kNone = UINT32_MAX;

    [[nodiscard]] bool IsBuilt() const { return m_bBuilt; }
    void Drop() { m_bBuilt = false; }

    template <class NameOf> void Build(std::size_t count, NameOf nameOf)
    {
        Begin(count);
        for (std::size_t section = 0; section < count; ++section)
            Insert(section, nameOf(section));
        m_bBuilt = true;
    }

    // kNone when no section has that name or begins with it and a point.
    [[nodiscard]] Node Find(std::u16string_view name) const;
    // The node of one more element; kNone also below kNone.
    [[nodiscard]] Node FindChild(Node parent, std::u16string_view element) const;
    // Children stand in the order in which the file first mentions them; kNone behind the last.
    [[nodiscard]] Node GetFirstChild(Node node) const { return m_Nodes[node].m_nFirstChild; }
    [[nodiscard]] Node GetNextSibling(Node node) const { return m_Nodes[node].m_nNextSibling; }
    [[nodiscard]] Node GetParent(Node node) const { return m_Nodes[node].m_nParent; }
    [[nodiscard]] std::u16string_view GetElement(Node node) const { return m_Nodes[node].m_sElement; }
    // The first section with the node's whole name, or -1 when there are only longer names.
    [[nodiscard]] std::ptrdiff_t GetSection(Node node) const { return m_Nodes[node].m_nSection; }
    [[nodiscard]] Node GetNodeOfSection(std::size_t section) const { return m_SectionNodes[section]; }

private:
    struct SNode
    {
        std::u16string_view m_sElement;
        std::ptrdiff_t m_nSection = -1;
        std::uint32_t m_nHash = 0;
        Node m_nParent = kNone;
        Node m_nFirstChild = kNone;
        Node m_nLastChild = kNone;
        Node m_nNextSibling = kNone;
    };

    void Begin(std::size_t count);
    void Insert(std::size_t section, std::u16string_view name);
    [[nodiscard]] Node AddChild(Node parent, std::u16string_view element, std::uint32_t hash);
    // The slot of the child, or the free one where a search for it ends.
    [[nodiscard]] std::size_t FindSlot(Node parent, std::u16string_view element, std::uint32_t hash) const;
    void Grow();

    std::vector<SNode> m_Nodes;
    std::vector<Node> m_SectionNodes;
    std::vector<Node> m_Slots; // A power of two; kNone marks a free one.
    // The nodes of the name inserted last: neighbours mostly share their first elements.
    std::vector<Node> m_Path;
    bool m_bBuilt = false;
};
