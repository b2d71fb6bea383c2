#include "flags/CorvaneTypeFlagsView.h"

#include "QtText.h"
#include "flags/CorvaneTypeFlags.h"
#include "flags/CorvaneTypeFlagsValueDlg.h"

CCorvaneTypeFlagsView::CCorvaneTypeFlagsView(CCorvaneTypeFlags& attrib, ITypeViewList& list)
    : CCorvaneTypeView(attrib, list), m_Attrib(attrib)
{
}

QString CCorvaneTypeFlagsView::GetToolTip(const QRect& rect, const QPoint& point) const
{
    QString tip = CCorvaneTypeView::GetToolTip(rect, point);
    const int item = HitTestItem(rect, point);
    const CCorvaneTypeFlagsData* data = m_Attrib.GetFlagsAttribData();
    if (item < 0 || data == nullptr)
        return tip;
    const std::uint32_t mask = m_Attrib.GetFlags(static_cast<std::size_t>(item));
    for (const SFlag& flag : data->GetFlags())
    {
        if ((mask >> (flag.m_nIndex - 1) & 1U) != 0)
            tip += u'\n' + ToQString(flag.m_sName);
    }
    return tip;
}

CCorvaneTypeValueDlg* CCorvaneTypeFlagsView::CreateValueDialog(QWidget* parent)
{
    return new CCorvaneTypeFlagsValueDlg(*this, m_Attrib.GetFlagsAttribData(), parent);
}
