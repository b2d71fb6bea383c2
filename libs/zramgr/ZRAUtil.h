// Questions about trees, node texts and node files. Texts and file names are UTF-8. Nothing here owns a node.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

class CZRANode;

class CZRAUtil
{
public:
    // Whether a file of this name holds the compressed form: its name ends in 'c' or 'C'.
    [[nodiscard]] static bool IsFileCompressed(std::string_view sFileName);

    // Whether `node` is a list whose first element is the atom `pszValue`, letter case counts.
    [[nodiscard]] static bool HasLabel(const CZRANode& node, const char* pszValue);
    // The first element of the list `pNode` with that label; null when there is none, also for a null or an
    // atom.
    [[nodiscard]] static CZRANode* FindList(const CZRANode* pNode, const char* pszValue);
    // Appends every element of the list `pNode` with that label, in order. How many those are; 0 for a null.
    static std::size_t ShallowFindAll(std::vector<CZRANode*>& list, CZRANode* pNode, const char* pszValue);

    // Whether an atom of this text, written as it is, is this one atom to a reader. Nothing is escaped, so
    // that a double quote or a control character never comes through; without quotes neither do a blank, a
    // parenthesis and an empty text. A writer writes such a text all the same: ask first where a damaged
    // file matters.
    [[nodiscard]] static bool IsTextExact(std::string_view sText, bool bQuoted);
    // Appends every atom of the tree whose text is not exact, in the order of the written form. A null node
    // has none.
    static void FindInexactAtoms(std::vector<const CZRANode*>& atoms, const CZRANode* pNode);
};
