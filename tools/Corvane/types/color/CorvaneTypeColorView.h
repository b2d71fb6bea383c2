// Shows a Color as a swatch and its four numbers, and edits it in the colour picker.
#pragma once

#include "CorvaneTypeView.h"

class CCorvaneTypeColor;

class CCorvaneTypeColorView final : public CCorvaneTypeView
{
public:
    CCorvaneTypeColorView(CCorvaneTypeColor& attrib, ITypeViewList& list);

    // Runs the picker; the edit is over when this returns.
    [[nodiscard]] EViewUpdate BeginEdit(const QRect& cell, int item = kHeaderItem) override;

protected:
    void DrawValue(QPainter& painter, const QRect& cell, int item) override;

private:
    const CCorvaneTypeColor& m_Attrib;
};
