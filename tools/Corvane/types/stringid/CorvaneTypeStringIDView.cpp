#include "stringid/CorvaneTypeStringIDView.h"

#include "stringid/CorvaneTypeStringIDValueDlg.h"

CCorvaneTypeValueDlg* CCorvaneTypeStringIDView::CreateValueDialog(QWidget* parent)
{
    return new CCorvaneTypeStringIDValueDlg(*this, parent);
}
