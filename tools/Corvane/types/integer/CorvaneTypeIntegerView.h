// Shows and edits an Integer.
#pragma once

#include "CorvaneTypeView.h"

class CCorvaneTypeInteger;

class CCorvaneTypeIntegerView final : public CCorvaneTypeView
{
public:
    CCorvaneTypeIntegerView(CCorvaneTypeInteger& attrib, ITypeViewList& list);

protected:
    [[nodiscard]] CCorvaneTypeValueDlg* CreateValueDialog(QWidget* parent) override;

private:
    const CCorvaneTypeInteger& m_Attrib;
};
