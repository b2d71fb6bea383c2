// Shows and edits a StringID.
#pragma once

#include "CorvaneTypeView.h"
#include "stringid/CorvaneTypeStringID.h"

class CCorvaneTypeStringIDView final : public CCorvaneTypeView
{
public:
    CCorvaneTypeStringIDView(CCorvaneTypeStringID& attrib, ITypeViewList& list)
        : CCorvaneTypeView(attrib, list)
    {
    }

protected:
    [[nodiscard]] CCorvaneTypeValueDlg* CreateValueDialog(QWidget* parent) override;
};
