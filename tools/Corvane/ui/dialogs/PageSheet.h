// A dialog of pages with OK, Cancel and Apply.
#pragma once

#include <QDialog>
#include <vector>

class CSheetPage;
class QDialogButtonBox;
class QTabWidget;

class CPageSheet : public QDialog
{
public:
    CPageSheet(const char* objectName, const QString& title, QWidget* parent);

    // The sheet owns the page.
    void AddPage(CSheetPage* page, const QString& title);
    // Stays open when a page could not be applied, and shows that.
    void accept() override;

protected:
    // Applies the pages that were changed. False when one could not be.
    virtual bool Apply();
    [[nodiscard]] const std::vector<CSheetPage*>& GetPages() const { return m_Pages; }
    void UpdateApply();

private:
    void AddButtons();

    QTabWidget* m_pTabs;
    QDialogButtonBox* m_pButtons;
    std::vector<CSheetPage*> m_Pages;
};
