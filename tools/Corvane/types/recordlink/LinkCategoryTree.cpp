#include "recordlink/LinkCategoryTree.h"

#include "CorvaneMgr.h"

#include <algorithm>

namespace
{
constexpr std::u16string_view kSeparators = u"/\\";

// In the form of the nodes' paths.
std::u16string MakeNodePath(std::u16string_view path)
{
    std::u16string text(path);
    std::replace(text.begin(), text.end(), u'\\', u'/');
    return text;
}
} // namespace

CLinkCategoryTree::CLinkCategoryTree(std::u16string_view rootName)
{
    m_Nodes.emplace_back().m_sName = rootName;
    m_Paths.emplace(std::u16string(), kRoot);
}

void CLinkCategoryTree::PopulateTree(std::span<CCorvaneCategory* const> categories)
{
    std::u16string path;
    for (CCorvaneCategory* category : categories)
    {
        category->GetManager().GetCategoryPath(category, path);
        std::size_t node = kRoot;
        for (std::size_t from = 0; from <= path.size();)
        {
            const std::size_t end = std::min(path.find_first_of(kSeparators, from), path.size());
            node = Enter(node, std::u16string_view(path).substr(from, end - from));
            from = end + 1;
        }
        m_Nodes[node].m_pCategory = CRef<CCorvaneCategory>(category);
    }
}

std::size_t CLinkCategoryTree::Enter(std::size_t parent, std::u16string_view step)
{
    std::u16string path = m_Nodes[parent].m_sPath;
    if (parent != kRoot)
        path += u'/';
    path += step;
    const auto [place, isNew] = m_Paths.emplace(path, m_Nodes.size());
    if (!isNew)
        return place->second;
    const std::size_t added = m_Nodes.size();
    SNode& node = m_Nodes.emplace_back();
    node.m_sName = step;
    node.m_sPath = std::move(path);
    node.m_nParent = parent;
    m_Nodes[parent].m_Children.push_back(added);
    return added;
}

std::size_t CLinkCategoryTree::Find(std::u16string_view path) const
{
    const auto found = m_Paths.find(MakeNodePath(path));
    return found != m_Paths.end() ? found->second : kNone;
}

std::size_t CLinkCategoryTree::FindHome(const CCorvaneRecord& record) const
{
    std::u16string path;
    if (record.GetCategory() == nullptr || !record.GetManager().GetCategoryPath(record.GetCategory(), path))
        return kNone;
    const std::size_t node = Find(path);
    return node != kNone && m_Nodes[node].m_pCategory == record.GetCategory() ? node : kNone;
}

std::vector<std::u16string> CLinkCategoryTree::Complete(std::u16string_view text, std::size_t limit) const
{
    std::vector<std::u16string> found;
    if (text.empty())
        return found;
    const std::size_t separator = text.find_last_of(kSeparators);
    if (separator != std::u16string_view::npos)
    {
        const std::size_t node = Find(text.substr(0, separator));
        if (node == kNone)
            return found;
        CompleteCategories(node, text.substr(separator + 1), limit, found);
        CompleteRecords(node, text.substr(separator + 1), limit, found);
        return found;
    }
    CompleteCategories(kRoot, text, limit, found);
    for (std::size_t node = 0; node < m_Nodes.size() && found.size() < limit; ++node)
        CompleteRecords(node, text, limit, found);
    return found;
}

void CLinkCategoryTree::CompleteCategories(std::size_t node, std::u16string_view tail, std::size_t limit,
                                           std::vector<std::u16string>& out) const
{
    for (const std::size_t child : m_Nodes[node].m_Children)
    {
        if (out.size() < limit && BeginsWithName(m_Nodes[child].m_sName, tail))
            out.push_back(m_Nodes[child].m_sPath + u'/');
    }
}

void CLinkCategoryTree::CompleteRecords(std::size_t node, std::u16string_view tail, std::size_t limit,
                                        std::vector<std::u16string>& out) const
{
    const CCorvaneCategory* category = m_Nodes[node].m_pCategory.Get();
    if (category == nullptr)
        return;
    for (const CRef<CCorvaneRecord>& record : category->GetRecords())
    {
        if (out.size() >= limit)
            return;
        if (BeginsWithName(record->GetName(), tail))
            category->GetManager().GetRecordPath(record.Get(), out.emplace_back());
    }
}
