// The rows of the attribute list: a surface that draws, scrolls, selects and edits one type view a row, and
// knows nothing of the types.
//
// The unit of scrolling is a line of 20 logical pixels. Rows are counted from 0; an index out of range is an
// assertion. The model may change at any moment: rows whose attribute has gone stay harmless until the next
// turn of the event loop, which brings the list up to date; so does every input before it is looked at.
#pragma once

#include "CorvaneTypeView.h"
#include "TypeViewList.h"

#include <QWidget>
#include <functional>
#include <vector>

class CCorvaneListViewHeader;
class CCorvaneRecord;
class QScrollBar;
class QTimer;

class CCorvaneListViewList final : public QWidget, public ITypeViewList
{
    Q_OBJECT

public:
    static constexpr int kLine = 20;
    static constexpr int kPageLines = 5;

    // What the pane around the list does.
    struct SHooks
    {
        std::function<void()> m_OnSelection;          // Another row or sub-item, or what it shows.
        std::function<void(const QPoint&)> m_OnPopup; // A menu is wanted there.
        std::function<void()> m_OnFocus;              // The list got the keyboard.
    };
    CCorvaneListViewList(IEditorFrame& frame, CCorvaneListViewHeader& header, QScrollBar& scrollBar,
                         QWidget* parent);
    ~CCorvaneListViewList() override;
    void SetHooks(SHooks hooks) { m_Hooks = std::move(hooks); }

    // The record whose attributes are shown; null for none. Ends an edit, with its value when `commit`.
    void SetRecord(CCorvaneRecord* record, bool commit);
    [[nodiscard]] CCorvaneRecord* GetRecord() const { return m_pRecord.Get(); }
    // The attributes may have changed: rows follow once, soon. Views of attributes that stay are kept.
    void InvalidateRows();
    // Values may have changed: all rows are measured once, soon.
    void InvalidateHeights();
    // Does both now, where it is due.
    void Flush();

    // Rows.
    void AddItem(CRef<CCorvaneTypeView> view);
    void InsertItem(int index, CRef<CCorvaneTypeView> view);
    void DeleteAttribute(int iIndex);
    [[nodiscard]] CCorvaneTypeView* GetAttribute(int iIndex) const;
    [[nodiscard]] int GetAttributeCount() const { return static_cast<int>(m_AttribList.size()); }
    [[nodiscard]] int FindAttribute(const CCorvaneTypeView* view) const; // -1 for none; never looks into it.
    // `index`, or -1 past the end.
    int GetItemRect(int index, QRect& rcItem) const;
    // -1 for none.
    [[nodiscard]] int HitTest(int y) const;
    void MeasureAttribute(int iIndex);
    void DrawSingleAttribute(int iIndex, QPainter* painter);
    // Scrolls as little as the list's rules want.
    void MakeRectVisible(const QRect& prcArea);
    void MakeSelectionVisible();
    void RecalcScrollBar();
    void ScrollTo(int line);
    [[nodiscard]] int GetTopLine() const { return m_nTop; }
    [[nodiscard]] int GetMaximumScroll() const { return m_nMaximumScroll; }

    // Selection; -1 for none.
    void SetSelection(int index);
    [[nodiscard]] int GetSelection() const { return m_nSelected; }
    [[nodiscard]] CCorvaneTypeView* GetSelectedRow() const;
    // The first click on a column sorts ascending, the next descending, the third gives the record's order.
    void SortByColumn(int column);
    // The row that is selected, or the member of a struct that is.
    void ExpandSelected(bool expanded);
    void SetAllExpanded(bool expanded);
    void ApplyUpdate(CCorvaneTypeView& view, EViewUpdate update);

    // Editing.
    void BeginEdit() override;
    void EndEdit(bool commit) override { EndEdit(commit, true); }
    // Without `force` an editor that is kept open stays.
    void EndEdit(bool commit, bool force);
    [[nodiscard]] bool IsEditing() const { return m_bEditing; }

    // The press that closes a menu must not reach a row.
    void SetPopupOpen(bool open) { m_bPopup = open; }

    [[nodiscard]] IEditorFrame& GetFrame() override { return m_Frame; }
    [[nodiscard]] QWidget* GetViewport() override { return this; }
    [[nodiscard]] QRect GetColumnRect(EListColumn column) const override;
    [[nodiscard]] bool IsActive() const override { return hasFocus() || m_bEditing; }
    void OnViewChanged(CCorvaneTypeView& view) override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    friend class CEditEndFilter;

    // Bits of a row.
    static constexpr unsigned kRowSelected = 0x01 | 0x10;
    struct SRow
    {
        int m_nNumber; // The order in which rows were added.
        CRef<CCorvaneTypeView> m_pView;
        int m_nHeight;
        unsigned m_dwFlags;
    };

    [[nodiscard]] CRef<CCorvaneTypeView> CreateView(CCorvaneType& attrib);
    void Schedule();
    void RebuildRows();
    void MeasureAll();
    void DropRows();
    void SortRows();
    void SelectView(const CCorvaneTypeView* view);
    void MarkRow(int index, bool selected);
    void OnSelectionChanged();
    void LeaveEdit();
    void PlaceEditor();
    [[nodiscard]] QRect GetEditCell(const CCorvaneTypeView& view, int index) const;
    // Runs a handler of the view and does what it asks.
    void Hand(const CRef<CCorvaneTypeView>& view, const std::function<EViewUpdate()>& handler);
    [[nodiscard]] bool RunKey(int key);
    void MoveSelection(bool down);
    void ScrollBy(int lines);
    void ShowToolTip(const QPoint& point, const QPoint& global);

    IEditorFrame& m_Frame;
    CCorvaneListViewHeader& m_Header;
    QScrollBar& m_ScrollBar;
    SHooks m_Hooks;
    CRef<CCorvaneRecord> m_pRecord;
    std::vector<SRow> m_AttribList;
    int m_nNextNumber = 0;
    int m_nSelected = -1;
    int m_nTop = 0;
    int m_nMaximumScroll = 0;
    int m_nWheel = 0; // Of the next notch.
    bool m_bEditing = false;
    CRef<CCorvaneTypeView> m_pEditView;
    bool m_bPopup = false;
    int m_nSortColumn = -1;
    int m_nSortPhase = 0;
    bool m_bRowsDue = false;
    bool m_bHeightsDue = false;
    QTimer* m_pUpdate;
};
