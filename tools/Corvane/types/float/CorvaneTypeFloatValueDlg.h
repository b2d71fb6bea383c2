// The editor of a Float: a line that takes any text and reads it as a number within the limits.
#pragma once

#include "CorvaneTypeValueDlg.h"

class CCorvaneTypeFloatData;

class CCorvaneTypeFloatValueDlg final : public CCorvaneTypeValueDlg
{
public:
    // `limits` live as long as the view's attribute; null for none.
    CCorvaneTypeFloatValueDlg(CCorvaneTypeView& view, const CCorvaneTypeFloatData* limits, QWidget* parent);

protected:
    [[nodiscard]] QString ReadText() const override;

private:
    const CCorvaneTypeFloatData* m_pLimits;
};
