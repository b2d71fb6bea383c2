// Asks for the build from which on a new entry takes over from an attribute.
#pragma once

#include "DeferAttribDlg.h"

class CDeferDeprecatedAttribDlg final : public CDeferAttribDlg
{
public:
    CDeferDeprecatedAttribDlg(std::uint32_t build, QWidget* parent);
};
