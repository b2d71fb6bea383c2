#include "boolean/CorvaneTypeBooleanView.h"

#include "NumberText.h"
#include "QtText.h"
#include "boolean/CorvaneTypeBoolean.h"
#include "boolean/CorvaneTypeBooleanValueDlg.h"

CCorvaneTypeBooleanView::CCorvaneTypeBooleanView(CCorvaneTypeBoolean& attrib, ITypeViewList& list)
    : CCorvaneTypeView(attrib, list), m_Attrib(attrib)
{
}

QString CCorvaneTypeBooleanView::GetValueText(int item) const
{
    return ToQString(FormatBoolean(m_Attrib.GetBoolean(static_cast<std::size_t>(item))));
}

CCorvaneTypeValueDlg* CCorvaneTypeBooleanView::CreateValueDialog(QWidget* parent)
{
    return new CCorvaneTypeBooleanValueDlg(*this, parent);
}
