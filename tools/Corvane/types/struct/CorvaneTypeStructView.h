// Shows a Struct: below its header row the views of its members, row by row, each row behind its number. The
// members draw, measure and edit inside the struct's rectangle as they do in the list itself, structs among
// them too.
//
// The items of the view are the rows. With a row selected, one of its members may hold the selection;
// commands then go to that one. Walking down goes from the header into the members; the numbers of the rows
// are stops on the way only where rows can be added, removed and moved. The Insert key makes a row ahead of
// the selected one.
//
// The views follow the rows in force when the struct is measured. A member that stays, wherever it stands by
// then, keeps its view and the selection.
#pragma once

#include "CorvaneTypeView.h"
#include "struct/StructRowsView.h"

class CCorvaneTypeStruct;

class CCorvaneTypeStructView final : public CCorvaneTypeView
{
public:
    CCorvaneTypeStructView(CCorvaneTypeStruct& attrib, ITypeViewList& list);
    ~CCorvaneTypeStructView() override;
    void Detach() override;

    // Makes the views of the members; the first time that somebody looks at them.
    void CreateViews();
    // Brings them in line with the rows in force.
    void UpdateView();
    [[nodiscard]] CCorvaneTypeView& GetSelectedView() override;
    bool SelectAttribute(const CCorvaneAttrib& attrib, int item) override;

    void SetExpanded(bool expanded) override;
    void SetAllExpanded(bool expanded) override;
    void SetActiveSubItem(int item) override;
    bool SelectNext() override;
    bool SelectPrevious() override;

    [[nodiscard]] int GetExpandedHeight(int width) const override;
    [[nodiscard]] int Measure(int width) override;
    [[nodiscard]] QRect GetSubItemRect(const QRect& rect, int item) const override;
    [[nodiscard]] int HitTestItem(const QRect& rect, const QPoint& point) const override;
    [[nodiscard]] QRect GetActiveRect(const QRect& rect) const override;
    [[nodiscard]] QRect GetEditRect(const QRect& rect) const override;

    [[nodiscard]] EViewUpdate OnKeyDown(QKeyEvent& event) override;
    [[nodiscard]] EViewUpdate OnLButtonDown(const QRect& rect, const QPoint& point,
                                            Qt::KeyboardModifiers modifiers) override;
    [[nodiscard]] EViewUpdate OnRButtonDown(const QRect& rect, const QPoint& point) override;
    [[nodiscard]] EViewUpdate OnLButtonDblClk(const QRect& rect, const QPoint& point) override;
    [[nodiscard]] QString GetToolTip(const QRect& rect, const QPoint& point) const override;
    [[nodiscard]] QString GetDescription() const override;

    [[nodiscard]] bool CanEdit() const override;
    // The add row has no editor: it adds a row at once.
    [[nodiscard]] EViewUpdate BeginEdit(const QRect& cell, int item = kHeaderItem) override;
    [[nodiscard]] EViewUpdate EndEdit() override;
    void CancelEdit() override;
    void MoveValueDialog(const QRect& cell) override;
    [[nodiscard]] CCorvaneTypeValueDlg* GetValueDialog() const override;

protected:
    [[nodiscard]] bool ApplyRemove(std::size_t index) override;
    [[nodiscard]] bool ApplyMove(std::size_t index, bool up) override;
    void DrawItem_Expanded(QPainter& painter, const QRect& rect, const QRect& clip) override;

private:
    using SMember = CStructRowsView::SMember;
    using SPlace = CStructRowsView::SPlace;

    // The list that the members' views lie in: this struct's, with the struct between them.
    class CMemberList final : public ITypeViewList
    {
    public:
        explicit CMemberList(CCorvaneTypeStructView& view) : m_View(view) {}
        [[nodiscard]] IEditorFrame& GetFrame() override { return m_View.GetList().GetFrame(); }
        [[nodiscard]] QWidget* GetViewport() override { return m_View.GetList().GetViewport(); }
        [[nodiscard]] QRect GetColumnRect(EListColumn column) const override
        {
            return m_View.GetList().GetColumnRect(column);
        }
        [[nodiscard]] bool IsActive() const override { return m_View.GetList().IsActive(); }
        void OnViewChanged(CCorvaneTypeView&) override { m_View.GetList().OnViewChanged(m_View); }
        void BeginEdit() override { m_View.GetList().BeginEdit(); }
        void EndEdit(bool commit) override { m_View.GetList().EndEdit(commit); }

    private:
        CCorvaneTypeStructView& m_View;
    };

    // Gives the selection to a member of a row, or with the member -1 to the row.
    void SelectPlace(const SPlace& place);
    void SetMember(CRef<CCorvaneTypeView> member);
    // The first stop from a place on, and the last one up to it, from below.
    bool SelectFrom(SPlace place);
    bool SelectBackFrom(SPlace place);
    void KeepSelection(int row);
    [[nodiscard]] int GetIndexWidth() const;
    [[nodiscard]] QRect GetMemberRect(const QRect& rect, const SMember& member) const;
    // Of the member that holds the selection.
    [[nodiscard]] QRect GetMemberRect(const QRect& rect) const;
    [[nodiscard]] SPlace FindMember(const QRect& rect, const QPoint& point) const;
    // Selects the member under the pointer and hands the event to it.
    template <class Handle>
    [[nodiscard]] bool Forward(const QRect& rect, const QPoint& point, EViewUpdate& update, Handle handle);
    void DrawRowNumber(QPainter& painter, const QRect& rowRect, int row) const;

    CCorvaneTypeStruct& m_Attrib;
    CMemberList m_MemberList{*this};
    CStructRowsView m_Rows{m_MemberList};
    bool m_bCreated = false;
    CRef<CCorvaneTypeView> m_pMember; // Holds the selection.
    CRef<CCorvaneTypeView> m_pEdited;
};
