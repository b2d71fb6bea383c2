#include "TreeClipboard.h"

#include "CorvaneMgr.h"
#include "Editor.h"
#include "FormatText.h"
#include "RecordCopyDlg.h"
#include "RunState.h"
#include "TreeDestination.h"
#include "UiModule.h"
#include "UndoScope.h"
#include "host/Questions.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QWidget>
#include <optional>
#include <utility>

namespace
{
// None when the user thinks better of it.
std::optional<bool> AskForReference(QWidget* parent)
{
    if ((QGuiApplication::queryKeyboardModifiers() & Qt::ShiftModifier) != 0)
        return false;
    CRecordCopyDlg dialog(parent);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.GetMethod() == ERecordCopy::Reference;
}
} // namespace

bool IsCompatibleClipboardFormat(const STreeClipboardBlock& block, const CTreeItem& held,
                                 const CTreeItem& item)
{
    const CCorvaneCategory* dest = item.GetDestination();
    return dest != nullptr && block.m_nProcess == GetThisProcess() && held.IsInTree() &&
           IsDestinationValid(held, dest, block.m_nOperation == STreeClipboardBlock::kCut);
}

bool MoveTreeItem(IEditorFrame& frame, const CTreeItem& source, CCorvaneCategory& dest)
{
    ICorvaneApplication& application = frame.GetEditor().GetApplication();
    CUndoScope scope(application.GetUndo());
    const std::u16string name = source.GetName();
    CCorvaneRecord* record = source.GetRecord();
    CCorvaneMgr& manager = application.GetManager();
    if (!scope.IsOpen() || !(record ? manager.MoveRecord(&dest, *record, false)
                                    : manager.MoveCategory(&dest, source.GetCategory())))
        return false;
    scope.Accept(FormatText(record ? u"[%s]\tMoved Record" : u"[%s]\tMoved Category", name));
    return true;
}

bool CopyTreeItem(IEditorFrame& frame, const CTreeItem& source, CCorvaneCategory& dest, bool reference)
{
    ICorvaneApplication& application = frame.GetEditor().GetApplication();
    CUndoScope scope(application.GetUndo());
    CCorvaneMgr& manager = application.GetManager();
    if (!scope.IsOpen())
        return false;
    if (CCorvaneRecord* record = source.GetRecord())
    {
        if (!(reference ? manager.CopyRecord_Reference(&dest, record, true)
                        : manager.CopyRecord_Clone(&dest, record, true)))
            return false;
        scope.Accept(FormatText(u"[%s]\tCopied Record", source.GetName()));
        return true;
    }
    if (!(reference ? manager.CopyCategory_Reference(&dest, source.GetCategory(), true)
                    : manager.CopyCategory_Clone(&dest, source.GetCategory(), true)))
        return false;
    scope.Accept(FormatText(u"[%s]\tCopied Category", source.GetName()));
    return true;
}

CTreeClipboard::CTreeClipboard(IEditorFrame& frame, QObject* parent) : QObject(parent), m_Frame(frame)
{
    m_Block.m_nView = static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(this));
    m_Block.m_nProcess = GetThisProcess();
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, [this] { OnClipboardChanged(); });
}

CTreeClipboard::~CTreeClipboard() = default;

CCorvaneMgr& CTreeClipboard::GetManager() const
{
    return m_Frame.GetEditor().GetApplication().GetManager();
}

bool CTreeClipboard::IsAllowed(const CTreeItem& item)
{
    if (const CCorvaneRecord* record = item.GetRecord())
        return !record->TestFlag(RECORD_FLAG_COMPARE_TARGET);
    return item.IsCategory() && !item.GetCategory()->IsSystem();
}

void CTreeClipboard::Put(const CTreeItem& item, std::uint32_t operation)
{
    ClearMarks();
    m_Held = item;
    ++m_Block.m_nObject;
    m_Block.m_nOperation = operation;
    {
        const QScopedValueRollback putting(m_bPutting, true);
        QGuiApplication::clipboard()->setMimeData(MakeTreeMimeData(m_Block, item).release());
    }
    if (operation != STreeClipboardBlock::kCut)
        return;
    m_Marked = item;
    if (m_OnMarks)
        m_OnMarks();
}

void CTreeClipboard::OnClipboardChanged()
{
    if (!m_bPutting && !m_Held.IsNone() &&
        ReadTreeMimeData(QGuiApplication::clipboard()->mimeData()) != m_Block)
        Release();
}

void CTreeClipboard::Release()
{
    m_Held = {};
    ClearMarks();
}

void CTreeClipboard::ClearMarks()
{
    if (m_Marked.IsNone())
        return;
    m_Marked = {};
    if (m_OnMarks)
        m_OnMarks();
}

void CTreeClipboard::OnClosed()
{
    Release();
}

bool CTreeClipboard::IsMarked(const CTreeItem& item) const
{
    if (m_Marked.IsNone() || item.IsNone() || item.IsRoot())
        return false;
    if (item == m_Marked)
        return true;
    const CCorvaneCategory* category = item.GetParent();
    while (category != nullptr && category != m_Marked.GetCategory())
        category = category->GetParent();
    return category != nullptr;
}

bool CTreeClipboard::CanPaste(const CTreeItem& item) const
{
    return IsCompatibleClipboardFormat(m_Block, m_Held, item);
}

void CTreeClipboard::Paste(const CTreeItem& item)
{
    const CRef<CCorvaneCategory> dest(item.GetDestination());
    const auto block = ReadTreeMimeData(QGuiApplication::clipboard()->mimeData());
    const CTreeItem source = m_Held;
    if (block != m_Block || !dest || !source.IsInTree())
        return;
    if (block->m_nOperation == STreeClipboardBlock::kCut)
        PasteMove(source, *dest);
    else
        PasteCopy(source, *dest);
}

void CTreeClipboard::PasteCopy(const CTreeItem& source, CCorvaneCategory& dest)
{
    const std::optional<bool> reference = AskForReference(m_Frame.GetWindow());
    // The dialog has let events pass.
    if (!reference || !source.IsInTree() || !dest.IsAttached())
        return;
    if (!CopyTreeItem(m_Frame, source, dest, *reference))
        TellFailure(source, source.IsRecord() ? u"The destination category may be of the incorrect schema."
                                              : u"Unknown Error.");
}

void CTreeClipboard::PasteMove(const CTreeItem& source, CCorvaneCategory& dest)
{
    if (source.GetParent() == &dest)
    {
        ClearMarks();
        TellFailure(source, u"The destination and source categories are the same.");
        return;
    }
    if (MoveTreeItem(m_Frame, source, dest))
        QGuiApplication::clipboard()->clear(); // A cut pastes once.
    else if (source.IsCategory())
        TellFailure(source, u"Invalid destination category.");
}

void CTreeClipboard::TellFailure(const CTreeItem& source, std::u16string_view text) const
{
    const CCorvaneContext& context = GetManager().GetContext();
    if (!context.m_Run.m_bSilent)
        context.m_Questions.Tell(source.IsRecord() ? u"Record Paste Failed" : u"Category Paste Failed", text);
}
