// The view through which a list shows one attribute: a header row with the attribute's marks and, expanded,
// one row a value. It measures, draws, hit-tests, selects and edits; a type's view derives from it and
// overrides what its values need, mostly CreateValueDialog alone.
//
// A view never knows its place: every operation is given its rectangle (logical pixels of the list's
// surface), so that a struct's view can hold child views anywhere inside its own. Items are value indices
// from 0, kHeaderItem for the header row and kAddItem for the row that adds a value.
//
// Views are counted. The list holds one reference and the attribute another one until Detach.
#pragma once

#include "CorvaneType.h"
#include "TypeViewList.h"

#include <QPoint>
#include <QPointer>
#include <QString>
#include <string>

class CCorvaneTypeValueDlg;
class QKeyEvent;
class QPainter;

// What a handler asks of the list.
enum class EViewUpdate : int
{
    None = 0,
    Measure = 1,          // Measure the row again.
    Consumed = 2,         // Nothing further.
    EditEnded = 3,        // The edit that was to begin is over already.
    MeasureEditEnded = 4, // The same, and the row changed its height.
    Repaint = 5,
};

inline constexpr int kHeaderItem = -1;
inline constexpr int kAddItem = -2;

inline constexpr int kListRowHeight = 20;
inline constexpr int kListIndent = 18;     // Of value rows from the left edge of their view.
inline constexpr int kListIndexWidth = 22; // Of the index cell, unless there are more than three digits.
inline constexpr int kListIconSize = 16;
inline constexpr int kListTextMargin = 4;

class CCorvaneTypeView : public ICorvaneTypeView
{
public:
    // Neither is null while the view is attached. `list` outlives the attachment.
    CCorvaneTypeView(CCorvaneType& attrib, ITypeViewList& list);
    ~CCorvaneTypeView() override;

    // Closes an open editor without its value and leaves the attribute's list of views.
    virtual void Detach();

    [[nodiscard]] const void* GetOwner() const override { return m_pList; }
    void OnNotify(int message, CCorvaneAttrib& attrib) override;

    [[nodiscard]] CCorvaneType& GetParentType() const { return *m_pParentType; }
    [[nodiscard]] std::u16string_view GetTypeName() const { return m_pParentType->GetTypeName(); }
    [[nodiscard]] ITypeViewList& GetList() const { return *m_pList; }
    // The view that commands work on: this one, or the child of a struct that holds the selection.
    [[nodiscard]] virtual CCorvaneTypeView& GetSelectedView() { return *this; }
    [[nodiscard]] CCorvaneType& GetSelectedAttribute() { return GetSelectedView().GetParentType(); }

    [[nodiscard]] virtual bool CanExpand() const { return true; }
    [[nodiscard]] bool IsExpanded() const { return m_bExpanded; }
    // Collapsing brings the selection back to the header. The list measures afterwards.
    virtual void SetExpanded(bool expanded);
    // Of everything below too, for "Expand All".
    virtual void SetAllExpanded(bool expanded) { SetExpanded(expanded); }

    // Selection. The list selects the row, a struct its child; an unselected view has no active sub-item.
    virtual void SetSelected(bool selected);
    [[nodiscard]] bool IsSelected() const { return m_bSelected; }
    [[nodiscard]] int GetActiveSubItem() const { return m_nSelectedItem; }
    virtual void SetActiveSubItem(int item);
    // Shows and selects an item of `attrib`: the view's own attribute, or a member in its values. An item
    // that is not there selects the attribute. False for any other attribute.
    virtual bool SelectAttribute(const CCorvaneAttrib& attrib, int item);
    virtual void ClearActiveSubItem() { SetActiveSubItem(kHeaderItem); }
    // One item down or up; false when it did not move. SelectPrevious of a header goes to the last item.
    virtual bool SelectNext();
    virtual bool SelectPrevious();

