#include "recordlink/CorvaneTypeRecordLinkValueActivateDlg.h"

#include "CorvaneMgr.h"
#include "IconSet.h"
#include "Profile.h"
#include "QtText.h"
#include "RatioSplitter.h"
#include "Theme.h"
#include "WindowPlacement.h"
#include "host/Questions.h"
#include "recordlink/CorvaneTypeRecordLink.h"
#include "recordlink/RecordLinkListView.h"
#include "recordlink/RecordLinkMru.h"
#include "recordlink/RecordLinkTreeView.h"

#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QCompleter>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStringListModel>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>
#include <algorithm>
#include <limits>
#include <utility>

namespace
{
constexpr std::u16string_view kSection = u"Dialogs\\RecordLink";
constexpr std::u16string_view kSplitter = u"Splitter";
constexpr std::u16string_view kViewMode = u"ViewMode";
constexpr float kSplitterRatio = 0.35F;
// Values of ViewMode; the numbers are those of other programs' list controls.
constexpr int kDetails = 1;
constexpr int kNames = 3;
constexpr SColumnKey kColumns[] = {{u"ColumnName", 200}, {u"ColumnComment", 200}};
constexpr std::size_t kMaxCompletions = 50;

bool ChangesTheTree(ECorvaneEvent code)
{
    switch (code)
    {
    case ECorvaneEvent::ReloadEnd:
    case ECorvaneEvent::CategoryAdded:
    case ECorvaneEvent::CategoryDeleted:
    case ECorvaneEvent::CategoryMoved:
    case ECorvaneEvent::CategoryRenamed:
    case ECorvaneEvent::RecordAdded:
    case ECorvaneEvent::RecordDeleted:
    case ECorvaneEvent::RecordMoved:
    case ECorvaneEvent::RecordRenamed:
        return true;
    default:
        return false;
    }
}
} // namespace

CCorvaneTypeRecordLinkValueActivateDlg::CCorvaneTypeRecordLinkValueActivateDlg(CCorvaneTypeRecordLink& link,
                                                                               std::u16string_view value,
                                                                               QWidget* parent)
    : QDialog(parent), m_pRecordLink(&link), m_Manager(*link.GetManager()), m_sGiven(value), m_sValue(value),
      m_Tree(m_Manager.GetRootFile().m_sName)
{
    setObjectName(QStringLiteral("RecordLinkDlg"));
    setWindowTitle(QStringLiteral("Select Record - %1").arg(ToQString(link.GetName())));
    m_pLayout = new QVBoxLayout(this);
    m_pLayout->setContentsMargins(CTheme::kMargin, CTheme::kMargin, CTheme::kMargin, CTheme::kMargin);
    m_pLayout->setSpacing(CTheme::kSpacing);
    BuildBox();
    BuildToolBar();
    BuildPanes();
    m_pNote = new QLabel(this);
    m_pNote->setObjectName(QStringLiteral("RecordNote"));
    m_pNote->setTextFormat(Qt::PlainText);
    m_pNote->setWordWrap(true);
    m_pNote->setMinimumHeight(m_pNote->fontMetrics().height());
    m_pLayout->addWidget(m_pNote);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    m_pLayout->addWidget(buttons);

    m_pFollow = new QTimer(this);
    m_pFollow->setSingleShot(true);
    connect(m_pFollow, &QTimer::timeout, this, [this] { Follow(); });
    m_Observer = m_Manager.AddObserver(
        [this](const CCorvaneEvent& event)
        {
            if (event.GetCode() == ECorvaneEvent::CloseBegin)
                reject();
            else if (ChangesTheTree(event.GetCode()))
                m_pFollow->start(0);
            return 0;
        });
    Restore();
    PopulateTree();
    ShowValue();
}

CCorvaneTypeRecordLinkValueActivateDlg::~CCorvaneTypeRecordLinkValueActivateDlg()
{
    Store();
}

