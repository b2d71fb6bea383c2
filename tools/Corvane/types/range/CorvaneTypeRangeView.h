// Shows and edits a Range.
#pragma once

#include "views/CorvaneTypeNumbersView.h"

class CCorvaneTypeRange;

class CCorvaneTypeRangeView final : public CCorvaneTypeNumbersView
{
public:
    CCorvaneTypeRangeView(CCorvaneTypeRange& attrib, ITypeViewList& list);

protected:
    [[nodiscard]] QStringList GetNumbers(int item) const override;
    [[nodiscard]] CCorvaneTypeValueDlg* CreateValueDialog(QWidget* parent) override;

private:
    const CCorvaneTypeRange& m_Attrib;
};
