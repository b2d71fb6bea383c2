#include "CorvaneTreeView.h"

#include "CommandSet.h"
#include "Commands.h"
#include "CorvaneEvent.h"
#include "CorvaneHtmlView.h"
#include "CorvaneMgr.h"
#include "CorvaneTreeModel.h"
#include "Editor.h"
#include "IconSet.h"
#include "Profile.h"
#include "QtText.h"
#include "RunState.h"
#include "SourceGate.h"
#include "Theme.h"
#include "TreeClipboard.h"
#include "TreeControl.h"
#include "TreeDestination.h"
#include "TreeFiltering.h"
#include "TreeItemDelegate.h"
#include "TreeLabelEdit.h"
#include "TreeMenus.h"
#include "UiModule.h"
#include "host/Services.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScopedValueRollback>
#include <QTimer>
#include <QVBoxLayout>
#include <utility>

namespace
{
constexpr std::u16string_view kSettings = u"Tree Control";

CTreeItem GetCompleted(const CCorvaneEvent& event)
{
    if (event.GetCode() == ECorvaneEvent::RecordComplete && event.GetRecord())
        return CTreeItem(*event.GetRecord());
    if (event.GetCode() == ECorvaneEvent::CategoryComplete && event.GetCategory())
        return CTreeItem(*event.GetCategory());
    return {};
}

// From the first object that comes to the last that gets another name.
bool IsStructureEvent(ECorvaneEvent code)
{
    return (code >= ECorvaneEvent::CategoryAdded && code <= ECorvaneEvent::CategoryRenamed) ||
           code == ECorvaneEvent::RecordReloaded;
}
} // namespace

CCorvaneTreeView::CCorvaneTreeView(IEditorFrame& frame, QWidget* parent)
    : QWidget(parent), m_Frame(frame), m_Manager(frame.GetEditor().GetApplication().GetManager()),
      m_pFilter(new QLineEdit(this)), m_pCount(new QLabel(this)),
      m_pModel(new CCorvaneTreeModel(m_Manager, this)), m_pTree(new CTreeControl(*m_pModel, this)),
      m_pFiltering(new CTreeFiltering(m_Manager, *m_pModel, *m_pTree, this)),
      m_pLabelEdit(new CTreeLabelEdit(frame, *m_pModel, *m_pTree, this)),
      m_pClipboard(new CTreeClipboard(frame, this)), m_pCountUpdate(new QTimer(this))
{
    CreateControls();
    ConnectTree();
    ConnectFilter();
    ReadSettings();
    m_Settings = m_Manager.GetContext().m_Run.m_Settings.Add(
        [this](ESettingsEvent, std::u16string_view)
        {
            ReadSettings();
            return 0;
        });
    // Behind the model's own, so that rows are as they should be.
    m_Events = m_Manager.AddObserver(
        [this](const CCorvaneEvent& event)
        {
            OnEvent(event);
            return 0;
        });
    m_pTree->expand(m_pModel->index(0, 0));
}

// The frame may be on its way out, too: an editor that ends with the tree has nobody to tell.
CCorvaneTreeView::~CCorvaneTreeView()
{
    m_pTree->m_Hooks = {};
    m_pTree->GetDelegate().m_OnEditorGone = nullptr;
}

void CCorvaneTreeView::CreateControls()
{
    m_pTree->setObjectName(QStringLiteral("tree"));
    m_pTree->setAccessibleName(QStringLiteral("Database"));
    m_pFilter->setObjectName(QStringLiteral("filter"));
    m_pFilter->setAccessibleName(QStringLiteral("Filter by name"));
    m_pFilter->setPlaceholderText(QStringLiteral("Filter by name"));
    m_pFilter->addAction(GetIcon("filter"), QLineEdit::LeadingPosition);
    m_pFilter->setClearButtonEnabled(true);
    m_pCount->setObjectName(QStringLiteral("matches"));
    m_pCount->setContentsMargins(CTheme::kGrid, 0, CTheme::kGrid, 0);
    m_pCount->hide();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(CTheme::kGrid);
    // Side by side, so that the rows stay in their places when the count appears.
    auto* filter = new QHBoxLayout;
    filter->setSpacing(0);
    filter->addWidget(m_pFilter, 1);
    filter->addWidget(m_pCount);
    layout->addLayout(filter);
    layout->addWidget(m_pTree, 1);
    setFocusProxy(m_pTree);
}

