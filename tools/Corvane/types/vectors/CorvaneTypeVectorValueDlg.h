// The editor of a vector: a field for each component. The numbers that a smaller vector does not show are
// kept.
#pragma once

#include "views/CorvaneTypeNumbersValueDlg.h"

class CCorvaneTypeVectorValueDlg final : public CCorvaneTypeNumbersValueDlg
{
public:
    // `components` is 2, 3 or 4.
    CCorvaneTypeVectorValueDlg(CCorvaneTypeView& view, std::size_t components, QWidget* parent);

protected:
    void ShowText(const QString& text) override;
    [[nodiscard]] QString ReadText() const override;
};
