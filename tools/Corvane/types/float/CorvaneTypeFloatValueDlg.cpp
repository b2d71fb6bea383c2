#include "float/CorvaneTypeFloatValueDlg.h"

#include "NumberText.h"
#include "QtText.h"
#include "float/CorvaneTypeFloatData.h"

#include <QLineEdit>

CCorvaneTypeFloatValueDlg::CCorvaneTypeFloatValueDlg(CCorvaneTypeView& view,
                                                     const CCorvaneTypeFloatData* limits, QWidget* parent)
    : CCorvaneTypeValueDlg(view, parent), m_pLimits(limits)
{
    AddLineEdit(QStringLiteral("FloatValue"));
}

QString CCorvaneTypeFloatValueDlg::ReadText() const
{
    const float value = ParseFloat(ToText(GetLineEdit()->text()));
    return ToQString(FormatFloat(m_pLimits ? m_pLimits->Clamp(value) : value));
}