void CCorvaneTreeView::ConnectTree()
{
    CTreeControl::SHooks& hooks = m_pTree->m_Hooks;
    hooks.m_Tab = [this] { m_Frame.ActivateList(); };
    hooks.m_Enter = [this]
    {
        if (!RunCommand(ID_OPEN_RECORD) && GetSelected().IsCategory())
            RunCommand(ID_EXPAND);
    };
    hooks.m_Escape = [this] { m_pFilter->clear(); };
    hooks.m_Focus = [this] { m_Frame.GetCommandSet().SetActivePane(this); };
    hooks.m_Clicked = [this]
    {
        if (std::exchange(m_bOpenOnRelease, false))
            OpenSelected();
    };
    hooks.m_MayDrag = [](const CTreeItem& item) { return CTreeClipboard::IsAllowed(item); };
    hooks.m_IsDropValid = [](const CTreeItem& source, const CTreeItem& target)
    { return IsDestinationValid(source, target.GetDestination(), true); };
    hooks.m_Drop = [this](const CTreeItem& source, const CTreeItem& target)
    {
        if (MoveTreeItem(m_Frame, source, *target.GetDestination()))
            Select(source);
    };
    hooks.m_BadDrop = [this] { m_Manager.GetContext().m_Services.Beep(); };
    hooks.m_GetTip = [this](const QModelIndex& index, const QPoint& position)
    { return GetTip(index, position); };
    m_pTree->GetDelegate().m_IsCut = [this](const QModelIndex& index)
    { return m_pClipboard->IsMarked(m_pModel->GetItem(index)); };
    m_pClipboard->m_OnMarks = [this] { m_pTree->viewport()->update(); };

    connect(m_pTree->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current, const QModelIndex& previous)
            { OnCurrentChanged(current, previous); });
    connect(m_pTree, &QTreeView::doubleClicked, this,
            [this](const QModelIndex& index) { OnActivated(index); });
    connect(m_pTree, &QTreeView::expanded, this,
            [this](const QModelIndex& index)
            {
                m_pModel->ForgetStates(index);
                m_Frame.GetCommandSet().Touch();
            });
    connect(m_pTree, &QTreeView::collapsed, this, [this] { m_Frame.GetCommandSet().Touch(); });
    connect(m_pTree, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& position) { ShowMenu(position); });
}

void CCorvaneTreeView::ConnectFilter()
{
    m_pFilter->installEventFilter(this);
    connect(m_pFilter, &QLineEdit::textChanged, this,
            [this](const QString& text)
            {
                EndEdit();
                m_pFiltering->SetText(text);
            });
    m_pFiltering->m_OnApplied = [this] { UpdateCount(); };
    m_pCountUpdate->setSingleShot(true);
    m_pCountUpdate->setInterval(0);
    connect(m_pCountUpdate, &QTimer::timeout, this, [this] { UpdateCount(); });
}

void CCorvaneTreeView::ReadSettings()
{
    const CProfile& profile = m_Manager.GetContext().m_Profile;
    m_bSingleClickActivate = profile.GetInteger(kSettings, u"Single.Click.Activate", 1) != 0;
    m_bSingleClickExpand = profile.GetInteger(kSettings, u"Single.Click.Expand", 0) != 0;
    m_pTree->SetTrackSelect(profile.GetInteger(kSettings, u"Track.Select", 0) != 0);
}

bool CCorvaneTreeView::IsSilent() const
{
    return m_Manager.GetContext().m_Run.m_bSilent;
}

void CCorvaneTreeView::OnEvent(const CCorvaneEvent& event)
{
    switch (event.GetCode())
    {
    case ECorvaneEvent::CloseBegin:
        m_pFiltering->OnClosed();
        m_pLabelEdit->OnClosed();
        m_pClipboard->OnClosed();
        UpdateCount();
        break;
    case ECorvaneEvent::LoadEnd:
        m_pTree->GetDelegate().m_bStates = m_Manager.GetGate().IsConnected();
        m_pTree->expand(m_pModel->index(0, 0));
        m_pFiltering->OnLoaded();
        break;
    default:
        break;
    }
    if (m_pModel->IsLoading())
        return;
    if (IsStructureEvent(event.GetCode()))
    {
        m_pFiltering->OnStructureChanged();
        m_pCountUpdate->start();
    }
    OnObjectComplete(GetCompleted(event));
    const CCorvaneCategory* added = event.GetCategory();
    if (event.GetCode() == ECorvaneEvent::CategoryAdded && added && added->GetCategoryType() != 0)
        m_pTree->expand(m_pModel->FindIndex(CTreeItem(*event.GetCategory())));
}

void CCorvaneTreeView::OnObjectComplete(const CTreeItem& item)
{
    const bool byUser =
        !m_pModel->IsRefreshing() && !m_Manager.GetContext().m_Run.Test(APP_RELOADING | APP_CLOSING);
    const CCorvaneCategory* category = item.GetDestination();
    if (!byUser || category == nullptr || !category->IsAttached())
        return;
    if (CTreeLabelEdit::IsAllowed(item))
        m_pLabelEdit->BeginLater(item);
    else
        m_pModel->Keep(item);
}

CTreeItem CCorvaneTreeView::GetSelected() const
{
    return m_pModel->GetItem(m_pTree->currentIndex());
}

bool CCorvaneTreeView::Select(const CTreeItem& item)
{
    const QModelIndex index = m_pModel->Locate(item);
    if (!index.isValid())
        return false;
    const QScopedValueRollback quiet(m_bQuiet, true);
    m_pTree->setCurrentIndex(index);
    m_pTree->scrollTo(index);
    return true;
}

bool CCorvaneTreeView::SelectRecord(CCorvaneRecord& record)
{
    return Select(CTreeItem(record));
}