void CCorvaneTypeRecordLinkValueActivateDlg::BuildBox()
{
    m_pPath = new QComboBox(this);
    m_pPath->setObjectName(QStringLiteral("RecordPath"));
    m_pPath->setAccessibleName(QStringLiteral("Record"));
    m_pPath->setEditable(true);
    m_pPath->setInsertPolicy(QComboBox::NoInsert);
    m_pPath->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_pPath->setMinimumContentsLength(30);
    m_pPath->lineEdit()->setObjectName(QStringLiteral("RecordPathEdit"));
    m_pPath->lineEdit()->setAccessibleName(QStringLiteral("Record"));
    m_pPath->lineEdit()->setMaxLength(std::numeric_limits<int>::max());
    m_pCompletions = new QStringListModel(this);
    auto* completer = new QCompleter(m_pCompletions, this);
    completer->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->popup()->setObjectName(QStringLiteral("RecordCompletions"));
    m_pPath->setCompleter(completer);
    connect(m_pPath->lineEdit(), &QLineEdit::textEdited, this,
            [this](const QString& text) { OnTextEdited(text); });
    connect(m_pPath, &QComboBox::editTextChanged, this, [this] { UpdateNote(); });

    auto* label = new QLabel(QStringLiteral("&Record:"), this);
    label->setBuddy(m_pPath);
    auto* row = new QHBoxLayout;
    row->setSpacing(CTheme::kSpacing);
    row->addWidget(label);
    row->addWidget(m_pPath, 1);
    m_pLayout->addLayout(row);
}

void CCorvaneTypeRecordLinkValueActivateDlg::BuildToolBar()
{
    auto* bar = new QToolBar(this);
    bar->setObjectName(QStringLiteral("RecordBar"));
    bar->setAccessibleName(QStringLiteral("Categories and view"));
    bar->setIconSize(QSize(CTheme::kIconSize, CTheme::kIconSize));
    const auto add = [&](const char* icon, const QString& text, const QString& tip, const char* name)
    {
        QAction* action = bar->addAction(GetIcon(icon), text);
        action->setToolTip(tip);
        QWidget* button = bar->widgetForAction(action);
        button->setObjectName(QLatin1String(name));
        button->setAccessibleName(text);
        button->setFocusPolicy(Qt::TabFocus);
        return action;
    };
    m_pBack = add("arrow-left", QStringLiteral("Back"), QStringLiteral("Back (Alt+Left)"), "Back");
    m_pBack->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Left));
    connect(m_pBack, &QAction::triggered, this, [this] { GoBack(); });
    m_pUp =
        add("arrow-up", QStringLiteral("Up"), QStringLiteral("Up one category (Alt+Up, Backspace)"), "Up");
    m_pUp->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Up));
    connect(m_pUp, &QAction::triggered, this, [this] { GoUp(); });
    bar->addSeparator();
    m_pDetails = add("details", QStringLiteral("Details"), QStringLiteral("Show comments"), "Details");
    m_pDetails->setCheckable(true);
    connect(m_pDetails, &QAction::toggled, this, [this](bool on) { m_pList->SetDetails(on); });
    bar->addSeparator();
    QAction* none =
        add("clear", QStringLiteral("No Record"), QStringLiteral("Link to no record"), "NoRecord");
    connect(none, &QAction::triggered, this, [this] { SetPath(kNoRecord); });
    m_pLayout->addWidget(bar);
}

void CCorvaneTypeRecordLinkValueActivateDlg::BuildPanes()
{
    m_pSplitter = new CRatioSplitter(Qt::Horizontal, this);
    m_pSplitter->setObjectName(QStringLiteral("RecordSplitter"));
    m_pSplitter->setChildrenCollapsible(false);
    m_pTree = new CRecordLinkTreeView(m_Manager.GetContext().m_Profile, m_pSplitter);
    m_pTree->m_OnNode = [this](std::size_t node) { ShowNode(node, true); };
    m_pTree->m_OnEnter = [this] { m_pList->Enter(); };
    m_pTree->installEventFilter(this);
    m_pList = new CRecordLinkListView(m_pSplitter);
    m_pList->m_OnOpenCategory = [this](std::size_t node)
    {
        ShowNode(node, true);
        m_pList->Enter();
    };
    m_pList->m_OnSelectRecord = [this](CCorvaneRecord& record)
    {
        std::u16string path;
        m_Manager.GetRecordPath(&record, path);
        SetPath(path);
    };
    m_pList->m_OnTakeRecord = [this](CCorvaneRecord& record)
    {
        m_pList->m_OnSelectRecord(record);
        accept();
    };
    for (QAbstractItemView* view : m_pList->findChildren<QAbstractItemView*>())
        view->installEventFilter(this);
    m_pLayout->addWidget(m_pSplitter, 1);
}

