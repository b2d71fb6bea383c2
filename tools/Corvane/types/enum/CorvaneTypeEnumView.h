// Shows and edits an Enum.
#pragma once

#include "CorvaneTypeView.h"

class CCorvaneTypeEnum;

class CCorvaneTypeEnumView final : public CCorvaneTypeView
{
public:
    CCorvaneTypeEnumView(CCorvaneTypeEnum& attrib, ITypeViewList& list);

protected:
    [[nodiscard]] CCorvaneTypeValueDlg* CreateValueDialog(QWidget* parent) override;

private:
    const CCorvaneTypeEnum& m_Attrib;
};
