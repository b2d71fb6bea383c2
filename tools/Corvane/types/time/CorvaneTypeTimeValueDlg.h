// The editor of a Time: a line for the milliseconds, and beside it the time as people read it, while it is
// typed.
#pragma once

#include "CorvaneTypeValueDlg.h"

#include <cstdint>

class CCorvaneTypeTimeData;
class QLabel;

// From the short form of a time to the long one, in logical pixels.
inline constexpr int kTimeLongOffset = 121;

class CCorvaneTypeTimeValueDlg final : public CCorvaneTypeValueDlg
{
public:
    // `rule` lives as long as the view's attribute; null allows no negative time.
    CCorvaneTypeTimeValueDlg(CCorvaneTypeView& view, const CCorvaneTypeTimeData* rule, QWidget* parent);

protected:
    [[nodiscard]] QString ReadText() const override;

private:
    // A negative time that is not allowed becomes its absolute value.
    [[nodiscard]] std::int32_t ReadTime() const;

    const CCorvaneTypeTimeData* m_pRule;
    QLabel* m_pLong;
};
