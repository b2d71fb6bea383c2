#include "BaseFrame.h"

#include "BuildPane.h"
#include "CommandSet.h"
#include "Commands.h"
#include "Context.h"
#include "CorvaneDoc.h"
#include "CorvaneHtmlView.h"
#include "CorvaneListView.h"
#include "CorvaneMgr.h"
#include "IconSet.h"
#include "MainFrame.h"
#include "Profile.h"
#include "QtText.h"
#include "RatioSplitter.h"
#include "RunState.h"
#include "UndoMgr.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>

namespace
{
constexpr std::u16string_view kBarSection = u"ControlBars\\";
constexpr std::u16string_view kBarKey = u"State";

QMenu* MakeListMenu(CBaseFrame& frame, const char* name, const char* icon, const QString& title)
{
    auto* menu = new QMenu(title, &frame);
    menu->setIcon(GetIcon(icon));
    menu->setObjectName(QString::fromLatin1(name));
    menu->setToolTipsVisible(true);
    return menu;
}

// The toolkit takes "[*]" in a title for its own mark of changes; twice it is that text.
QString EscapeTitle(QString title)
{
    return title.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}
} // namespace

CBaseFrame::CBaseFrame(CMainFrame& main, CCorvaneMgr& manager, CUndoMgr& undo)
    : m_Main(main), m_Manager(manager), m_Undo(undo), m_pCommands(new CCommandSet(*this)),
      m_pUndoMenu(MakeListMenu(*this, "undoMenu", "undo", tr("&Undo"))),
      m_pRedoMenu(MakeListMenu(*this, "redoMenu", "redo", tr("&Redo"))),
      m_pListSplitter(new CRatioSplitter(Qt::Vertical, this)), m_pHelp(new CCorvaneHtmlView(m_pListSplitter)),
      m_pBuildPane(new CBuildPane(this)), m_EventHandle(manager.AddObserver(
                                              [this](const CCorvaneEvent& event)
                                              {
                                                  OnEvent(event);
                                                  return 0;
                                              }))
{
    m_pCommands->SetFrameTarget(this);
    connect(m_pUndoMenu, &QMenu::aboutToShow, this, &CBaseFrame::UpdateUndoMenu);
    connect(m_pRedoMenu, &QMenu::aboutToShow, this, &CBaseFrame::UpdateRedoMenu);
    m_pHelp->SetServices(GetContext().m_Services);
    statusBar()->addPermanentWidget(m_pBuildPane);
    m_pBuildPane->SetBuild(manager.GetActiveBuild());
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { OnFocusChanged(now); });
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            &CBaseFrame::OnIdle);
}

CBaseFrame::~CBaseFrame() = default;

void CBaseFrame::CreatePanes()
{
    m_pList = new CCorvaneListView(*this, m_pListSplitter);
    m_pListSplitter->insertWidget(0, m_pList);
    // A key works also where no menu or bar has the command.
    for (const SCommand& command : GetCommands())
        static_cast<void>(m_pCommands->Get(command.m_nId));
}

void CBaseFrame::DestroyPanes()
{
    disconnect(qApp, nullptr, this, nullptr);
    m_pCommands->SetFrameTarget(nullptr);
    m_pCommands->SetActivePane(nullptr);
    delete m_pList;
}

const CCorvaneContext& CBaseFrame::GetContext() const
{
    return m_Manager.GetContext();
}

void CBaseFrame::SetDocument(std::shared_ptr<CCorvaneDoc> document)
{
    m_pList->SetDocument(document.get());
    m_ViewHandle = {};
    m_pDocument = std::move(document);
    if (m_pDocument)
        m_ViewHandle = m_pDocument->AddView(
            [this](ERecordUpdate hint)
            {
                OnDocument(hint);
                return 0;
            });
    UpdateTitle();
}

CCorvaneRecord* CBaseFrame::GetRecord() const
{
    return m_pDocument ? m_pDocument->GetRecord() : nullptr;
}

void CBaseFrame::EndEdit()
{
    m_pList->EndEdit(true);
}

void CBaseFrame::ActivateList()
{
    m_pList->setFocus(Qt::OtherFocusReason);
}

