// Asks for the build from which on an attribute is gone.
#pragma once

#include "DeferAttribDlg.h"

class CDeferDeleteAttribDlg final : public CDeferAttribDlg
{
public:
    CDeferDeleteAttribDlg(std::uint32_t build, QWidget* parent);
};
