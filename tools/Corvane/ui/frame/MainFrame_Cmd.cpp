// The commands on the whole database.
#include "MainFrame.h"

#include "AboutDlg.h"
#include "Commands.h"
#include "Context.h"
#include "CorvaneDoc.h"
#include "CorvaneMgr.h"
#include "CorvaneTreeView.h"
#include "FileDialogs.h"
#include "FileFilter.h"
#include "FileSystem.h"
#include "FormatText.h"
#include "NameCompare.h"
#include "Path.h"
#include "Profile.h"
#include "QtText.h"
#include "RecentFileList.h"
#include "RunState.h"
#include "SettingsSheet.h"
#include "UiModule.h"
#include "WaitCursor.h"
#include "WarningAdvancedSettingsDlg.h"
#include "host/Questions.h"

#include <QDragEnterEvent>
#include <QMenu>
#include <QMimeData>
#include <QToolBar>
#include <algorithm>

namespace
{
constexpr std::u16string_view kRootExtension = u"Gamdb00s";
constexpr int kRecentWidth = 400; // Pixels of a path in the menu.

// The one root file that is dragged, or empty text.
std::u16string GetDroppedRoot(const QMimeData& data)
{
    const QList<QUrl> urls = data.urls();
    if (urls.size() != 1 || !urls.front().isLocalFile())
        return {};
    std::u16string path = ToText(urls.front().toLocalFile());
    const std::u16string extension = u"." + std::u16string(kRootExtension);
    return EqualNames(SplitPath(path).extension, extension) ? path : std::u16string();
}

SFileDialog MakeRootDialog(std::u16string_view title, std::u16string_view path)
{
    SFileDialog dialog{std::u16string(title), std::u16string(path), std::u16string(kRootExtension), {}};
    BuildFileFilter(dialog.m_sFilter, {FILE_FILTER_DATABASE_ROOT, FILE_FILTER_ALL});
    return dialog;
}
} // namespace

std::span<const CBaseFrame::SHandler> CMainFrame::GetHandlers() const
{
    using FRun = void (CBaseFrame::*)();
    static constexpr SHandler kHandlers[] = {
        {ID_FILE_OPEN, EGuard::Always, static_cast<FRun>(&CMainFrame::OnOpen)},
        {ID_FILE_SAVE, EGuard::Open, &CMainFrame::OnSave},
        {ID_FILE_SAVE_AS, EGuard::Open, static_cast<FRun>(&CMainFrame::OnSaveAs)},
        {ID_UNDO_FIRST, EGuard::Undo, &CMainFrame::OnUndo},
        {ID_REDO_FIRST, EGuard::Redo, &CMainFrame::OnRedo},
        {ID_EXPERT_MODE, EGuard::Always, &CMainFrame::OnExpertMode},
        {ID_REFRESH_ATTRIBUTES, EGuard::Open, &CMainFrame::OnRefreshAttributes},
        {ID_REFRESH_STATUS, EGuard::Open, static_cast<FRun>(&CMainFrame::OnRefreshStatus)},
        {ID_BAR_STANDARD, EGuard::Always, static_cast<FRun>(&CMainFrame::OnBarStandard)},
        {ID_BAR_VIEW, EGuard::Always, static_cast<FRun>(&CMainFrame::OnBarView)},
        {ID_BAR_SOURCE_CONTROL, EGuard::Always, static_cast<FRun>(&CMainFrame::OnBarSourceControl)},
        {ID_COMPILE_LOCAL, EGuard::Open, static_cast<FRun>(&CMainFrame::OnCompileLocal)},
        {ID_COMPILE_SERVER, EGuard::Open, static_cast<FRun>(&CMainFrame::OnCompileServer)},
        {ID_OVERRIDE_OUTPUT, EGuard::Open, static_cast<FRun>(&CMainFrame::OnOverrideOutput)},
        {ID_SAVE_DEPENDENCIES, EGuard::Open, static_cast<FRun>(&CMainFrame::OnSaveDependencies)},
        {ID_VALIDATE_DATABASE, EGuard::Open, static_cast<FRun>(&CMainFrame::OnValidateDatabase)},
        {ID_DEFERRED_ATTRIBUTES, EGuard::Open, static_cast<FRun>(&CMainFrame::OnDeferredAttributes)},
        {ID_MODIFIED_ATTRIBUTES, EGuard::Open, static_cast<FRun>(&CMainFrame::OnModifiedAttributes)},
        {ID_FOCUS_FILTER, EGuard::Open, static_cast<FRun>(&CMainFrame::OnFocusFilter)},
        {ID_SETTINGS, EGuard::Always, static_cast<FRun>(&CMainFrame::OnSettings)},
        {ID_APP_ABOUT, EGuard::Always, static_cast<FRun>(&CMainFrame::OnAbout)},
        {ID_APP_EXIT, EGuard::Always, &CMainFrame::OnClose},
        {ID_SUBMIT_ALL, EGuard::NotConnected, nullptr},
        {ID_UNDO_ALL, EGuard::NotConnected, nullptr},
        {ID_SYNCHRONIZE, EGuard::NotConnected, nullptr},
        {ID_GET_LATEST_ALL, EGuard::NotConnected, nullptr},
        {ID_SEARCH_CHECK_OUTS, EGuard::NotConnected, nullptr},
        {ID_FIND_REPLACE, EGuard::Later, nullptr},
        {ID_FIND_TEXT, EGuard::Later, nullptr},
        {ID_COMPARE_RECORD, EGuard::Later, nullptr},
    };
    return kHandlers;
}

