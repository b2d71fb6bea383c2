// How a Struct attribute reads and writes its sections of a record file: its own, and below it those of the
// members, row by row.
#include "CorvaneRecord.h"
#include "NameCompare.h"
#include "NumberText.h"
#include "UnicodeFileParse_ReadOnly.h"
#include "struct/CorvaneTypeStruct.h"
#include "struct/KeptSections.h"
#include "zrassert.h"

namespace
{
using Node = CSectionTree::Node;

// Finds the children of one node by name. Files that this program wrote hold them in the order in which they
// are asked for.
class CChildCursor
{
public:
    CChildCursor(const CSectionTree& tree, Node parent)
        : m_Tree(tree), m_nParent(parent),
          m_nNext(parent == CSectionTree::kNone ? parent : tree.GetFirstChild(parent))
    {
    }

    [[nodiscard]] Node Find(std::u16string_view name)
    {
        // Several builds of one member share a node.
        for (int tries = 0; tries < 2 && m_nNext != CSectionTree::kNone; ++tries)
        {
            if (EqualNames(m_Tree.GetElement(m_nNext), name))
                return m_nNext;
            m_nNext = m_Tree.GetNextSibling(m_nNext);
        }
        const Node found = m_Tree.FindChild(m_nParent, name);
        if (found != CSectionTree::kNone)
            m_nNext = found;
        return found;
    }

private:
    const CSectionTree& m_Tree;
    Node m_nParent;
    Node m_nNext;
};
} // namespace

bool CCorvaneTypeStruct::LoadFromFile(CCorvaneRecord& record, CCorvaneAttrib* parentAttrib,
                                      const CUnicodeFileParse_ReadOnly& parser, std::size_t section)
{
    const CRef<CCorvaneRecord> keepAlive(&record);
    const CSectionTree& tree = parser.GetTree();
    const std::u16string build = FormatInteger(GetAttribData() ? GetAttribData()->GetBuild() : GetBuild());
    Node rows = tree.GetNodeOfSection(section);
    // Rows hang below the name with the build, also where the attribute's own section has the older form.
    if (tree.GetElement(rows) != build || !EqualNames(tree.GetElement(tree.GetParent(rows)), GetName()))
        rows = tree.FindChild(rows, build);
    LoadRows(record, parentAttrib, parser, section, rows);
    // A record that is read again has its parent and its referencees already.
    if (record.GetParent())
        static_cast<void>(RefreshInherited());
    RefreshBelow(0);
    return true;
}

void CCorvaneTypeStruct::LoadRows(CCorvaneRecord& record, CCorvaneAttrib* parentAttrib,
                                  const CUnicodeFileParse_ReadOnly& parser, std::size_t section,
                                  std::uint32_t rows)
{
    CCorvaneAttrib::Clear();
    ZRASSERT_MSG(!GetParentRecord(), "m_pParentRecord == NULL");
    CCorvaneType::SetParentRecord(&record);
    SetParentAttrib(parentAttrib);
    if (GetAttribData())
        SetBuild(GetAttribData()->GetBuild());
    LoadMarks(parser, section);
    m_pKept.reset();
    if (GetStructFile() == nullptr)
    {
        if (rows != CSectionTree::kNone)
            m_pKept = std::make_unique<CKeptSections>(parser, rows);
        return;
    }
    SetRowCounts(m_nOwnRows, 0);
    CChildCursor cursor(parser.GetTree(), rows);
    std::size_t row = 0;
    for (Node node = cursor.Find(u"0"); node != CSectionTree::kNone;
         node = cursor.Find(FormatInteger(static_cast<std::int64_t>(row))))
    {
        if (row == m_nOwnRows)
            SetRowCounts(row + 1, 0);
        LoadRow(row, record, parser, node);
        ++row;
    }
    SetRowCounts(row, 0);
}

void CCorvaneTypeStruct::LoadRow(std::size_t row, CCorvaneRecord& record,
                                 const CUnicodeFileParse_ReadOnly& parser, std::uint32_t node)
{
    const CSectionTree& tree = parser.GetTree();
    const auto members = GetStructFile()->GetMembers();
    CChildCursor cursor(tree, node);
    std::vector<std::size_t> missing;
    for (std::size_t i = 0; i < members.size(); ++i)
    {
        CCorvaneType& member = *m_Members[row * m_nStride + i];
        const Node plain = cursor.Find(member.GetName());
        const Node withBuild = tree.FindChild(plain, members[i].m_sBuild);
        std::ptrdiff_t section = withBuild != CSectionTree::kNone ? tree.GetSection(withBuild) : -1;
        // The form without the build belongs to the oldest entry of the name.
        if (section < 0 && plain != CSectionTree::kNone && members[i].m_nOlder == SStructMember::kNone)
            section = tree.GetSection(plain);
        if (section < 0)
            missing.push_back(i);
        else if (members[i].m_pStruct)
            static_cast<CCorvaneTypeStruct&>(member).LoadRows(record, this, parser,
                                                              static_cast<std::size_t>(section), withBuild);
        else
            member.LoadFromFile(record, this, parser, static_cast<std::size_t>(section));
    }
    SortOldestFirst(missing);
    for (const std::size_t i : missing)
    {
        CCorvaneType& member = *m_Members[row * m_nStride + i];
        member.Clear();
        member.ReplaceValues(members[i].m_pDefault->GetOwnValues()); // Of a list of any length the one value.
        AdoptMember(member);
        if (members[i].m_nOlder != SStructMember::kNone)
            member.CopyValuesFrom(*m_Members[row * m_nStride + members[i].m_nOlder]);
    }
}

bool CCorvaneTypeStruct::SaveToFile(IUnicodeFileParse& writer, std::u16string_view prefix) const
{
    std::u16string section;
    GetSectionName(section, prefix);
    if (!SaveMarks(writer, section))
        return false;
    if (m_pKept)
        return m_pKept->Write(writer, section);
    const CStructRows rows = GetSavedRows();
    for (std::size_t row = 0; row < rows.size(); ++row)
    {
        const std::u16string rowSection = section + u'.' + FormatInteger(static_cast<std::int64_t>(row));
        for (const CRef<CCorvaneType>& member : rows[row])
        {
            if (!member->SaveToFile(writer, rowSection))
                return false;
        }
    }
    return true;
}
