// The editor of a Flags value: the mask as "0x0000000F", and a button that shows the flags by their names.
#pragma once

#include "views/CorvaneTypeButtonsValueDlg.h"

class CCorvaneTypeFlagsData;

class CCorvaneTypeFlagsValueDlg final : public CCorvaneTypeButtonsValueDlg
{
public:
    // `names` lives as long as the view's attribute; null for no names.
    CCorvaneTypeFlagsValueDlg(CCorvaneTypeView& view, const CCorvaneTypeFlagsData* names, QWidget* parent);

protected:
    void ShowText(const QString& text) override;
    [[nodiscard]] QString ReadText() const override;

private:
    void OpenFlags();

    const CCorvaneTypeFlagsData* m_pNames;
};