    // Geometry. `width` is that of the view's rectangle.
    [[nodiscard]] virtual int GetCollapsedHeight() const { return kListRowHeight; }
    [[nodiscard]] virtual int GetExpandedHeight(int width) const;
    // The height in the present state; a view that caches heights by width drops them here.
    [[nodiscard]] virtual int Measure(int width);
    // Values and the add row.
    [[nodiscard]] int GetItemCount() const;
    [[nodiscard]] bool IsVariableSize() const;
    // The whole row of an item, index cell included; empty for the header and for an unknown item.
    [[nodiscard]] virtual QRect GetSubItemRect(const QRect& rect, int item) const;
    // The item at a point of the view's rectangle.
    [[nodiscard]] virtual int HitTestItem(const QRect& rect, const QPoint& point) const;
    // A cell of the header row.
    [[nodiscard]] QRect GetCellRect(const QRect& rect, EListColumn column) const;
    // The column of the header row at `x`; COLUMN_COUNT for none.
    [[nodiscard]] EListColumn HitTestColumn(const QRect& rect, int x) const;
    // From an item's row to its value cell.
    void AdjustValueRect(QRect& itemRect) const;
    // The row of the active sub-item, for making it visible; and the cell that an editor lies over.
    [[nodiscard]] virtual QRect GetActiveRect(const QRect& rect) const;
    [[nodiscard]] virtual QRect GetEditRect(const QRect& rect) const;

    // Drawing. `clip` is what needs to be drawn.
    virtual void Draw(QPainter& painter, const QRect& rect, const QRect& clip);

    // Input. Points lie in the view's rectangle.
    [[nodiscard]] virtual EViewUpdate OnKeyDown(QKeyEvent& event);
    [[nodiscard]] virtual EViewUpdate OnLButtonDown(const QRect& rect, const QPoint& point,
                                                    Qt::KeyboardModifiers modifiers);
    // Selects what is under the pointer, for the menu that follows.
    [[nodiscard]] virtual EViewUpdate OnRButtonDown(const QRect& rect, const QPoint& point);
    [[nodiscard]] virtual EViewUpdate OnLButtonDblClk(const QRect& rect, const QPoint& point);
    // Plain text for the pointer resting at a point; empty for none.
    [[nodiscard]] virtual QString GetToolTip(const QRect& rect, const QPoint& point) const;
    // What a screen reader says of the active sub-item, or of the whole attribute on its header.
    [[nodiscard]] virtual QString GetDescription() const;

    // Editing. The list calls these; whoever wants to edit asks the list.
    [[nodiscard]] virtual bool CanEdit() const;
    // Opens the editor of `item` (kHeaderItem: the active sub-item) over `cell`. EditEnded when there is
    // none.
    [[nodiscard]] virtual EViewUpdate BeginEdit(const QRect& cell, int item = kHeaderItem);
    // Closes the editor and applies its value.
    [[nodiscard]] virtual EViewUpdate EndEdit();
    // Closes the editor without its value.
    virtual void CancelEdit();
    virtual void MoveValueDialog(const QRect& cell);
    // Null while nothing is edited.
    [[nodiscard]] virtual CCorvaneTypeValueDlg* GetValueDialog() const;