bool CCorvaneTreeView::SelectCategory(CCorvaneCategory& category)
{
    return Select(CTreeItem(category));
}

void CCorvaneTreeView::RefreshState()
{
    m_pTree->GetDelegate().m_bStates = m_Manager.GetGate().IsConnected();
    m_pModel->ForgetAllStates();
    m_pTree->viewport()->update();
}

void CCorvaneTreeView::EndEdit()
{
    m_pLabelEdit->Finish();
}

void CCorvaneTreeView::OnCurrentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    m_Frame.GetCommandSet().Touch();
    if (m_bQuiet || m_pFiltering->IsRestoring() || !current.isValid())
        return;
    if (m_bSingleClickExpand)
        ExpandSingle(current, previous);
    if (!m_pModel->GetItem(current).IsRecord())
    {
        if (CCorvaneHtmlView* help = m_Frame.GetHelpView())
            help->Clear();
        return;
    }
    if (!m_bSingleClickActivate)
        return;
    // A press may be the begin of a drag, which opens nothing.
    m_bOpenOnRelease = m_pTree->IsPressed();
    if (!m_bOpenOnRelease)
        OpenSelected();
}

void CCorvaneTreeView::ExpandSingle(const QModelIndex& current, const QModelIndex& previous)
{
    QModelIndex above = current;
    while (above.isValid() && above != previous)
        above = above.parent();
    if (previous.isValid() && !above.isValid())
        m_pTree->collapse(previous);
    m_pTree->expand(current);
}

void CCorvaneTreeView::OnActivated(const QModelIndex& index)
{
    const CTreeItem item = m_pModel->GetItem(index);
    if (item.IsRecord() && !m_bSingleClickActivate)
        Open(item);
}

void CCorvaneTreeView::OpenSelected()
{
    const CTreeItem item = GetSelected();
    if (item.IsRecord() && item.IsInTree())
        Open(item);
}

bool CCorvaneTreeView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_pFilter || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Escape && key != Qt::Key_Down && key != Qt::Key_Return && key != Qt::Key_Enter)
        return false;
    OnFilterKey(key);
    return true;
}

void CCorvaneTreeView::OnFilterKey(int key)
{
    if (key == Qt::Key_Escape)
    {
        m_pFilter->clear();
        m_pTree->setFocus();
        return;
    }
    m_pFiltering->Finish();
    const QModelIndex match = m_pFiltering->FindFirstMatch();
    if (match.isValid())
        m_pTree->setCurrentIndex(match);
    if (match.isValid() || !m_pFiltering->IsActive())
        m_pTree->setFocus();
}

void CCorvaneTreeView::UpdateCount()
{
    const QString text = m_pFiltering->GetCountText();
    if (text == m_pCount->text())
        return;
    m_pCount->setText(text);
    m_pCount->setVisible(!text.isEmpty());
    m_pFilter->setAccessibleDescription(text);
}

void CCorvaneTreeView::FocusFilter()
{
    m_pFilter->setFocus();
    m_pFilter->selectAll();
}

void CCorvaneTreeView::ShowMenu(const QPoint& position)
{
    QModelIndex index = m_pTree->indexAt(position);
    if (!index.isValid())
        return;
    m_Frame.GetCommandSet().SetActivePane(this);
    m_pTree->setCurrentIndex(index);
    const CTreeItem item = GetSelected();
    if (item.IsNone())
        return; // Opening it took it away.
    CCommandSet& commands = m_Frame.GetCommandSet();
    const std::span<const int> ids = GetTreeMenu(item);
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("treeMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    commands.Fill(*menu, ids);
    menu->setDefaultAction(&commands.Get(ids.front()));
    QMenu* control = new QMenu(QStringLiteral("Source Co&ntrol"), menu);
    commands.Fill(*control, GetTreeControlMenu(ReadControlClass(m_Manager.GetGate(), item)));
    menu->insertMenu(&commands.Get(ID_PROPERTIES), control);
    menu->insertSeparator(&commands.Get(ID_PROPERTIES));
    menu->popup(m_pTree->viewport()->mapToGlobal(position));
}

QString CCorvaneTreeView::GetTip(const QModelIndex& index, const QPoint& position) const
{
    const CTreeItemDelegate& delegate = m_pTree->GetDelegate();
    const QRect row = m_pTree->visualRect(index);
    const CTreeItem item = m_pModel->GetItem(index);
    CSourceGate& gate = m_Manager.GetGate();
    if (gate.IsConnected() && delegate.GetStateRect(row).contains(position))
        return ToQString(ReadStateTip(gate, item, index.data(CCorvaneTreeModel::StateRole).toInt()));
    if (gate.IsConnected() && delegate.GetIconRect(row).contains(position))
        return ToQString(ReadVersionTip(gate, item));
    // A name that is cut off.
    const QString name = index.data(Qt::EditRole).toString();
    const int width = m_pTree->fontMetrics().horizontalAdvance(name.left(1024));
    return width > delegate.GetLabelRect(row).width() - 2 * CTheme::kGrid ? name : QString();
}
