// An editor of one line with small buttons behind it, for values that more can be done with than typing them.
// TAB reaches the buttons, Return and the space bar press them.
#pragma once

#include "CorvaneTypeValueDlg.h"

class CCorvaneTypeButtonsValueDlg : public CCorvaneTypeValueDlg
{
protected:
    // `fieldName` is the object name of the line.
    CCorvaneTypeButtonsValueDlg(CCorvaneTypeView& view, const QString& fieldName, QWidget* parent);

    // `name` is the button's object name, tip and accessible name. The editor stays open while `run` runs,
    // and the line gets the focus back. `run` may see the editor go when it lets events pass.
    void AddButton(const char* icon, const QString& name, std::function<void()> run);
    // A text that no path and no identifier has the length of is cut in the line: laid out whole, it would
    // hold up every key. It stays whole as long as nothing is typed.
    void ShowText(const QString& text) override;
};
