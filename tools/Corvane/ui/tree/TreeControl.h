// The tree as a control: keys, tips, drag and drop with autoscroll. What a drag may do is its owner's matter.
#pragma once

#include "TreeItem.h"

#include <QPersistentModelIndex>
#include <QPixmap>
#include <QTreeView>
#include <functional>

class CCorvaneTreeModel;
class CTreeItemDelegate;
class QTimer;

class CTreeControl final : public QTreeView
{
public:
    // `model` is not owned.
    CTreeControl(CCorvaneTreeModel& model, QWidget* parent);
    ~CTreeControl() override;

    struct SHooks
    {
        std::function<void()> m_Tab;
        std::function<void()> m_Enter;
        std::function<void()> m_Escape;
        std::function<void()> m_Focus;
        // A click on a row is done, and was no drag.
        std::function<void()> m_Clicked;
        std::function<void(const QWidget* editor)> m_EditClosed;
        std::function<bool(const CTreeItem& source)> m_MayDrag;
        std::function<bool(const CTreeItem& source, const CTreeItem& target)> m_IsDropValid;
        std::function<void(const CTreeItem& source, const CTreeItem& target)> m_Drop;
        std::function<void()> m_BadDrop;
        // The tip of a row's part; empty for none.
        std::function<QString(const QModelIndex& index, const QPoint& position)> m_GetTip;
    };
    SHooks m_Hooks;

    [[nodiscard]] CTreeItemDelegate& GetDelegate() const { return m_Delegate; }
    [[nodiscard]] bool IsPressed() const { return m_bPressed; }
    [[nodiscard]] bool IsDragging() const { return !m_Dragged.IsNone(); }
    // The row under the mouse while something is dragged.
    [[nodiscard]] QModelIndex GetDropTarget() const { return m_DropTarget; }
    void CancelDrag();
    // Underlines the row under the mouse.
    void SetTrackSelect(bool on);

    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void focusInEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    // Drag and drop (TreeControl_Drag).
    void BeginDrag();
    void DragTo(const QPoint& position);
    void Drop(const QPoint& position);
    void AutoScroll();
    void PaintDrag();
    [[nodiscard]] QPixmap PaintDragImage(const QModelIndex& index) const;

    void ShowTip();

    CCorvaneTreeModel& m_Model;
    CTreeItemDelegate& m_Delegate;
    QTimer* m_pScroll;
    QTimer* m_pTip;
    QPersistentModelIndex m_TipIndex;
    QPoint m_TipPosition;
    bool m_bPressed = false;
    QPoint m_PressPosition;
    CTreeItem m_PressedItem;
    CTreeItem m_Dragged; // None while nothing is.
    QPixmap m_DragImage;
    QPoint m_DragPosition;
    QPersistentModelIndex m_DropTarget;
    bool m_bTrackSelect = false;
};
