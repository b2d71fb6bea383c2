#include "range/CorvaneTypeRangeView.h"

#include "NumberText.h"
#include "QtText.h"
#include "range/CorvaneTypeRange.h"
#include "range/CorvaneTypeRangeValueDlg.h"

#include <cmath>

CCorvaneTypeRangeView::CCorvaneTypeRangeView(CCorvaneTypeRange& attrib, ITypeViewList& list)
    : CCorvaneTypeNumbersView(attrib, list), m_Attrib(attrib)
{
}

QStringList CCorvaneTypeRangeView::GetNumbers(int item) const
{
    const SRange range = m_Attrib.GetRange(static_cast<std::size_t>(item));
    const CCorvaneTypeRangeData* data = m_Attrib.GetRangeAttribData();
    const bool wholeOnly = data != nullptr && data->IsIntegerOnly();
    // A fraction that was stored all the same counts in the game, and so it shows.
    const auto format = [wholeOnly](float number)
    {
        const bool isWhole = wholeOnly && std::trunc(number) == number;
        QString text = ToQString(FormatFloat(static_cast<double>(number)));
        return isWhole ? text.section(u'.', 0, 0) : text;
    };
    return {format(range.m_fMinimum), format(range.m_fMaximum)};
}

CCorvaneTypeValueDlg* CCorvaneTypeRangeView::CreateValueDialog(QWidget* parent)
{
    return new CCorvaneTypeRangeValueDlg(*this, m_Attrib.GetRangeAttribData(), parent);
}
