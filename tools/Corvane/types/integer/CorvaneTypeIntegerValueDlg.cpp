#include "integer/CorvaneTypeIntegerValueDlg.h"

#include "NumberText.h"
#include "QtText.h"
#include "integer/CorvaneTypeIntegerData.h"

#include <QLineEdit>

CCorvaneTypeIntegerValueDlg::CCorvaneTypeIntegerValueDlg(CCorvaneTypeView& view,
                                                         const CCorvaneTypeIntegerData* limits,
                                                         QWidget* parent)
    : CCorvaneTypeValueDlg(view, parent), m_pLimits(limits)
{
    AddLineEdit(QStringLiteral("IntegerValue"));
}

QString CCorvaneTypeIntegerValueDlg::ReadText() const
{
    const std::int32_t value = ParseInteger(ToText(GetLineEdit()->text()));
    return ToQString(FormatInteger(m_pLimits ? m_pLimits->Clamp(value) : value));
}
