#include "text/CorvaneTypeStringView.h"

#include "text/CorvaneTypeString.h"
#include "text/CorvaneTypeStringValueDlg.h"

CCorvaneTypeStringView::CCorvaneTypeStringView(CCorvaneTypeString& attrib, ITypeViewList& list)
    : CCorvaneTypeView(attrib, list)
{
}

CCorvaneTypeValueDlg* CCorvaneTypeStringView::CreateValueDialog(QWidget* parent)
{
    return new CCorvaneTypeStringValueDlg(*this, parent);
}
