#include "TreeLabelEdit.h"

#include "CommandSet.h"
#include "CorvaneMgr.h"
#include "CorvaneTreeModel.h"
#include "Editor.h"
#include "FormatText.h"
#include "QtText.h"
#include "SourceGate.h"
#include "TreeControl.h"
#include "TreeItemDelegate.h"
#include "UiModule.h"
#include "UndoScope.h"

#include <QTimer>
#include <utility>

CTreeLabelEdit::CTreeLabelEdit(IEditorFrame& frame, CCorvaneTreeModel& model, CTreeControl& tree,
                               QObject* parent)
    : QObject(parent), m_Frame(frame), m_Model(model), m_Tree(tree)
{
    m_Tree.GetDelegate().m_OnText = [this](const QString& text) { OnText(text); };
    m_Tree.GetDelegate().m_OnEditorGone = [this](const QObject* editor) { OnEditorGone(editor); };
    m_Tree.m_Hooks.m_EditClosed = [this](const QWidget* editor) { OnEditorGone(editor); };
}

bool CTreeLabelEdit::IsAllowed(const CTreeItem& item)
{
    constexpr std::uint32_t kFixed = 0x3;
    return item.IsRecord() || (item.IsCategory() && !item.GetCategory()->TestFlag(kFixed));
}

bool CTreeLabelEdit::Begin(const CTreeItem& item)
{
    Finish();
    CSourceGate& gate = m_Frame.GetEditor().GetApplication().GetManager().GetGate();
    if (!IsAllowed(item) || (gate.IsConnected() && gate.IsSomebodyElses(item.GetFile())))
        return false;
    // Also under a filter that the new name of the row may not match.
    m_Model.Keep(item);
    const QModelIndex index = m_Model.Locate(item);
    if (!index.isValid())
        return false;
    m_Tree.setCurrentIndex(index);
    m_Tree.scrollTo(index);
    m_Tree.edit(index);
    m_pEditor = m_Tree.indexWidget(index);
    if (m_pEditor == nullptr)
        return false;
    m_Edited = item;
    m_Frame.GetCommandSet().SetAcceleratorsEnabled(false);
    return true;
}

void CTreeLabelEdit::BeginLater(const CTreeItem& item)
{
    const bool waiting = !m_Later.IsNone();
    m_Later = item; // Of several new objects the last.
    if (!waiting)
        QTimer::singleShot(0, this,
                           [this]
                           {
                               const CTreeItem later = std::exchange(m_Later, {});
                               if (later.IsInTree() && m_Tree.isVisible())
                                   Begin(later);
                           });
}

void CTreeLabelEdit::OnText(const QString& text)
{
    m_sText = ToText(text);
    m_bText = true;
}

void CTreeLabelEdit::OnEditorGone(const QObject* editor)
{
    // One that was closed before ends later than the next one begins.
    if (editor != m_pEditor || editor == nullptr)
        return;
    m_pEditor = nullptr;
    m_Frame.GetCommandSet().SetAcceleratorsEnabled(true);
    QTimer::singleShot(0, this, [this] { Apply(); });
}

void CTreeLabelEdit::Finish()
{
    const QModelIndex index = m_Model.FindIndex(m_Edited);
    QWidget* editor = index.isValid() ? m_Tree.indexWidget(index) : nullptr;
    if (IsOpen() && editor == m_pEditor)
    {
        m_Tree.GetDelegate().setModelData(editor, &m_Model, index);
        m_Tree.closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
    Apply();
}

void CTreeLabelEdit::Apply()
{
    if (IsOpen())
        return; // The next one, which has its own end.
    const CTreeItem item = std::exchange(m_Edited, {});
    const bool typed = std::exchange(m_bText, false);
    if (typed && !m_sText.empty() && item.IsInTree() && m_sText != item.GetName())
        static_cast<void>(Rename(item, m_sText));
}

bool CTreeLabelEdit::Rename(const CTreeItem& item, const std::u16string& name)
{
    CCorvaneMgr& manager = m_Frame.GetEditor().GetApplication().GetManager();
    CUndoScope scope(m_Frame.GetEditor().GetApplication().GetUndo());
    if (!scope.IsOpen())
        return false;
    CCorvaneRecord* record = item.GetRecord();
    const bool done = record ? manager.CheckRecordRename(*record, name) && manager.RenameRecord(*record, name)
                             : manager.CheckCategoryRename(*item.GetCategory(), name) &&
                                   manager.RenameCategory(*item.GetCategory(), name);
    if (done)
        scope.Accept(FormatText(record ? u"[%s]\tRenamed Record" : u"[%s]\tRenamed Category", name));
    return done;
}

void CTreeLabelEdit::OnClosed()
{
    m_Edited = {};
    m_Later = {};
    m_bText = false;
}
