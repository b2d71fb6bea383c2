// The editor of a File and of a Sound: the path, a button that asks for a file and one that opens or plays
// what is typed.
#pragma once

#include "views/CorvaneTypeButtonsValueDlg.h"

class CCorvaneTypeFile;

class CCorvaneTypeFileValueDlg final : public CCorvaneTypeButtonsValueDlg
{
public:
    // `attrib` is the view's, which outlives the editor.
    CCorvaneTypeFileValueDlg(CCorvaneTypeView& view, CCorvaneTypeFile& attrib, const char* executeIcon,
                             QWidget* parent);

private:
    void Browse();
    void Execute();
    // Where the typed path leads; the resource root for an empty one.
    [[nodiscard]] std::u16string GetTypedPath() const;

    CCorvaneTypeFile& m_Attrib;
};
