#include "enum/CorvaneTypeEnumView.h"

#include "enum/CorvaneTypeEnum.h"
#include "enum/CorvaneTypeEnumValueDlg.h"

CCorvaneTypeEnumView::CCorvaneTypeEnumView(CCorvaneTypeEnum& attrib, ITypeViewList& list)
    : CCorvaneTypeView(attrib, list), m_Attrib(attrib)
{
}

CCorvaneTypeValueDlg* CCorvaneTypeEnumView::CreateValueDialog(QWidget* parent)
{
    return new CCorvaneTypeEnumValueDlg(*this, m_Attrib.GetEnumAttribData(), parent);
}
