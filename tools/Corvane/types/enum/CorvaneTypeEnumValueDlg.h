// The editor of an Enum: a list of its words in the order of their declaration.
#pragma once

#include "CorvaneTypeListValueDlg.h"

class CCorvaneTypeEnumData;

class CCorvaneTypeEnumValueDlg final : public CCorvaneTypeListValueDlg
{
public:
    // `words` may be null for none.
    CCorvaneTypeEnumValueDlg(CCorvaneTypeView& view, const CCorvaneTypeEnumData* words, QWidget* parent);
};
