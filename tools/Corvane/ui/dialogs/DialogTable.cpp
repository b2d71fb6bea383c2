#include "DialogTable.h"

#include "Theme.h"

#include <QHeaderView>
#include <QKeyEvent>

CDialogTable::CDialogTable(QAbstractItemModel& model, std::span<const int> widths)
{
    setModel(&model);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(CTheme::kRowHeight);
    QHeaderView* header = horizontalHeader();
    header->setHighlightSections(false);
    header->setMinimumSectionSize(CTheme::kRowHeight);
    header->setStretchLastSection(true);
    int column = 0;
    for (const int width : widths)
        header->resizeSection(column++, width);
}

void CDialogTable::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space && ToggleTick())
        return;
    QTableView::keyPressEvent(event);
    // The view activates the row and hands the key on all the same.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        event->accept();
}

bool CDialogTable::ToggleTick()
{
    const QModelIndex box = currentIndex().siblingAtColumn(0);
    if ((box.flags() & Qt::ItemIsUserCheckable) == 0)
        return false;
    const bool ticked = box.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    return model()->setData(box, ticked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}
