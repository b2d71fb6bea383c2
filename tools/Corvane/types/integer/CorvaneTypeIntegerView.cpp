#include "integer/CorvaneTypeIntegerView.h"

#include "integer/CorvaneTypeInteger.h"
#include "integer/CorvaneTypeIntegerValueDlg.h"

CCorvaneTypeIntegerView::CCorvaneTypeIntegerView(CCorvaneTypeInteger& attrib, ITypeViewList& list)
    : CCorvaneTypeView(attrib, list), m_Attrib(attrib)
{
}

CCorvaneTypeValueDlg* CCorvaneTypeIntegerView::CreateValueDialog(QWidget* parent)
{
    return new CCorvaneTypeIntegerValueDlg(*this, m_Attrib.GetIntegerAttribData(), parent);
}
