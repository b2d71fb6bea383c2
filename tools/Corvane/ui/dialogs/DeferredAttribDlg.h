// Finds the attributes that were deferred until a build, shows who uses them, and removes them for good.
#pragma once

#include "DeferredList.h"
#include "ObserverList.h"

#include <QDialog>

class CAttributeUseModel;
class CDeferredEntryModel;
class CRatioSplitter;
class IEditor;
class QBoxLayout;
class QComboBox;
class QPushButton;
class QTableView;

class CDeferredAttribDlg final : public QDialog
{
public:
    // `editor` is not owned.
    CDeferredAttribDlg(IEditor& editor, QWidget* parent);
    void done(int result) override;

    // What the buttons do.
    void Find();
    void Delete();

private:
    void AddSearch(QBoxLayout& layout);
    void AddLists(QBoxLayout& layout);
    void AddButtons(QBoxLayout& layout);
    void FillHistory();
    void ShowUses();
    void UpdateDelete();
    void LetGo();

    IEditor& m_Editor;
    CDeferredList m_List;
    CDeferredEntryModel* m_pEntries;
    CAttributeUseModel* m_pUses;
    QComboBox* m_pOperation;
    QComboBox* m_pBuild;
    CRatioSplitter* m_pSplitter;
    QPushButton* m_pDelete;
    CObserverHandle m_EventHandle;
};
