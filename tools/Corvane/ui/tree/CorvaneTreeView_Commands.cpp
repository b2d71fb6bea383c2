// The commands on the selected row.
#include "CorvaneTreeView.h"

#include "Commands.h"
#include "CorvaneHtmlView.h"
#include "CorvaneMgr.h"
#include "CorvaneTreeModel.h"
#include "Editor.h"
#include "FormatText.h"
#include "HelpContent.h"
#include "InsertCategoryDlg.h"
#include "PropertiesSheet.h"
#include "QtText.h"
#include "RunState.h"
#include "SourceGate.h"
#include "TreeClipboard.h"
#include "TreeControl.h"
#include "TreeItem.h"
#include "TreeLabelEdit.h"
#include "TreeMenus.h"
#include "UiModule.h"
#include "UndoScope.h"
#include "ValidateCore.h"
#include "host/Questions.h"

#include <algorithm>

constexpr CCorvaneTreeView::SRow CCorvaneTreeView::kRows[] = {
    {ID_EXPAND, &CCorvaneTreeView::CanExpand, &CCorvaneTreeView::Expand},
    {ID_OPEN_RECORD, &CCorvaneTreeView::IsRecord, &CCorvaneTreeView::Open},
    {ID_NEW_WINDOW, &CCorvaneTreeView::IsRecord, &CCorvaneTreeView::OpenWindow},
    {ID_VALIDATE, &CCorvaneTreeView::IsRecord, &CCorvaneTreeView::Validate},
    {ID_RENAME, &CCorvaneTreeView::CanRename, &CCorvaneTreeView::Rename},
    {ID_DELETE, &CCorvaneTreeView::CanDelete, &CCorvaneTreeView::Delete},
    {ID_NEW_CATEGORY, &CCorvaneTreeView::CanAddCategory, &CCorvaneTreeView::AddCategory},
    {ID_NEW_RECORD, &CCorvaneTreeView::CanAddRecord, &CCorvaneTreeView::AddRecord},
    {ID_PROPERTIES, &CCorvaneTreeView::CanShowProperties, &CCorvaneTreeView::ShowItemProperties},
    {ID_CUT, &CCorvaneTreeView::CanCopy, &CCorvaneTreeView::Cut},
    {ID_COPY, &CCorvaneTreeView::CanCopy, &CCorvaneTreeView::Copy},
    {ID_PASTE, &CCorvaneTreeView::CanPaste, &CCorvaneTreeView::Paste},
    {ID_SAVE, &CCorvaneTreeView::CanSave, &CCorvaneTreeView::Save},
    {ID_QUICK_CLONE, &CCorvaneTreeView::CanQuickCopy, &CCorvaneTreeView::QuickClone},
    {ID_QUICK_REFERENCE, &CCorvaneTreeView::CanQuickCopy, &CCorvaneTreeView::QuickReference},
};

const CCorvaneTreeView::SRow* CCorvaneTreeView::FindRow(int id)
{
    const auto found =
        std::find_if(std::begin(kRows), std::end(kRows), [id](const SRow& row) { return row.m_nId == id; });
    return found == std::end(kRows) ? nullptr : found;
}

bool CCorvaneTreeView::GetCommandState(int id, SCommandState& state)
{
    if (IsTreeControlCommand(id))
    {
        state.m_bEnabled = false;
        state.m_sWhyNot = QStringLiteral("Not connected to source control");
        return true;
    }
    const SRow* row = FindRow(id);
    if (row == nullptr)
        return false;
    const CTreeItem item = GetSelected();
    state.m_bEnabled = !item.IsNone() && (this->*row->m_Can)(item);
    if (id == ID_EXPAND && m_pTree->isExpanded(m_pTree->currentIndex()))
        state.m_sLabel = QStringLiteral("Co&llapse");
    return true;
}

bool CCorvaneTreeView::RunCommand(int id)
{
    const SRow* row = FindRow(id);
    const CTreeItem item = GetSelected();
    if (row == nullptr || item.IsNone() || !(this->*row->m_Can)(item))
        return false;
    EndEdit();
    // A name that was being typed has been taken, which may have asked questions.
    if (item.IsInTree())
        (this->*row->m_Run)(item);
    return true;
}

bool CCorvaneTreeView::CanExpand(const CTreeItem& item) const
{
    return !item.IsRecord() && m_pModel->hasChildren(m_pTree->currentIndex());
}

void CCorvaneTreeView::Expand(const CTreeItem& item)
{
    const QModelIndex index = m_pModel->FindIndex(item);
    m_pTree->setExpanded(index, !m_pTree->isExpanded(index));
}

bool CCorvaneTreeView::IsRecord(const CTreeItem& item) const
{
    return item.IsRecord();
}

void CCorvaneTreeView::Open(const CTreeItem& item)
{
    CCorvaneHtmlView* help = m_Frame.GetHelpView();
    if (m_Frame.GetEditor().ShowRecord(item.GetRecord(), true) && help && item.IsInTree())
        help->NavigateMemory(ToQString(BuildRecordHelp(*item.GetRecord())));
}

void CCorvaneTreeView::OpenWindow(const CTreeItem& item)
{
    m_Frame.GetEditor().OpenRecordFrame(item.GetRecord(), true);
}

void CCorvaneTreeView::Validate(const CTreeItem& item)
{
    CValidateCore core(m_Manager.GetActiveBuild());
    static_cast<void>(core.ValidateRecord(*item.GetRecord()));
    if (!core.GetErrors().empty())
        m_Frame.GetEditor().ShowValidation(core);
    else if (!IsSilent())
        m_Manager.GetContext().m_Questions.Tell(
            u"No Errors Detected", u"No errors were detected within this record.", EIcon::Information);
}

