// Drag and drop inside the tree. The mouse is followed by hand: nothing leaves the tree, and the cursor tells
// at every row whether a drop would do.
#include "TreeControl.h"

#include "CorvaneTreeModel.h"
#include "Theme.h"
#include "TreeItemDelegate.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QTimer>

void CTreeControl::mousePressEvent(QMouseEvent* event)
{
    if (IsDragging())
    {
        CancelDrag(); // The other button.
        return;
    }
    m_bPressed = event->button() == Qt::LeftButton;
    m_PressPosition = event->position().toPoint();
    const QModelIndex index = indexAt(m_PressPosition);
    const bool onRow = m_bPressed && visualRect(index).contains(m_PressPosition);
    m_PressedItem = onRow ? m_Model.GetItem(index) : CTreeItem();
    QTreeView::mousePressEvent(event);
}

void CTreeControl::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint position = event->position().toPoint();
    if (IsDragging())
        DragTo(position);
    else if ((event->buttons() & Qt::LeftButton) == 0)
        QTreeView::mouseMoveEvent(event);
    else if (!m_PressedItem.IsNone() &&
             (position - m_PressPosition).manhattanLength() >= QApplication::startDragDistance())
    {
        BeginDrag();
        DragTo(position);
    }
}

void CTreeControl::mouseReleaseEvent(QMouseEvent* event)
{
    m_bPressed = false;
    m_PressedItem = {};
    if (IsDragging())
    {
        Drop(event->position().toPoint());
        return;
    }
    QTreeView::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && m_Hooks.m_Clicked)
        m_Hooks.m_Clicked();
}

void CTreeControl::BeginDrag()
{
    const CTreeItem item = std::exchange(m_PressedItem, {});
    const QModelIndex index = m_Model.FindIndex(item);
    if (!index.isValid() || !m_Hooks.m_MayDrag || !m_Hooks.m_MayDrag(item))
        return;
    m_DragImage = PaintDragImage(index);
    m_Dragged = item;
    m_Delegate.m_bTrackSelect = false;
    m_pScroll->start();
}

// Icon and name alone, whatever the row in the tree looks like.
QPixmap CTreeControl::PaintDragImage(const QModelIndex& index) const
{
    constexpr int kMaxWidth = 240;
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.state = QStyle::State_Enabled;
    const QSize size = m_Delegate.sizeHint(option, index).boundedTo({kMaxWidth, visualRect(index).height()});
    option.rect = {QPoint(), size};
    QPixmap image(size * devicePixelRatioF());
    image.setDevicePixelRatio(devicePixelRatioF());
    image.fill(Qt::transparent);
    QPainter painter(&image);
    m_Delegate.paint(&painter, option, index);
    return image;
}

void CTreeControl::DragTo(const QPoint& position)
{
    if (!IsDragging())
        return;
    if (!m_Dragged.IsInTree())
    {
        CancelDrag();
        return;
    }
    m_DragPosition = position;
    const QModelIndex target = viewport()->rect().contains(position) ? indexAt(position) : QModelIndex();
    m_DropTarget = target;
    const bool valid = m_Hooks.m_IsDropValid && m_Hooks.m_IsDropValid(m_Dragged, m_Model.GetItem(target));
    viewport()->setCursor(valid ? Qt::ArrowCursor : Qt::ForbiddenCursor);
    viewport()->update();
}

void CTreeControl::Drop(const QPoint& position)
{
    DragTo(position);
    const CTreeItem source = m_Dragged;
    const CTreeItem target = m_Model.GetItem(m_DropTarget);
    CancelDrag();
    if (source.IsNone())
        return; // It has gone meanwhile.
    if (m_Hooks.m_IsDropValid && m_Hooks.m_IsDropValid(source, target))
        m_Hooks.m_Drop(source, target);
    else if (m_Hooks.m_BadDrop)
        m_Hooks.m_BadDrop();
}

void CTreeControl::CancelDrag()
{
    if (!IsDragging())
        return;
    m_Dragged = {};
    m_DropTarget = QModelIndex();
    m_DragImage = {};
    m_pScroll->stop();
    viewport()->unsetCursor();
    SetTrackSelect(m_bTrackSelect);
}

void CTreeControl::AutoScroll()
{
    const int edge = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    const QRect inner = viewport()->rect().adjusted(edge, edge, -edge, -edge);
    QScrollBar* vertical = verticalScrollBar();
    QScrollBar* horizontal = horizontalScrollBar();
    if (m_DragPosition.y() < inner.top())
        vertical->setValue(vertical->value() - vertical->singleStep());
    else if (m_DragPosition.y() > inner.bottom())
        vertical->setValue(vertical->value() + vertical->singleStep());
    if (m_DragPosition.x() < inner.left())
        horizontal->setValue(horizontal->value() - horizontal->singleStep());
    else if (m_DragPosition.x() > inner.right())
        horizontal->setValue(horizontal->value() + horizontal->singleStep());
    DragTo(m_DragPosition);
}

void CTreeControl::paintEvent(QPaintEvent* event)
{
    QTreeView::paintEvent(event);
    if (IsDragging())
        PaintDrag();
}

void CTreeControl::PaintDrag()
{
    QPainter painter(viewport());
    if (m_DropTarget.isValid())
    {
        painter.setPen(CTheme::Get().GetColor(EThemeColor::Accent));
        painter.drawRect(visualRect(m_DropTarget).adjusted(0, 0, -1, -1));
    }
    painter.setOpacity(0.7);
    painter.drawPixmap(m_DragPosition + QPoint(CTheme::kGrid, CTheme::kGrid), m_DragImage);
}
