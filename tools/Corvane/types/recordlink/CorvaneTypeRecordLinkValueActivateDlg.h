// The browser that picks the target of a link: a box with the value and the records that were chosen last,
// which completes what is typed; the tree of categories that hold possible targets; the records of one of
// them.
//
// Keys: Backspace and Alt+Up go to the category above, Alt+Left back to the one before; Enter in the list
// opens a category or takes a record. The database may change meanwhile: the panes follow.
#pragma once

#include "CorvaneRef.h"
#include "ObserverList.h"
#include "recordlink/LinkCategoryTree.h"

#include <QDialog>
#include <string>
#include <string_view>
#include <vector>

class CCorvaneMgr;
class CCorvaneTypeRecordLink;
class CRatioSplitter;
class CRecordLinkListView;
class CRecordLinkTreeView;
class QAction;
class QComboBox;
class QLabel;
class QStringListModel;
class QTimer;
class QVBoxLayout;

class CCorvaneTypeRecordLinkValueActivateDlg final : public QDialog
{
public:
    // `link` is kept alive; `value` is what it holds, or "<none>".
    CCorvaneTypeRecordLinkValueActivateDlg(CCorvaneTypeRecordLink& link, std::u16string_view value,
                                           QWidget* parent);
    ~CCorvaneTypeRecordLinkValueActivateDlg() override;

    // What was chosen, once exec() has given Accepted: the path of a record, or "<none>".
    [[nodiscard]] const std::u16string& GetValue() const { return m_sValue; }

    // A text that finds no record is told, and the dialog stays.
    void accept() override;

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void BuildBox();
    void BuildToolBar();
    void BuildPanes();
    void Restore();
    void Store() const;
    void ShowValue();
    // Puts the categories of the link into the tree.
    void PopulateTree();
    void Follow();
    void ShowNode(std::size_t node, bool remember);
    void GoUp();
    void GoBack();
    void SetPath(std::u16string_view path);
    void OnTextEdited(const QString& text);
    [[nodiscard]] CCorvaneRecord* FindRecord(std::u16string text) const;
    void UpdateNote();

    CRef<CCorvaneTypeRecordLink> m_pRecordLink;
    CCorvaneMgr& m_Manager;
    std::u16string m_sGiven;
    std::u16string m_sValue;
    CLinkCategoryTree m_Tree;
    std::size_t m_nNode = CLinkCategoryTree::kRoot;
    std::vector<std::u16string> m_History; // Paths of the categories that were shown before.
    QVBoxLayout* m_pLayout = nullptr;
    QComboBox* m_pPath = nullptr;
    QStringListModel* m_pCompletions = nullptr;
    QAction* m_pBack = nullptr;
    QAction* m_pUp = nullptr;
    QAction* m_pDetails = nullptr;
    CRatioSplitter* m_pSplitter = nullptr;
    CRecordLinkTreeView* m_pTree = nullptr;
    CRecordLinkListView* m_pList = nullptr;
    QLabel* m_pNote = nullptr;
    QTimer* m_pFollow = nullptr;
    CObserverHandle m_Observer;
};
