// Shows and edits a Text.
#pragma once

#include "CorvaneTypeView.h"

class CCorvaneTypeString;

class CCorvaneTypeStringView final : public CCorvaneTypeView
{
public:
    CCorvaneTypeStringView(CCorvaneTypeString& attrib, ITypeViewList& list);

protected:
    [[nodiscard]] CCorvaneTypeValueDlg* CreateValueDialog(QWidget* parent) override;
};
