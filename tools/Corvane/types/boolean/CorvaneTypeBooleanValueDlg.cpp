#include "boolean/CorvaneTypeBooleanValueDlg.h"

CCorvaneTypeBooleanValueDlg::CCorvaneTypeBooleanValueDlg(CCorvaneTypeView& view, QWidget* parent)
    : CCorvaneTypeListValueDlg(view, {QStringLiteral("True"), QStringLiteral("False")},
                               QStringLiteral("BooleanValue"), parent)
{
}
