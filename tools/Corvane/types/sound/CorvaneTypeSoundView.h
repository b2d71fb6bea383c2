// Shows and edits a Sound: a File that is played.
#pragma once

#include "file/CorvaneTypeFileView.h"
#include "sound/CorvaneTypeSound.h"

class CCorvaneTypeSoundView final : public CCorvaneTypeFileView
{
public:
    CCorvaneTypeSoundView(CCorvaneTypeSound& attrib, ITypeViewList& list)
        : CCorvaneTypeFileView(attrib, list, "play")
    {
    }
};
