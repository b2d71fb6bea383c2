// Shows and edits a Time: the milliseconds, and beside them the time as people read it.
#pragma once

#include "CorvaneTypeView.h"

class CCorvaneTypeTime;

class CCorvaneTypeTimeView final : public CCorvaneTypeView
{
public:
    CCorvaneTypeTimeView(CCorvaneTypeTime& attrib, ITypeViewList& list);

protected:
    [[nodiscard]] QString GetValueText(int item) const override;
    void DrawValue(QPainter& painter, const QRect& cell, int item) override;
    [[nodiscard]] CCorvaneTypeValueDlg* CreateValueDialog(QWidget* parent) override;

private:
    const CCorvaneTypeTime& m_Attrib;
};
