#include "struct/KeptSections.h"

#include "UnicodeFileParse_ReadOnly.h"

#include <algorithm>

CKeptSections::CKeptSections(const CUnicodeFileParse_ReadOnly& parser, CSectionTree::Node node)
{
    const CSectionTree& tree = parser.GetTree();
    std::vector<std::size_t> sections;
    std::vector<CSectionTree::Node> open{node};
    while (!open.empty())
    {
        const CSectionTree::Node current = open.back();
        open.pop_back();
        if (current != node && tree.GetSection(current) >= 0)
            sections.push_back(static_cast<std::size_t>(tree.GetSection(current)));
        for (CSectionTree::Node child = tree.GetFirstChild(current); child != CSectionTree::kNone;
             child = tree.GetNextSibling(child))
            open.push_back(child);
    }
    std::size_t length = 0; // Of the attribute's own name with a point ahead of each element.
    for (CSectionTree::Node above = node; above != CSectionTree::kRoot; above = tree.GetParent(above))
        length += tree.GetElement(above).size() + 1;
    std::sort(sections.begin(), sections.end());
    for (const std::size_t section : sections)
    {
        SSection& kept = m_Sections.emplace_back();
        kept.m_sTail = parser.GetSectionName(section).substr(length - 1);
        for (const SSectionKey& key : parser.GetKeys(section))
            kept.m_Keys.emplace_back(key.m_sName, key.m_sValue);
    }
}

bool CKeptSections::Write(IUnicodeFileParse& writer, std::u16string_view section) const
{
    for (const SSection& kept : m_Sections)
    {
        const std::u16string name = std::u16string(section) + kept.m_sTail;
        for (const auto& [key, value] : kept.m_Keys)
        {
            if (!writer.WriteString(name, key, value))
                return false;
        }
    }
    return true;
}
