#include "views/CorvaneTypeNumbersView.h"

QRect GetNumberRect(const QRect& cell, int index, int count)
{
    const int left = cell.left() + cell.width() * index / count;
    const int right = cell.left() + cell.width() * (index + 1) / count;
    return {left, cell.top(), right - left, cell.height()};
}

void CCorvaneTypeNumbersView::DrawValue(QPainter& painter, const QRect& cell, int item)
{
    const QStringList numbers = GetNumbers(item);
    const int count = static_cast<int>(numbers.size());
    for (int i = 0; i < count; ++i)
        DrawCellText(painter, GetNumberRect(cell, i, count), numbers[i]);
}
