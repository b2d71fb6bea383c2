// The categories that hold possible targets of a link, as a tree: each one's path, step by step from the top.
// A step that is no such category itself is there as the way to one; nothing else is.
//
// Nodes are counted from 0, which is the root that stands for the database; children come in the order in
// which they entered. Names are found without regard to case, and `\` is as good as `/`.
#pragma once

#include "CorvaneRef.h"
#include "NameCompare.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class CCorvaneCategory;
class CCorvaneRecord;

class CLinkCategoryTree
{
public:
    static constexpr std::size_t kRoot = 0;
    static constexpr std::size_t kNone = SIZE_MAX;

    struct SNode
    {
        std::u16string m_sName;
        std::u16string m_sPath;             // Steps with '/' between them; empty for the root.
        CRef<CCorvaneCategory> m_pCategory; // Null where the step holds no targets.
        std::size_t m_nParent = kNone;
        std::vector<std::size_t> m_Children;
    };

    // A tree of the root alone.
    explicit CLinkCategoryTree(std::u16string_view rootName);

    void PopulateTree(std::span<CCorvaneCategory* const> categories);
    [[nodiscard]] std::size_t GetCount() const { return m_Nodes.size(); }
    [[nodiscard]] const SNode& GetNode(std::size_t index) const { return m_Nodes[index]; }
    // The empty path finds the root; kNone for none.
    [[nodiscard]] std::size_t Find(std::u16string_view path) const;
    // The node of the record's category; kNone for a record that is no possible target.
    [[nodiscard]] std::size_t FindHome(const CCorvaneRecord& record) const;

    // Texts that what was typed so far may become, at most `limit`: paths of records and, with a '/' behind
    // them, of categories. A text with a separator is looked for in the category that it names; one without
    // is looked for among the categories at the top, then among the names of all possible targets.
    [[nodiscard]] std::vector<std::u16string> Complete(std::u16string_view text, std::size_t limit) const;

private:
    [[nodiscard]] std::size_t Enter(std::size_t parent, std::u16string_view step);
    void CompleteCategories(std::size_t node, std::u16string_view tail, std::size_t limit,
                            std::vector<std::u16string>& out) const;
    void CompleteRecords(std::size_t node, std::u16string_view tail, std::size_t limit,
                         std::vector<std::u16string>& out) const;

    std::vector<SNode> m_Nodes;
    std::unordered_map<std::u16string, std::size_t, CNameHash, CNameEqual> m_Paths;
};