bool CCorvaneTreeView::CanRename(const CTreeItem& item) const
{
    return CTreeLabelEdit::IsAllowed(item);
}

void CCorvaneTreeView::Rename(const CTreeItem& item)
{
    m_pLabelEdit->Begin(item);
}

bool CCorvaneTreeView::CanDelete(const CTreeItem& item) const
{
    const CCorvaneCategory* category = item.GetCategory();
    if (category == nullptr)
        return item.IsRecord();
    return category->GetRecords().empty() && category->GetChildren().empty() &&
           (!category->IsSystem() || m_Manager.GetContext().m_Run.Test(APP_EXPERT));
}

void CCorvaneTreeView::Delete(const CTreeItem& item)
{
    CSourceGate& gate = m_Manager.GetGate();
    if (ReadControlClass(gate, item) >= EControlClass::InSync)
    {
        static_cast<void>(item.IsRecord() ? gate.CheckOutForDelete(*item.GetRecord())
                                          : gate.CheckOutForDelete(*item.GetCategory()));
        return;
    }
    const std::u16string name = item.GetName();
    CUndoScope scope(m_Frame.GetEditor().GetApplication().GetUndo());
    if (scope.IsOpen() && DeleteItem(item))
        scope.Accept(FormatText(item.IsRecord() ? u"[%s]\tRecord Deleted" : u"[%s]\tCategory Deleted", name));
}

bool CCorvaneTreeView::DeleteItem(const CTreeItem& item)
{
    return item.IsRecord() ? m_Manager.DeleteRecord(*item.GetRecord(), true)
                           : m_Manager.DeleteCategory(*item.GetCategory(), true);
}

bool CCorvaneTreeView::CanAddCategory(const CTreeItem& item) const
{
    return (item.IsCategory() && !item.IsSpecial()) ||
           (item.IsRoot() && m_Manager.GetContext().m_Run.Test(APP_EXPERT));
}

void CCorvaneTreeView::AddCategory(const CTreeItem& item)
{
    if (m_Manager.GetContext().m_Run.Test(APP_EXPERT))
        AskAndAddCategory(item);
    else
        static_cast<void>(m_Manager.CreateVirtualRelativeCategory(item.GetCategory(), u"New Category"));
}

void CCorvaneTreeView::AskAndAddCategory(const CTreeItem& item)
{
    CInsertCategoryDlg dialog(m_Manager, m_Frame.GetWindow());
    // Events pass while the dialog is open.
    if (dialog.exec() != QDialog::Accepted || !item.IsInTree())
        return;
    if (dialog.IsSystemCategory())
        m_Manager.InsertCategory(item.GetCategory(), dialog.GetSchema());
    else if (item.IsCategory())
        static_cast<void>(m_Manager.CreateVirtualRelativeCategory(item.GetCategory(), u"New Category"));
}

bool CCorvaneTreeView::CanAddRecord(const CTreeItem& item) const
{
    return item.IsCategory() && !item.IsSpecial() && item.GetCategory()->GetSchema() != nullptr;
}

void CCorvaneTreeView::AddRecord(const CTreeItem& item)
{
    CUndoScope scope(m_Frame.GetEditor().GetApplication().GetUndo());
    const CCorvaneRecord* record = scope.IsOpen() ? m_Manager.InsertRecord(item.GetCategory()) : nullptr;
    if (record)
        scope.Accept(FormatText(u"[%s]\tInserted Record", record->GetName()));
}

bool CCorvaneTreeView::CanShowProperties(const CTreeItem& item) const
{
    return !item.IsRoot();
}

void CCorvaneTreeView::ShowItemProperties(const CTreeItem& item)
{
    if (item.IsRecord())
        ShowProperties(m_Frame, *item.GetRecord());
    else
        ShowProperties(m_Frame, *item.GetCategory());
}

bool CCorvaneTreeView::CanCopy(const CTreeItem& item) const
{
    return CTreeClipboard::IsAllowed(item);
}

void CCorvaneTreeView::Cut(const CTreeItem& item)
{
    m_pClipboard->Cut(item);
}

void CCorvaneTreeView::Copy(const CTreeItem& item)
{
    m_pClipboard->Copy(item);
}

bool CCorvaneTreeView::CanPaste(const CTreeItem& item) const
{
    return m_pClipboard->CanPaste(item);
}

void CCorvaneTreeView::Paste(const CTreeItem& item)
{
    m_pClipboard->Paste(item);
}

bool CCorvaneTreeView::CanSave(const CTreeItem& item) const
{
    return !item.IsRoot() && !item.IsSpecial();
}

void CCorvaneTreeView::Save(const CTreeItem& item)
{
    static_cast<void>(item.IsRecord() ? m_Manager.SaveRecord(item.GetRecord(), true)
                                      : m_Manager.SaveCategory(item.GetCategory(), nullptr));
}

bool CCorvaneTreeView::CanQuickCopy(const CTreeItem& item) const
{
    return item.IsRecord() && !item.IsSpecial();
}

void CCorvaneTreeView::QuickClone(const CTreeItem& item)
{
    static_cast<void>(CopyTreeItem(m_Frame, item, *item.GetDestination(), false));
}

void CCorvaneTreeView::QuickReference(const CTreeItem& item)
{
    static_cast<void>(CopyTreeItem(m_Frame, item, *item.GetDestination(), true));
}
