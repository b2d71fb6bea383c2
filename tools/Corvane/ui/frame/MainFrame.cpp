#include "MainFrame.h"

#include "CommandSet.h"
#include "Commands.h"
#include "CompileView.h"
#include "Context.h"
#include "CorvaneDoc.h"
#include "CorvaneMgr.h"
#include "CorvaneTreeView.h"
#include "FormatText.h"
#include "FrameMenus.h"
#include "IconSet.h"
#include "Profile.h"
#include "ProgressModalDlg.h"
#include "QtText.h"
#include "RatioSplitter.h"
#include "RecordFrame.h"
#include "RunState.h"
#include "UiModule.h"
#include "WindowPlacement.h"
#include "WindowPump.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenu>
#include <QStatusBar>
#include <QToolBar>

namespace
{
constexpr std::u16string_view kSection = u"General";
constexpr std::u16string_view kBars = u"MainBarState";
constexpr std::u16string_view kTreeSplitter = u"Splitter.TreeView";
constexpr std::u16string_view kListSplitter = u"Splitter.ListView";
constexpr float kTreeRatio = 0.3F;
constexpr float kListRatio = 0.8F;
constexpr int kFirstWidth = 1200; // Of a first start.
constexpr int kFirstHeight = 800;
} // namespace

CMainFrame::CMainFrame(ICorvaneApplication& application, CWindowPump& pump, IFileDialogs& dialogs)
    : CBaseFrame(*this, application.GetManager(), application.GetUndo()), m_Application(application),
      m_Pump(pump), m_Dialogs(dialogs), m_pTreeSplitter(new CRatioSplitter(Qt::Horizontal, this)),
      m_pMainDocument(application.GetDocument(), [](CCorvaneDoc*) {}),
      m_pCompileView(std::make_unique<CCompileView>(*this, this)),
      m_pCompiler(std::make_unique<CDatabaseCompiler>(application.GetManager(), m_pCompileView.get()))
{
    setObjectName(QStringLiteral("CMainFrame"));
    setWindowIcon(GetIcon("corvane"));
    setAcceptDrops(true);
    m_pTree = new CCorvaneTreeView(*this, m_pTreeSplitter);
    CreatePanes();
    m_pTreeSplitter->addWidget(&GetListSplitter());
    setCentralWidget(m_pTreeSplitter);
    GetCommandSet().SetActivePane(m_pTree);
    MakeMenus();
    MakeBars();
    SetDocument(m_pMainDocument);
    RestorePlace();
    ActivateTree();
    GetCommandSet().Touch();
}

CMainFrame::~CMainFrame()
{
    for (CRecordFrame* frame : GetRecordFrames())
        delete frame;
    delete m_pTree;
    DestroyPanes();
}

void CMainFrame::MakeMenus()
{
    CCommandSet& commands = GetCommandSet();
    m_pFileMenu = AddMenu(tr("&File"), "fileMenu", GetMenuCommands(EFrameMenu::FileHead));
    m_pSourceControlMenu = m_pFileMenu->addMenu(tr("Source &Control"));
    m_pSourceControlMenu->setObjectName(QStringLiteral("sourceControlMenu"));
    commands.Fill(*m_pSourceControlMenu, GetMenuCommands(EFrameMenu::SourceControl));
    m_pFileMenu->addSeparator();
    m_pRecentEnd = m_pFileMenu->addSeparator();
    for (const int id : GetMenuCommands(EFrameMenu::FileEnd))
        m_pFileMenu->addAction(&commands.Get(id));
    connect(m_pFileMenu, &QMenu::aboutToShow, this, &CMainFrame::UpdateRecentFiles);

    QMenu* edit = AddMenu(tr("&Edit"), "editMenu", {});
    edit->addMenu(GetUndoMenu());
    edit->addMenu(GetRedoMenu());
    edit->addSeparator();
    commands.Fill(*edit, GetMenuCommands(EFrameMenu::Edit));
    QMenu* view = AddMenu(tr("&View"), "viewMenu", {});
    QMenu* bars = view->addMenu(tr("&Toolbars"));
    bars->setObjectName(QStringLiteral("toolBarsMenu"));
    commands.Fill(*bars, GetMenuCommands(EFrameMenu::ToolBars));
    view->addSeparator();
    commands.Fill(*view, GetMenuCommands(EFrameMenu::View));
    AddMenu(tr("&Database"), "databaseMenu", GetMenuCommands(EFrameMenu::Database));
    AddMenu(tr("&Help"), "helpMenu", GetMenuCommands(EFrameMenu::Help));
}

