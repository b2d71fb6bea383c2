#include "float/CorvaneTypeFloatView.h"

#include "float/CorvaneTypeFloat.h"
#include "float/CorvaneTypeFloatValueDlg.h"

CCorvaneTypeFloatView::CCorvaneTypeFloatView(CCorvaneTypeFloat& attrib, ITypeViewList& list)
    : CCorvaneTypeView(attrib, list), m_Attrib(attrib)
{
}

CCorvaneTypeValueDlg* CCorvaneTypeFloatView::CreateValueDialog(QWidget* parent)
{
    return new CCorvaneTypeFloatValueDlg(*this, m_Attrib.GetFloatAttribData(), parent);
}
