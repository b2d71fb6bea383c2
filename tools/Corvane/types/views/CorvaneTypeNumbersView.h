// The view of a type whose values are a few numbers: they stand in equal columns, where the editor has its
// fields.
#pragma once

#include "CorvaneTypeView.h"

#include <QStringList>

class CCorvaneTypeNumbersView : public CCorvaneTypeView
{
protected:
    using CCorvaneTypeView::CCorvaneTypeView;

    [[nodiscard]] virtual QStringList GetNumbers(int item) const = 0;
    void DrawValue(QPainter& painter, const QRect& cell, int item) override;
};

// The place of a number in a value's cell.
[[nodiscard]] QRect GetNumberRect(const QRect& cell, int index, int count);
