// Shows and edits a Flags attribute; a mask's tip names the flags that are set.
#pragma once

#include "CorvaneTypeView.h"

class CCorvaneTypeFlags;

class CCorvaneTypeFlagsView final : public CCorvaneTypeView
{
public:
    CCorvaneTypeFlagsView(CCorvaneTypeFlags& attrib, ITypeViewList& list);

    [[nodiscard]] QString GetToolTip(const QRect& rect, const QPoint& point) const override;

protected:
    [[nodiscard]] CCorvaneTypeValueDlg* CreateValueDialog(QWidget* parent) override;

private:
    const CCorvaneTypeFlags& m_Attrib;
};
