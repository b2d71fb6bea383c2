// Shows and edits an Effect: a list of the project's effects.
#pragma once

#include "CorvaneTypeView.h"

class CCorvaneTypeEffect;

class CCorvaneTypeEffectView final : public CCorvaneTypeView
{
public:
    CCorvaneTypeEffectView(CCorvaneTypeEffect& attrib, ITypeViewList& list);

protected:
    [[nodiscard]] CCorvaneTypeValueDlg* CreateValueDialog(QWidget* parent) override;
    // The list shows no effect as a word.
    [[nodiscard]] std::u16string GetEditText(int item) const override;
    // Stored as SetValue stores: no effect is the empty text.
    [[nodiscard]] bool ApplyAdd(std::u16string_view text) override;

private:
    const CCorvaneTypeEffect& m_Attrib;
};
