// Asks what kind of category is to be inserted, and of which schema a system category is. For expert mode:
// the other mode knows virtual categories only.
#pragma once

#include "CorvaneSchema.h"

#include <QDialog>
#include <vector>

class CCorvaneMgr;
class CHtmlCtrl;
class CRatioSplitter;
class QListWidget;
class QPushButton;
class QRadioButton;

class CInsertCategoryDlg final : public QDialog
{
public:
    // `manager` is not owned.
    CInsertCategoryDlg(CCorvaneMgr& manager, QWidget* parent);
    void done(int result) override;

    // What was chosen; for a dialog that was accepted.
    [[nodiscard]] bool IsSystemCategory() const;
    // Null for a virtual category, and when the schema has left the database while the dialog was open.
    [[nodiscard]] CCorvaneSchema* GetSchema() const;

private:
    void FillSchemas();
    void Update();

    CCorvaneMgr& m_Manager;
    std::vector<CRef<CCorvaneSchema>> m_Schemas; // By name, as in the list.
    QRadioButton* m_pSystem = nullptr;
    CRatioSplitter* m_pSplitter;
    QListWidget* m_pList;
    CHtmlCtrl* m_pHelp;
    QPushButton* m_pOk = nullptr;
};