QToolBar* CMainFrame::FindBar(int id) const
{
    switch (id)
    {
    case ID_BAR_STANDARD:
        return m_pStandardBar;
    case ID_BAR_VIEW:
        return m_pViewBar;
    case ID_BAR_SOURCE_CONTROL:
        return m_pSourceControlBar;
    default:
        return nullptr;
    }
}

bool CMainFrame::IsChecked(int id, bool& checked) const
{
    const QToolBar* bar = FindBar(id);
    if (bar == nullptr && id != ID_EXPERT_MODE)
        return false;
    checked = bar != nullptr ? !bar->isHidden() : GetContext().m_Run.Test(APP_EXPERT);
    return true;
}

void CMainFrame::ToggleBar(int id)
{
    FindBar(id)->setVisible(FindBar(id)->isHidden());
}

void CMainFrame::OnBarStandard()
{
    ToggleBar(ID_BAR_STANDARD);
}

void CMainFrame::OnBarView()
{
    ToggleBar(ID_BAR_VIEW);
}

void CMainFrame::OnBarSourceControl()
{
    ToggleBar(ID_BAR_SOURCE_CONTROL);
}

void CMainFrame::OnOpen()
{
    const std::u16string path =
        m_Dialogs.OpenFile(this, MakeRootDialog(u"Open", GetManager().GetRootFilePath()));
    if (!path.empty())
        OpenDatabase(path);
}

void CMainFrame::OpenDatabase(std::u16string_view path)
{
    EndAllEdits();
    m_Application.OpenDocumentFile(path);
    StoreRecentFiles();
    UpdateTitle();
    ActivateTree();
}

// Written at once: a run that ends badly must not lose the list.
void CMainFrame::StoreRecentFiles()
{
    m_Application.GetRecentFiles().Store(GetContext().m_Profile);
    static_cast<void>(GetContext().m_Profile.Save());
}

void CMainFrame::UpdateRecentFiles()
{
    for (QAction* action : m_RecentActions)
        delete action;
    m_RecentActions.clear();
    const std::vector<std::u16string>& files = m_Application.GetRecentFiles().GetFiles();
    for (std::size_t i = 0; i < files.size(); ++i)
    {
        const QString path = ToQString(files[i]);
        QString shown = m_pFileMenu->fontMetrics().elidedText(path, Qt::ElideMiddle, kRecentWidth);
        auto* action = new QAction(
            QStringLiteral("&%1 %2").arg(i + 1).arg(shown.replace(QStringLiteral("&"), QStringLiteral("&&"))),
            m_pFileMenu);
        action->setObjectName(QStringLiteral("recent%1").arg(i + 1));
        action->setToolTip(path);
        action->setStatusTip(path);
        connect(action, &QAction::triggered, this, [this, file = files[i]] { OpenRecentFile(file); });
        m_pFileMenu->insertAction(m_pRecentEnd, action);
        m_RecentActions.push_back(action);
    }
}

void CMainFrame::OpenRecentFile(const std::u16string& path)
{
    const CCorvaneContext& context = GetContext();
    if (context.m_Files.Exists(path))
    {
        OpenDatabase(path);
        return;
    }
    const CQuestion remove = MakeQuestion(
        u"Open Failed",
        FormatText(u"The file '%s' could not be found.\n\nWould you like to remove it from the recent files?",
                   path),
        EButtons::YesNo, EIcon::Question);
    if (context.m_Questions.Ask(remove) != EAnswer::Yes)
        return;
    m_Application.GetRecentFiles().Remove(path);
    StoreRecentFiles();
}

void CMainFrame::OnSaveAs()
{
    EndAllEdits();
    const std::u16string path =
        m_Dialogs.SaveFile(this, MakeRootDialog(u"Save As", GetManager().GetRootFilePath()));
    if (!path.empty() && GetManager().IsOpen())
        static_cast<void>(GetManager().SaveDatabase(path, true));
}

void CMainFrame::OnFocusFilter()
{
    m_pTree->FocusFilter();
}

void CMainFrame::OnSettings()
{
    EndAllEdits();
    ShowSettings(*this);
}

void CMainFrame::OnAbout()
{
    CAboutDlg(this).exec();
}

// Only the way into expert mode is warned about.
void CMainFrame::ToggleExpertMode(CBaseFrame& frame)
{
    EndAllEdits();
    const CCorvaneContext& context = GetContext();
    if (context.m_Run.Test(APP_EXPERT) || CWarningAdvancedSettingsDlg::Confirm(context.m_Profile, &frame))
        GetManager().ToggleExpertMode();
}

void CMainFrame::RefreshStatus()
{
    EndAllEdits();
    const CWaitCursor wait;
    GetManager().RefreshDatabase();
    m_pTree->RefreshState();
}

void CMainFrame::dragEnterEvent(QDragEnterEvent* event)
{
    if (!IsWorking() && !GetDroppedRoot(*event->mimeData()).empty())
        event->acceptProposedAction();
}

// The other program waits for the end of the drop, and a load may take its time and ask.
void CMainFrame::dropEvent(QDropEvent* event)
{
    const std::u16string path = GetDroppedRoot(*event->mimeData());
    if (path.empty())
        return;
    event->acceptProposedAction();
    QMetaObject::invokeMethod(
        this, [this, path] { OpenDatabase(path); }, Qt::QueuedConnection);
}
