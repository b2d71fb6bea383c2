// Shows and edits a Boolean: "True" or "False", whatever stands in the record.
#pragma once

#include "CorvaneTypeView.h"

class CCorvaneTypeBoolean;

class CCorvaneTypeBooleanView final : public CCorvaneTypeView
{
public:
    CCorvaneTypeBooleanView(CCorvaneTypeBoolean& attrib, ITypeViewList& list);

protected:
    [[nodiscard]] QString GetValueText(int item) const override;
    [[nodiscard]] CCorvaneTypeValueDlg* CreateValueDialog(QWidget* parent) override;

private:
    const CCorvaneTypeBoolean& m_Attrib;
};
