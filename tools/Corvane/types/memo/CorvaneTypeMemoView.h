// Shows and edits a Memo: its lines, wrapped to the width of the cell.
//
// Of a long text only a first part is laid out, so that neither a value of a megabyte nor hundreds of memos
// hold up the list; an ellipsis tells that there is more, and the editor holds all of it.
#pragma once

#include "CorvaneTypeView.h"

#include <vector>

class CCorvaneTypeMemo;

class CCorvaneTypeMemoView final : public CCorvaneTypeView
{
public:
    CCorvaneTypeMemoView(CCorvaneTypeMemo& attrib, ITypeViewList& list);

    [[nodiscard]] int GetExpandedHeight(int width) const override;
    [[nodiscard]] int Measure(int width) override;
    [[nodiscard]] QRect GetSubItemRect(const QRect& rect, int item) const override;
    [[nodiscard]] int HitTestItem(const QRect& rect, const QPoint& point) const override;

protected:
    [[nodiscard]] QString GetValueText(int item) const override;
    void DrawValue(QPainter& painter, const QRect& cell, int item) override;
    [[nodiscard]] CCorvaneTypeValueDlg* CreateValueDialog(QWidget* parent) override;
    [[nodiscard]] std::u16string GetEditText(int item) const override;
    [[nodiscard]] bool IsAddable(std::u16string_view text) const override;

private:
    struct SHeight
    {
        QString m_sText; // What was measured.
        int m_nWidth;
        int m_nHeight;
    };
    [[nodiscard]] int GetValueHeight(std::size_t index, int width) const;
    [[nodiscard]] QString GetShownText(std::size_t index) const;

    const CCorvaneTypeMemo& m_Attrib;
    mutable std::vector<SHeight> m_Heights; // By value; only a cache.
};
