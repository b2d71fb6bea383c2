#include "time/CorvaneTypeTimeView.h"

#include "QtText.h"
#include "time/CorvaneTypeTime.h"
#include "time/CorvaneTypeTimeValueDlg.h"
#include "time/TimeText.h"

#include <algorithm>

CCorvaneTypeTimeView::CCorvaneTypeTimeView(CCorvaneTypeTime& attrib, ITypeViewList& list)
    : CCorvaneTypeView(attrib, list), m_Attrib(attrib)
{
}

QString CCorvaneTypeTimeView::GetValueText(int item) const
{
    const std::int32_t time = m_Attrib.GetTime(static_cast<std::size_t>(item));
    return ToQString(FormatTimeShort(time) + u"  " + FormatTimeLong(time));
}

void CCorvaneTypeTimeView::DrawValue(QPainter& painter, const QRect& cell, int item)
{
    const std::int32_t time = m_Attrib.GetTime(static_cast<std::size_t>(item));
    QRect part = cell;
    part.setWidth(std::min(cell.width(), kTimeLongOffset));
    DrawCellText(painter, part, ToQString(FormatTimeShort(time)));
    DrawCellText(painter, cell.adjusted(kTimeLongOffset, 0, 0, 0), ToQString(FormatTimeLong(time)));
}

CCorvaneTypeValueDlg* CCorvaneTypeTimeView::CreateValueDialog(QWidget* parent)
{
    return new CCorvaneTypeTimeValueDlg(*this, m_Attrib.GetTimeAttribData(), parent);
}