    // Commands on the active value; each in an undo group of its own. False changed nothing.
    [[nodiscard]] virtual bool CanChangeValue() const;
    [[nodiscard]] virtual bool CanMoveValue(bool up) const;
    virtual bool DeleteValue();
    virtual bool MoveValue(bool up);

protected:
    // The text of a value as it is drawn, read out and shown in tips; all of it, however long.
    [[nodiscard]] virtual QString GetValueText(int item) const;
    // Draws a value that is set; pen and font are ready. Text by DrawCellText.
    virtual void DrawValue(QPainter& painter, const QRect& cell, int item);
    // The editor of a value, a child of `parent`. Null leaves the view unselected.
    [[nodiscard]] virtual CCorvaneTypeValueDlg* CreateValueDialog(QWidget* parent);
    // The text that an editor begins with: the value, or the default's first one where none is set.
    [[nodiscard]] virtual std::u16string GetEditText(int item) const;
    // Whether an accepted text may become a new value.
    [[nodiscard]] virtual bool IsAddable(std::u16string_view text) const;
    // Puts the text of an editor into the attribute; in the undo group of the edit.
    [[nodiscard]] virtual bool ApplyAdd(std::u16string_view text);
    [[nodiscard]] virtual bool ApplySet(std::size_t index, std::u16string_view text);
    // Gives a text to the edited item, in an undo group of its own. `chosen` counts also where the text is
    // what it was. For a view whose editor is a window of its own, from BeginEdit.
    [[nodiscard]] EViewUpdate ApplyText(std::u16string_view text, bool chosen);
    // Sets what GetEditedItem answers: `item`, or the active sub-item for kHeaderItem.
    void SetEditedItem(int item);
    // False once the list has dropped the view, which then must not use it any more; to be asked after
    // anything that lets events pass.
    [[nodiscard]] bool IsAttached() const { return m_bAttached; }
    // Remove and move a value; in the undo group of the command. The base serves values that are texts.
    [[nodiscard]] virtual bool ApplyRemove(std::size_t index);
    [[nodiscard]] virtual bool ApplyMove(std::size_t index, bool up);
    [[nodiscard]] std::size_t GetValueCount() const { return m_pParentType->GetValueCount(); }

    virtual void DrawHeader(QPainter& painter, const QRect& rect);
    virtual void DrawItem_Expanded(QPainter& painter, const QRect& rect, const QRect& clip);
    virtual void DrawSubItem(QPainter& painter, const QRect& itemRect, int item);
    void DrawItemBackground(QPainter& painter, const QRect& itemRect, int item) const;
    void DrawItemIndex(QPainter& painter, const QRect& itemRect, int item) const;
    // The rule under the attribute; none between the builds of one attribute.
    void DrawFooter(QPainter& painter, const QRect& rect) const;
    // Pen and font of a value; EndDrawValue restores what was.
    void BeginDrawValue(QPainter& painter, int item) const;
    void EndDrawValue(QPainter& painter) const;
    // One line, centred vertically, with an ellipsis where it is cut. Long texts are cut before they are laid
    // out.
    static void DrawCellText(QPainter& painter, const QRect& cell, const QString& text);

    // Where the pointer was pressed last, for an editor with several fields.
    [[nodiscard]] QPoint GetClickPoint() const { return m_ClickPoint; }
    void SetClickPoint(const QPoint& point) { m_ClickPoint = point; }
    [[nodiscard]] int GetEditedItem() const { return m_nEditedItem; }
    // What the undo menu says of an edit; `action` is one of the words of UndoText.h.
    [[nodiscard]] std::u16string GetUndoText(std::u16string_view action, std::u16string_view value) const;
    // Runs `change` in an undo group; tells the other views and the lists of referencees when it is true.
    bool RunEdit(std::u16string_view action, std::u16string_view value, const std::function<bool()>& change);
    // A click into a column of the header row that switches a mark.
    [[nodiscard]] EViewUpdate OnMarkClick(EListColumn column, Qt::KeyboardModifiers modifiers);

private:
    [[nodiscard]] EViewUpdate OnHeaderClick(const QRect& rect, const QPoint& point,
                                            Qt::KeyboardModifiers modifiers);
    void DrawBuildCell(QPainter& painter, const QRect& cell) const;
    void DrawMarks(QPainter& painter, const QRect& rect) const;
    [[nodiscard]] QString GetHeaderToolTip(EListColumn column) const;

    CRef<CCorvaneType> m_pParentType;
    ITypeViewList* m_pList;
    bool m_bExpanded = false;
    bool m_bSelected = false;
    bool m_bAttached = true;
    int m_nSelectedItem = kHeaderItem;
    int m_nEditedItem = kHeaderItem;
    QPoint m_ClickPoint;
    QPointer<CCorvaneTypeValueDlg> m_pValueDlg;
};
