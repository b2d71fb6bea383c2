// The editor of an Effect: the effects that the project's files list, and none.
#pragma once

#include "CorvaneTypeListValueDlg.h"

class CEffectList;

class CCorvaneTypeEffectValueDlg final : public CCorvaneTypeListValueDlg
{
public:
    // `effects` are read during the call only.
    CCorvaneTypeEffectValueDlg(CCorvaneTypeView& view, CEffectList& effects, QWidget* parent);
};
