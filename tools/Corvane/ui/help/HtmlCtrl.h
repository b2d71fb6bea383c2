// A help text inside a dialog.
#pragma once

#include "CorvaneHtmlView.h"

#include <string_view>

class CHtmlCtrl final : public CCorvaneHtmlView
{
public:
    explicit CHtmlCtrl(QWidget* parent);

    // A help text of the database; an empty one leaves the control empty.
    void SetHelp(std::u16string_view help);
};
