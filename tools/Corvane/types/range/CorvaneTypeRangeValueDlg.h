// The editor of a Range: two fields that hold to the limits, whole numbers where the schema wants them.
#pragma once

#include "views/CorvaneTypeNumbersValueDlg.h"

class CCorvaneTypeRangeData;

class CCorvaneTypeRangeValueDlg final : public CCorvaneTypeNumbersValueDlg
{
public:
    // `limits` lives as long as the view's attribute; null for no limits.
    CCorvaneTypeRangeValueDlg(CCorvaneTypeView& view, const CCorvaneTypeRangeData* limits, QWidget* parent);

    // What was accepted is what the fields show; only a range that was left without a word stays as it was.
    [[nodiscard]] std::u16string GetText() const override;

protected:
    void ShowText(const QString& text) override;
    [[nodiscard]] QString ReadText() const override;

private:
    bool m_bWholeOnly;
};
