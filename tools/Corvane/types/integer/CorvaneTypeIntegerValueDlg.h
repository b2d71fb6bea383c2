// The editor of an Integer: a line that takes any text and reads it as a number within the limits.
#pragma once

#include "CorvaneTypeValueDlg.h"

#include <cstdint>

class CCorvaneTypeIntegerData;

class CCorvaneTypeIntegerValueDlg final : public CCorvaneTypeValueDlg
{
public:
    // `limits` live as long as the view's attribute; null for none.
    CCorvaneTypeIntegerValueDlg(CCorvaneTypeView& view, const CCorvaneTypeIntegerData* limits,
                                QWidget* parent);

protected:
    [[nodiscard]] QString ReadText() const override;

private:
    const CCorvaneTypeIntegerData* m_pLimits;
};