void CMainFrame::MakeBars()
{
    m_pStandardBar = AddBar(tr("Standard"), "standardBar", GetBarCommands(EFrameBar::Standard));
    m_pSourceControlBar =
        AddBar(tr("Source Control"), "sourceControlBar", GetBarCommands(EFrameBar::SourceControl));
    m_pViewBar = AddBar(tr("View"), "viewBar", GetBarCommands(EFrameBar::View));
}

void CMainFrame::RestorePlace()
{
    resize(kFirstWidth, kFirstHeight);
    const CWindowPlacement place(GetContext().m_Profile, kSection);
    place.Restore(*this, !GetContext().m_Run.m_bSilent);
    place.RestoreSplitter(*m_pTreeSplitter, kTreeSplitter, kTreeRatio);
    place.RestoreSplitter(GetListSplitter(), kListSplitter, kListRatio);
    RestoreBars(kBars);
}

void CMainFrame::StorePlace()
{
    const CWindowPlacement place(GetContext().m_Profile, kSection);
    place.Store(*this);
    place.StoreSplitter(*m_pTreeSplitter, kTreeSplitter);
    place.StoreSplitter(GetListSplitter(), kListSplitter);
    StoreBars(kBars);
}

QString CMainFrame::MakeTitle() const
{
    if (!GetManager().IsOpen())
        return QStringLiteral("Corvane");
    const std::u16string& name = GetManager().GetRootFile().m_sName;
    std::u16string path;
    if (GetRecord() == nullptr || !GetManager().GetRecordDisplayPath(GetRecord(), path))
        return ToQString(FormatText(u"%s - Corvane", name));
    return ToQString(FormatText(u"%s - Corvane - [%s]", name, path));
}

void CMainFrame::OnEvent(const CCorvaneEvent& event)
{
    CBaseFrame::OnEvent(event);
    if (event.GetCode() == ECorvaneEvent::CloseBegin)
        CloseRecordFrames();
}

bool CMainFrame::IsWorking() const
{
    return m_Pump.IsWorking();
}

void CMainFrame::ActivateTree()
{
    m_pTree->setFocus(Qt::OtherFocusReason);
}

ICommandTarget* CMainFrame::FindPane(const QWidget& focus)
{
    if (m_pTree == &focus || m_pTree->isAncestorOf(&focus))
        return m_pTree;
    return CBaseFrame::FindPane(focus);
}

void CMainFrame::EndAllEdits()
{
    m_pTree->EndEdit();
    EndEdit();
    for (CRecordFrame* frame : GetRecordFrames())
        frame->EndEdit();
}

// A close in the middle of work would pull the database away from under it, and one below a dialog the
// dialog's owner.
void CMainFrame::closeEvent(QCloseEvent* event)
{
    event->ignore();
    if (IsWorking())
    {
        m_Pump.Cancel();
        return;
    }
    if (QWidget* modal = QApplication::activeModalWidget())
    {
        if (auto* work = dynamic_cast<CProgressModalDlg*>(modal))
            work->reject();
        return;
    }
    EndAllEdits();
    if (!m_Application.BeginClose())
        return;
    StorePlace();
    CloseRecordFrames();
    GetDocument()->SetRecord(nullptr);
    event->accept();
    if (m_OnClosed)
        m_OnClosed();
}
