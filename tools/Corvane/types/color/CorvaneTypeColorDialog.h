// The colour picker over a Color value's text.
#pragma once

#include "CorvaneColorDialog.h"

#include <string>
#include <string_view>

class CCorvaneTypeColorDialog final : public CCorvaneColorDialog
{
public:
    // `attribute` names what is being chosen. The profile outlives the dialog.
    CCorvaneTypeColorDialog(CProfile& profile, std::u16string_view attribute, std::u16string_view text,
                            QWidget* parent);

    // The colour as a value. A colour that was not changed keeps the very text that it came with.
    [[nodiscard]] std::u16string GetText() const;

private:
    std::u16string m_sGiven;
};
