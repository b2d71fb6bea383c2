// The editor of a Boolean: a list with the two words.
#pragma once

#include "CorvaneTypeListValueDlg.h"

class CCorvaneTypeBooleanValueDlg final : public CCorvaneTypeListValueDlg
{
public:
    CCorvaneTypeBooleanValueDlg(CCorvaneTypeView& view, QWidget* parent);
};
