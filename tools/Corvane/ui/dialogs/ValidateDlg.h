// The findings of a validation, to look through, to scan for anew, to save and to copy. One lives beside the
// main window as long as that does; others run modally over a frame.
#pragma once

#include "ObserverList.h"

#include <QDialog>
#include <cstdint>

class CCorvaneEvent;
class CValidateCore;
class CValidateModel;
class IEditor;
class QBoxLayout;
class QLabel;
class QPushButton;
class QTableView;

class CValidateDlg final : public QDialog
{
public:
    // `editor` is not owned.
    CValidateDlg(IEditor& editor, QWidget* parent);

    // Shows a copy of the findings, and takes their build for the next scan. Null is a broken assumption.
    void PopulateList(const CValidateCore* pVCore);
    // The build of the next scan.
    void SetBuild(std::uint32_t build);
    // Runs over a copy of the findings; the result is the dialog's.
    int DoModalFor(const CValidateCore& core, std::uint32_t build);

    // What the buttons do.
    void Scan();
    void Save();
    void Copy();

    [[nodiscard]] CValidateModel& GetModel() const { return *m_pModel; }

private:
    void AddList(QBoxLayout& layout);
    void AddButtons(QBoxLayout& layout);
    QPushButton& AddButton(QBoxLayout& layout, const char* objectName, const QString& text, const char* icon,
                           void (CValidateDlg::*action)());
    void ActivateRow(int row);
    void UpdateSummary();
    int OnEvent(const CCorvaneEvent& event);

    IEditor& m_Editor;
    std::uint32_t m_nBuild = 0;
    CValidateModel* m_pModel;
    QTableView* m_pTable;
    QLabel* m_pSummary;
    CObserverHandle m_EventHandle;
};
