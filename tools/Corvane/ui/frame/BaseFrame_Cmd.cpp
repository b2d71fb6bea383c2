// The commands that every frame has.
#include "BaseFrame.h"

#include "CommandSet.h"
#include "Commands.h"
#include "Context.h"
#include "CorvaneDoc.h"
#include "CorvaneListView.h"
#include "CorvaneMgr.h"
#include "MainFrame.h"
#include "QtText.h"
#include "RunState.h"
#include "UndoMgr.h"

#include <QMenu>
#include <QStatusBar>
#include <algorithm>

namespace
{
constexpr int kMessageTime = 15000; // Milliseconds.

// What the entries of an undo or redo list say in the status bar.
struct SListTexts
{
    const char* m_sFirst;
    const char* m_sOthers;
    const char* m_sNone;
};

constexpr SListTexts kUndoTexts = {QT_TRANSLATE_NOOP("CBaseFrame", "Undo the last action"),
                                   QT_TRANSLATE_NOOP("CBaseFrame", "Undo all actions up to this point"),
                                   QT_TRANSLATE_NOOP("CBaseFrame", "No undo actions available")};
constexpr SListTexts kRedoTexts = {QT_TRANSLATE_NOOP("CBaseFrame", "Redo the last action"),
                                   QT_TRANSLATE_NOOP("CBaseFrame", "Redo all actions up to this point"),
                                   QT_TRANSLATE_NOOP("CBaseFrame", "No redo actions available")};

// What needs no selected attribute works on the list from wherever the focus is.
bool IsOfWholeList(int id)
{
    return id == ID_EXPAND_ALL || id == ID_COLLAPSE_ALL;
}

// Entry i runs i + 1 steps.
void FillList(QMenu& menu, const std::vector<std::u16string>& labels, const SListTexts& texts,
              const std::function<void(std::size_t)>& run)
{
    menu.clear();
    if (labels.empty())
    {
        QAction* none = menu.addAction(QStringLiteral("[none]"));
        none->setEnabled(false);
        none->setStatusTip(CBaseFrame::tr(texts.m_sNone));
        return;
    }
    for (std::size_t i = 0; i < labels.size(); ++i)
    {
        QAction* entry = menu.addAction(ToQString(labels[i]));
        entry->setStatusTip(CBaseFrame::tr(i == 0 ? texts.m_sFirst : texts.m_sOthers));
        QObject::connect(entry, &QAction::triggered, &menu, [run, i] { run(i + 1); });
    }
}
} // namespace

const CBaseFrame::SHandler* CBaseFrame::FindHandler(int id) const
{
    const std::span<const SHandler> handlers = GetHandlers();
    const auto found = std::find_if(handlers.begin(), handlers.end(),
                                    [id](const SHandler& handler) { return handler.m_nId == id; });
    return found == handlers.end() ? nullptr : &*found;
}

bool CBaseFrame::GetCommandState(int id, SCommandState& state)
{
    if (IsOfWholeList(id))
        return m_pList->GetCommandState(id, state);
    const SHandler* handler = FindHandler(id);
    if (handler == nullptr)
        return false;
    state.m_bEnabled = IsEnabled(handler->m_Guard);
    if (handler->m_Guard == EGuard::NotConnected)
        state.m_sWhyNot = tr("Not connected to source control.");
    if (handler->m_Guard == EGuard::Later)
        state.m_sWhyNot = tr("This comes with a later version.");
    bool checked = false;
    if (IsChecked(id, checked))
        state.m_bChecked = checked;
    return true;
}

bool CBaseFrame::RunCommand(int id)
{
    if (IsOfWholeList(id))
        return m_pList->RunCommand(id);
    const SHandler* handler = FindHandler(id);
    if (handler == nullptr || handler->m_pRun == nullptr)
        return false;
    (this->*handler->m_pRun)();
    return true;
}

bool CBaseFrame::IsEnabled(EGuard guard) const
{
    constexpr std::uint32_t kBusy = APP_LOADING | APP_RELOADING;
    const bool open = m_Manager.IsOpen() && !GetContext().m_Run.Test(kBusy) && !m_Main.IsWorking();
    switch (guard)
    {
    case EGuard::Always:
        return !m_Main.IsWorking();
    case EGuard::Open:
        return open;
    case EGuard::Undo:
        return open && m_Undo.GetUndoCount() != 0;
    case EGuard::Redo:
        return open && m_Undo.GetRedoCount() != 0;
    case EGuard::NotConnected:
    case EGuard::Later:
        break;
    }
    return false;
}

// What is being typed becomes an entry of its own ahead of the list. A label of the core has its mnemonic
// marked already, and '&' doubled where a name has one.
void CBaseFrame::UpdateUndoMenu()
{
    m_Main.EndAllEdits();
    FillList(*m_pUndoMenu, m_Undo.GetUndoLabels(), kUndoTexts, [this](std::size_t steps) { RunUndo(steps); });
}

void CBaseFrame::UpdateRedoMenu()
{
    FillList(*m_pRedoMenu, m_Undo.GetRedoLabels(), kRedoTexts, [this](std::size_t steps) { RunRedo(steps); });
}

void CBaseFrame::RunUndo(std::size_t steps)
{
    m_Main.EndAllEdits();
    m_Undo.Undo(steps);
}

void CBaseFrame::RunRedo(std::size_t steps)
{
    m_Main.EndAllEdits();
    m_Undo.Redo(steps);
}

void CBaseFrame::OnSave()
{
    m_Main.EndAllEdits();
    // What could not be written was told, and waits for the next save.
    if (m_Manager.SaveDatabase({}, false))
        ShowMessage(u"The database has been saved.");
    if (m_pDocument)
        m_pDocument->UpdateViews(ERecordUpdate::Reloaded);
}

void CBaseFrame::ShowMessage(std::u16string_view text)
{
    statusBar()->showMessage(ToQString(text), kMessageTime);
}

void CBaseFrame::OnExpertMode()
{
    m_Main.ToggleExpertMode(*this);
}

void CBaseFrame::OnRefreshAttributes()
{
    m_Main.EndAllEdits();
    m_Manager.Notify(CCorvaneEvent(ECorvaneEvent::AttributesChanged, static_cast<CCorvaneRecord*>(nullptr)));
}
