#include "range/CorvaneTypeRangeValueDlg.h"

#include "NumberText.h"
#include "QtText.h"
#include "range/CorvaneTypeRangeData.h"

#include <algorithm>
#include <cmath>

namespace
{
FNumberRule MakeRule(const CCorvaneTypeRangeData* limits)
{
    if (limits == nullptr)
        return MakeFloatRule();
    return limits->IsIntegerOnly() ? MakeWholeRule(limits->GetMinimum(), limits->GetMaximum())
                                   : MakeFloatRule(limits->GetMinimum(), limits->GetMaximum());
}
} // namespace

CCorvaneTypeRangeValueDlg::CCorvaneTypeRangeValueDlg(CCorvaneTypeView& view,
                                                     const CCorvaneTypeRangeData* limits, QWidget* parent)
    : CCorvaneTypeNumbersValueDlg(view, parent), m_bWholeOnly(limits != nullptr && limits->IsIntegerOnly())
{
    AddField(QStringLiteral("RangeMin"), QStringLiteral("Min"), MakeRule(limits));
    AddField(QStringLiteral("RangeMax"), QStringLiteral("Max"), MakeRule(limits));
}

void CCorvaneTypeRangeValueDlg::ShowText(const QString& text)
{
    const SRange range = ParseRange(ToText(text));
    const float numbers[] = {range.m_fMinimum, range.m_fMaximum};
    for (std::size_t i = 0; i < std::size(numbers); ++i)
    {
        // As it is stored, also outside the limits, until the field is left; a fraction is cut off.
        const float number = m_bWholeOnly ? std::trunc(numbers[i]) + 0.0F : numbers[i]; // No "-0".
        const QString shown = ToQString(FormatFloat(static_cast<double>(number)));
        GetField(i).setText(m_bWholeOnly ? shown.section(u'.', 0, 0) : shown);
    }
}

QString CCorvaneTypeRangeValueDlg::ReadText() const
{
    const float minimum = GetField(0).GetFloat();
    return ToQString(FormatRange({minimum, std::max(minimum, GetField(1).GetFloat())}));
}

std::u16string CCorvaneTypeRangeValueDlg::GetText() const
{
    return IsChosen() ? ToText(ReadText()) : CCorvaneTypeNumbersValueDlg::GetText();
}
