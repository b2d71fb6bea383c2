// Shows and edits a Float.
#pragma once

#include "CorvaneTypeView.h"

class CCorvaneTypeFloat;

class CCorvaneTypeFloatView final : public CCorvaneTypeView
{
public:
    CCorvaneTypeFloatView(CCorvaneTypeFloat& attrib, ITypeViewList& list);

protected:
    [[nodiscard]] CCorvaneTypeValueDlg* CreateValueDialog(QWidget* parent) override;

private:
    const CCorvaneTypeFloat& m_Attrib;
};
