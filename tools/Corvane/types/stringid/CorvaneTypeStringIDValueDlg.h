// The editor of a StringID: a line that completes from the string table, and a button for no identifier. An
// empty line is no identifier too.
//
// The table is looked for at the first key. What is wrong with it is told once for each editor, not at each
// key; without a table there is nothing to complete from.
#pragma once

#include "views/CorvaneTypeButtonsValueDlg.h"

#include <memory>

class CCorvaneMgr;
class CCorvaneTypeStringIDValueDropListDlg;

class CCorvaneTypeStringIDValueDlg final : public CCorvaneTypeButtonsValueDlg
{
public:
    CCorvaneTypeStringIDValueDlg(CCorvaneTypeView& view, QWidget* parent);
    ~CCorvaneTypeStringIDValueDlg() override;

protected:
    void ShowText(const QString& text) override;
    [[nodiscard]] QString ReadText() const override;

private:
    void Update(const QString& typed);
    [[nodiscard]] bool FindTable();

    CCorvaneMgr& m_Manager;
    std::unique_ptr<CCorvaneTypeStringIDValueDropListDlg> m_pDropList;
    bool m_bSearched = false;
    bool m_bHasTable = false;
};
