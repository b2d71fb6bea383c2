#include "RecordFrame.h"

#include "CommandSet.h"
#include "Commands.h"
#include "Context.h"
#include "CorvaneDoc.h"
#include "CorvaneListView.h"
#include "CorvaneMgr.h"
#include "FormatText.h"
#include "FrameMenus.h"
#include "IconSet.h"
#include "MainFrame.h"
#include "QtText.h"
#include "RatioSplitter.h"
#include "RunState.h"
#include "UiModule.h"
#include "ValidateCore.h"
#include "ValidateDlg.h"
#include "WindowPlacement.h"
#include "host/Questions.h"

#include <QCloseEvent>
#include <QMenu>
#include <QToolBar>

namespace
{
constexpr std::u16string_view kSection = u"Dialogs\\Record Frame";
constexpr std::u16string_view kBars = u"RecordBarState";
constexpr std::u16string_view kSplitter = u"Splitter";
constexpr float kListRatio = 0.8F;
constexpr int kFirstWidth = 800; // Of a first start.
constexpr int kFirstHeight = 600;
} // namespace

CRecordFrame::CRecordFrame(CMainFrame& main, ICorvaneApplication& application,
                           std::shared_ptr<CCorvaneDoc> document)
    : CBaseFrame(main, application.GetManager(), application.GetUndo())
{
    setObjectName(QStringLiteral("CRecordFrame"));
    setWindowIcon(GetIcon("record"));
    setAttribute(Qt::WA_DeleteOnClose);
    CreatePanes();
    GetCommandSet().SetActivePane(&GetListView());
    AddMenu(tr("&Record"), "recordMenu", GetMenuCommands(EFrameMenu::RecordFile));
    QMenu* edit = AddMenu(tr("&Edit"), "editMenu", {});
    edit->addMenu(GetUndoMenu());
    edit->addMenu(GetRedoMenu());
    edit->addSeparator();
    GetCommandSet().Fill(*edit, GetMenuCommands(EFrameMenu::RecordEdit));
    AddMenu(tr("&View"), "viewMenu", GetMenuCommands(EFrameMenu::RecordView));
    AddBar(tr("Standard - Record"), "recordBar", GetBarCommands(EFrameBar::Record));
    setCentralWidget(&GetListSplitter());
    SetDocument(std::move(document));
    resize(kFirstWidth, kFirstHeight);
    const CWindowPlacement place(GetContext().m_Profile, kSection);
    place.Restore(*this);
    place.RestoreSplitter(GetListSplitter(), kSplitter, kListRatio);
    RestoreBars(kBars);
}

CRecordFrame::~CRecordFrame()
{
    DestroyPanes();
}

IEditor& CRecordFrame::GetEditor()
{
    return m_Main;
}

QString CRecordFrame::MakeTitle() const
{
    std::u16string path;
    if (GetRecord() != nullptr)
        static_cast<void>(GetManager().GetRecordDisplayPath(GetRecord(), path));
    return ToQString(FormatText(u"%s - Record - [%s]", GetManager().GetRootFile().m_sName, path));
}

void CRecordFrame::BringToFront()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
}

std::span<const CBaseFrame::SHandler> CRecordFrame::GetHandlers() const
{
    using FRun = void (CBaseFrame::*)();
    static constexpr SHandler kHandlers[] = {
        {ID_FILE_SAVE, EGuard::Open, &CRecordFrame::OnSave},
        {ID_UNDO_FIRST, EGuard::Undo, &CRecordFrame::OnUndo},
        {ID_REDO_FIRST, EGuard::Redo, &CRecordFrame::OnRedo},
        {ID_EXPERT_MODE, EGuard::Always, &CRecordFrame::OnExpertMode},
        {ID_REFRESH_ATTRIBUTES, EGuard::Open, &CRecordFrame::OnRefreshAttributes},
        {ID_VALIDATE_RECORD, EGuard::Open, static_cast<FRun>(&CRecordFrame::OnValidateRecord)},
        {ID_CLOSE_FRAME, EGuard::Always, &CRecordFrame::OnClose},
    };
    return kHandlers;
}

bool CRecordFrame::IsChecked(int id, bool& checked) const
{
    if (id != ID_EXPERT_MODE)
        return false;
    checked = GetContext().m_Run.Test(APP_EXPERT);
    return true;
}

void CRecordFrame::OnValidateRecord()
{
    EndEdit();
    const CRef<CCorvaneRecord> record(GetRecord());
    if (!record)
        return;
    const std::uint32_t build = GetManager().GetActiveBuild();
    CValidateCore core(build);
    static_cast<void>(core.ValidateRecord(*record));
    if (core.GetErrors().empty())
        GetContext().m_Questions.Tell(u"No Errors Detected", u"No errors were detected within this record.",
                                      EIcon::Information);
    else
        CValidateDlg(m_Main, this).DoModalFor(core, build);
}

void CRecordFrame::closeEvent(QCloseEvent* event)
{
    EndEdit();
    const CWindowPlacement place(GetContext().m_Profile, kSection);
    place.Store(*this);
    place.StoreSplitter(GetListSplitter(), kSplitter);
    StoreBars(kBars);
    const std::shared_ptr<CCorvaneDoc> document = GetDocument();
    SetDocument(nullptr);
    m_Main.ReleaseDocument(document);
    event->accept();
}
