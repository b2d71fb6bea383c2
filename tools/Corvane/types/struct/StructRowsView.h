// The views of the members in a struct's rows: one a member and row, each with its place below the struct's
// header row. Rows and members are counted from 0; heights and tops are logical pixels.
#pragma once

#include "CorvaneTypeView.h"
#include "struct/StructRows.h"

#include <vector>

class CStructRowsView
{
public:
    struct SMember
    {
        CRef<CCorvaneType> m_pAttrib;
        CRef<CCorvaneTypeView> m_pView;
        int m_nTop = 0;
        int m_nHeight = 0;
    };
    struct SRow
    {
        std::vector<SMember> m_Members;
        int m_nTop = 0;
        int m_nHeight = 0;
    };
    struct SPlace
    {
        int m_nRow = -1;
        int m_nMember = -1; // -1 for the row itself.
    };

    // `list` is the one that the member views see; it outlives this object.
    explicit CStructRowsView(ITypeViewList& list) : m_List(list) {}
    ~CStructRowsView() { Clear(); }
    CStructRowsView(const CStructRowsView&) = delete;
    CStructRowsView& operator=(const CStructRowsView&) = delete;

    // Brings the views in line with the rows in force: members that stay keep their view, new ones get one,
    // and the views of those that are gone are detached. False when nothing had changed.
    bool Update(const CStructRows& rows);
    void Clear();
    // Measures all members for a width and places them one below the other, from `top` on.
    void Layout(int top, int width);

    [[nodiscard]] const std::vector<SRow>& GetRows() const { return m_Rows; }
    [[nodiscard]] int GetRowCount() const { return static_cast<int>(m_Rows.size()); }
    [[nodiscard]] const SRow& GetRow(int row) const { return m_Rows[static_cast<std::size_t>(row)]; }
    // Null for a place that is no member's.
    [[nodiscard]] const SMember* GetMember(const SPlace& place) const;
    // The first y below the last row.
    [[nodiscard]] int GetBottom() const { return m_nBottom; }
    // Without a row when it is not there.
    [[nodiscard]] SPlace Find(const CCorvaneTypeView* view) const;
    // The row at a y, or the nearest to it; -1 without rows.
    [[nodiscard]] int FindRow(int y) const;

private:
    [[nodiscard]] bool IsInLine(const CStructRows& rows) const;
    [[nodiscard]] SMember MakeMember(CCorvaneType& attrib);

    ITypeViewList& m_List;
    std::vector<SRow> m_Rows;
    int m_nBottom = 0;
};