// A document tells ahead of letting go, and a new record may follow at once.
void CBaseFrame::OnDocument(ERecordUpdate hint)
{
    m_pCommands->Touch();
    if (hint == ERecordUpdate::Attached)
        UpdateTitle();
    if (hint != ERecordUpdate::Detached)
        return;
    const auto after = [this]
    {
        if (GetRecord() != nullptr)
            return;
        UpdateTitle();
        OnRecordGone();
    };
    QMetaObject::invokeMethod(this, after, Qt::QueuedConnection);
}

void CBaseFrame::OnEvent(const CCorvaneEvent& event)
{
    m_pCommands->Touch();
    switch (event.GetCode())
    {
    case ECorvaneEvent::ActiveBuildChanged:
        m_pBuildPane->SetBuild(m_Manager.GetActiveBuild());
        if (!GetContext().m_Run.Test(APP_SETTINGS))
            m_pBuildPane->ShowBalloon(tr("Active Build"), tr("The active build number has changed."));
        break;
    case ECorvaneEvent::LoadEnd:
    case ECorvaneEvent::CloseEnd:
    case ECorvaneEvent::RecordRenamed:
    case ECorvaneEvent::RecordMoved:
    case ECorvaneEvent::CategoryRenamed:
    case ECorvaneEvent::CategoryMoved:
        UpdateTitle();
        break;
    default:
        break;
    }
}

void CBaseFrame::UpdateTitle()
{
    setWindowTitle(EscapeTitle(MakeTitle()));
}

QMenu* CBaseFrame::AddMenu(const QString& title, const char* name, std::span<const int> ids)
{
    QMenu* menu = menuBar()->addMenu(title);
    menu->setObjectName(QString::fromLatin1(name));
    m_pCommands->Fill(*menu, ids);
    return menu;
}

QToolBar* CBaseFrame::AddBar(const QString& title, const char* name, std::span<const int> ids)
{
    QToolBar* bar = addToolBar(title);
    bar->setObjectName(QString::fromLatin1(name));
    bar->setAccessibleName(title);
    m_pCommands->Fill(*bar, ids);
    for (const auto& [id, menu] : {std::pair(ID_UNDO_FIRST, m_pUndoMenu), {ID_REDO_FIRST, m_pRedoMenu}})
    {
        auto* button = qobject_cast<QToolButton*>(bar->widgetForAction(&m_pCommands->Get(id)));
        if (button == nullptr)
            continue;
        button->setPopupMode(QToolButton::MenuButtonPopup);
        button->setMenu(menu);
    }
    return bar;
}

void CBaseFrame::RestoreBars(std::u16string_view name)
{
    const std::u16string text =
        GetContext().m_Profile.GetString(std::u16string(kBarSection).append(name), kBarKey, u"");
    if (!text.empty())
        restoreState(QByteArray::fromBase64(ToQString(text).toLatin1()));
}

void CBaseFrame::StoreBars(std::u16string_view name) const
{
    GetContext().m_Profile.SetString(std::u16string(kBarSection).append(name), kBarKey,
                                     ToText(QString::fromLatin1(saveState().toBase64())));
}

void CBaseFrame::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        m_pCommands->Touch();
    QMainWindow::changeEvent(event);
}

// Menus and bars keep the pane that was active ahead of them.
void CBaseFrame::OnFocusChanged(QWidget* now)
{
    ICommandTarget* pane = now != nullptr ? FindPane(*now) : nullptr;
    if (pane != nullptr && pane != m_pCommands->GetActivePane())
        m_pCommands->SetActivePane(pane);
}

ICommandTarget* CBaseFrame::FindPane(const QWidget& focus)
{
    return m_pList->isAncestorOf(&focus) || m_pList == &focus ? m_pList : nullptr;
}

// The undo list tells nobody of a new entry; a look at two numbers does, whenever there is nothing else to
// do.
void CBaseFrame::OnIdle()
{
    const std::size_t undo = m_Undo.GetUndoCount();
    const std::size_t redo = m_Undo.GetRedoCount();
    if (undo == m_nUndoShown && redo == m_nRedoShown)
        return;
    m_nUndoShown = undo;
    m_nRedoShown = redo;
    m_pCommands->Touch();
}