void CCorvaneTypeRecordLinkValueActivateDlg::Restore()
{
    CProfile& profile = m_Manager.GetContext().m_Profile;
    resize(720, 460);
    const CWindowPlacement placement(profile, kSection);
    placement.Keep(*this);
    placement.RestoreSplitter(*m_pSplitter, kSplitter, kSplitterRatio);
    placement.RestoreColumns(m_pList->GetHeader(), kColumns);
    m_pDetails->setChecked(profile.GetInteger(kSection, kViewMode, kDetails) == kDetails);
    m_pList->SetDetails(m_pDetails->isChecked());
}

void CCorvaneTypeRecordLinkValueActivateDlg::Store() const
{
    CProfile& profile = m_Manager.GetContext().m_Profile;
    const CWindowPlacement placement(profile, kSection);
    placement.StoreSplitter(*m_pSplitter, kSplitter);
    placement.StoreColumns(m_pList->GetHeader(), kColumns);
    profile.SetInteger(kSection, kViewMode, m_pList->IsDetails() ? kDetails : kNames);
}

void CCorvaneTypeRecordLinkValueActivateDlg::PopulateTree()
{
    m_Tree = CLinkCategoryTree(m_Manager.GetRootFile().m_sName);
    if (const CCorvaneTypeRecordLinkData* allowed = m_pRecordLink->GetRecordLinkAttribData())
        m_Tree.PopulateTree(allowed->GetCategoryList());
    m_pTree->SetTree(m_Tree);
}

void CCorvaneTypeRecordLinkValueActivateDlg::ShowValue()
{
    m_pPath->addItem(ToQString(m_sGiven));
    for (const std::u16string& path : CRecordLinkMru(m_pRecordLink.Get()).Load())
    {
        if (!EqualNames(path, m_sGiven))
            m_pPath->addItem(ToQString(path));
    }
    m_pPath->setCurrentIndex(0);
    m_pPath->lineEdit()->selectAll();
    m_pPath->setFocus();
    const CCorvaneRecord* record = m_Manager.FindRecord(m_sGiven, nullptr);
    const std::size_t home = record ? m_Tree.FindHome(*record) : CLinkCategoryTree::kNone;
    ShowNode(home != CLinkCategoryTree::kNone ? home : CLinkCategoryTree::kRoot, false);
    if (home != CLinkCategoryTree::kNone)
        m_pList->SelectRecord(*record);
    UpdateNote();
}

// The panes after a change of the database: at the same category, or the nearest one above that is left.
void CCorvaneTypeRecordLinkValueActivateDlg::Follow()
{
    std::u16string path = m_Tree.GetNode(m_nNode).m_sPath;
    const CRef<CCorvaneRecord> record(m_pList->GetRecord());
    PopulateTree();
    std::size_t node = m_Tree.Find(path);
    while (node == CLinkCategoryTree::kNone)
    {
        const std::size_t end = path.rfind(u'/');
        path.resize(end != std::u16string::npos ? end : 0);
        node = m_Tree.Find(path);
    }
    ShowNode(node, false);
    if (record)
        m_pList->SelectRecord(*record);
    UpdateNote();
}

void CCorvaneTypeRecordLinkValueActivateDlg::ShowNode(std::size_t node, bool remember)
{
    if (remember && node != m_nNode)
        m_History.push_back(m_Tree.GetNode(m_nNode).m_sPath);
    m_nNode = node;
    m_pTree->SetNode(node);
    m_pList->SetNode(m_Tree, node);
    m_pBack->setEnabled(!m_History.empty());
    m_pUp->setEnabled(node != CLinkCategoryTree::kRoot);
}

void CCorvaneTypeRecordLinkValueActivateDlg::GoUp()
{
    const std::size_t from = m_nNode;
    if (from == CLinkCategoryTree::kRoot)
        return;
    ShowNode(m_Tree.GetNode(from).m_nParent, true);
    m_pList->SelectNode(from);
}

void CCorvaneTypeRecordLinkValueActivateDlg::GoBack()
{
    while (!m_History.empty())
    {
        const std::size_t node = m_Tree.Find(m_History.back());
        m_History.pop_back();
        if (node != CLinkCategoryTree::kNone)
            return ShowNode(node, false);
    }
    m_pBack->setEnabled(false);
}

void CCorvaneTypeRecordLinkValueActivateDlg::SetPath(std::u16string_view path)
{
    m_pPath->setEditText(ToQString(path));
}

void CCorvaneTypeRecordLinkValueActivateDlg::OnTextEdited(const QString& text)
{
    QStringList texts;
    for (const std::u16string& completion : m_Tree.Complete(ToText(text), kMaxCompletions))
        texts.push_back(ToQString(completion));
    m_pCompletions->setStringList(texts);
}

// Who types may use either separator.
CCorvaneRecord* CCorvaneTypeRecordLinkValueActivateDlg::FindRecord(std::u16string text) const
{
    CCorvaneRecord* record = m_Manager.FindRecord(text, nullptr);
    std::replace(text.begin(), text.end(), u'\\', u'/');
    return record ? record : m_Manager.FindRecord(text, nullptr);
}

// Tells ahead of OK what would come of the text.
void CCorvaneTypeRecordLinkValueActivateDlg::UpdateNote()
{
    const std::u16string text = ToText(m_pPath->currentText());
    QString note;
    const CCorvaneRecord* record = IsNoRecord(text) || text.empty() ? nullptr : FindRecord(text);
    const CCorvaneTypeRecordLinkData* allowed = m_pRecordLink->GetRecordLinkAttribData();
    const CCorvaneSchema* schema = record ? record->GetSchema() : nullptr;
    if (schema != nullptr && allowed != nullptr && !allowed->IsAllowed(*schema))
        note = QStringLiteral("Records of the schema '%1' are not valid here.")
                   .arg(ToQString(schema->GetName()));
    else if (record == nullptr && m_Tree.GetCount() == 1)
        note = QStringLiteral("There is no category with valid records.");
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, CTheme::Get().GetColor(EThemeColor::Warning));
    m_pNote->setPalette(colors);
    m_pNote->setText(note);
}

void CCorvaneTypeRecordLinkValueActivateDlg::accept()
{
    // The attribute may have gone while the dialog was open.
    if (m_pRecordLink->GetOwnerRecord() == nullptr)
        return reject();
    const std::u16string text = ToText(m_pPath->currentText());
    if (text.empty() || IsNoRecord(text))
    {
        m_sValue = kNoRecord;
        return QDialog::accept();
    }
    const CCorvaneRecord* record = FindRecord(text);
    if (record == nullptr)
    {
        m_Manager.GetContext().m_Questions.Tell(
            u"Invalid Record",
            u"The following record does not exist and cannot be used as a RecordLink value:\n\n" + text);
        m_pPath->setFocus();
        m_pPath->lineEdit()->selectAll();
        return;
    }
    // The value that was there stands as it is, in either form that a link may have.
    if (EqualNames(text, m_sGiven))
        m_sValue = m_sGiven;
    else
        m_Manager.GetRecordPath(record, m_sValue);
    CRecordLinkMru(m_pRecordLink.Get()).Save(m_sValue);
    QDialog::accept();
}

void CCorvaneTypeRecordLinkValueActivateDlg::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    m_pList->ScrollToCurrent(); // Only now has the pane its size.
}

bool CCorvaneTypeRecordLinkValueActivateDlg::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || static_cast<QKeyEvent*>(event)->key() != Qt::Key_Backspace)
        return QDialog::eventFilter(object, event);
    GoUp();
    return true;
}
