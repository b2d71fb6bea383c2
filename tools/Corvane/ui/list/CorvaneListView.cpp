#include "CorvaneListView.h"

#include "CommandSet.h"
#include "Commands.h"
#include "CorvaneDoc.h"
#include "CorvaneHtmlView.h"
#include "CorvaneListViewHeader.h"
#include "CorvaneListViewList.h"
#include "CorvaneMgr.h"
#include "CorvaneRecord.h"
#include "Editor.h"
#include "HelpContent.h"
#include "QtText.h"

#include <QGridLayout>
#include <QMenu>
#include <QPointer>
#include <QScrollBar>
#include <QTimer>

namespace
{
struct SColumn
{
    const char* m_sTitle;
    int m_nWidth;
    const char* m_sIcon;
    const char* m_sToolTip;
};

constexpr SColumn kColumns[COLUMN_COUNT] = {
    {"", 18, nullptr, ""},
    {"Name", CCorvaneListViewHeader::kSharedWidth, nullptr, ""},
    {"Type", 70, nullptr, ""},
    {"Build", 90, nullptr, ""},
    {"Lock User", 100, nullptr, ""},
    {"", 20, "lock", "Lock"},
    {"", 20, "inherit", "Reference"},
    {"", 20, "override", "Override"},
    {"", 20, "todo", "Todo"},
    {"", 20, "placeholder", "Placeholder"},
};

constexpr int kValueMenu[] = {ID_EDIT,   ID_SEPARATOR, ID_MOVE_UP,   ID_MOVE_DOWN,
                              ID_DELETE, ID_SEPARATOR, ID_PROPERTIES};
constexpr int kAttributeMenu[] = {ID_EXPAND_ALL, ID_COLLAPSE_ALL, ID_SEPARATOR, ID_LOCK,
                                  ID_REFERENCE,  ID_OVERRIDE,     ID_TODO,      ID_PLACEHOLDER};
constexpr int kExpertMenu[] = {ID_SEPARATOR, ID_DEFER_DELETE, ID_DEFER_DEPRECATE, ID_IMMEDIATE_DELETE};
constexpr int kPropertiesMenu[] = {ID_SEPARATOR, ID_PROPERTIES};
} // namespace

CCorvaneListView::CCorvaneListView(IEditorFrame& frame, QWidget* parent)
    : QWidget(parent), m_Frame(frame), m_pHeader(new CCorvaneListViewHeader(this)),
      m_pScrollBar(new QScrollBar(Qt::Vertical, this)),
      m_pList(new CCorvaneListViewList(frame, *m_pHeader, *m_pScrollBar, this))
{
    setObjectName(QStringLiteral("AttributeListPane"));
    m_pScrollBar->setObjectName(QStringLiteral("AttributeListScrollBar"));
    m_pScrollBar->setAccessibleName(QStringLiteral("Scroll attributes"));
    for (const SColumn& column : kColumns)
        m_pHeader->AddColumn(QString::fromLatin1(column.m_sTitle), QString::fromLatin1(column.m_sToolTip),
                             column.m_nWidth, column.m_sIcon);
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_pHeader, 0, 0);
    layout->addWidget(m_pList, 1, 0);
    layout->addWidget(m_pScrollBar, 0, 1, 2, 1);
    layout->setRowStretch(1, 1);
    setFocusProxy(m_pList);
    m_pHeader->SetSortCallback([this](int column) { m_pList->SortByColumn(column); });
    m_pList->SetHooks({[this] { UpdateHelp(); }, [this](const QPoint& point) { OnPopup(point); },
                       [this] { m_Frame.GetCommandSet().SetActivePane(this); }});
    m_pList->RecalcScrollBar();
}

CCorvaneListView::~CCorvaneListView()
{
    SetDocument(nullptr);
    if (m_Frame.GetCommandSet().GetActivePane() == this)
        m_Frame.GetCommandSet().SetActivePane(nullptr);
    m_pList->SetHooks({});
}

void CCorvaneListView::SetDocument(CCorvaneDoc* document)
{
    if (m_pDocument == document)
        return;
    m_DocumentHandle.Reset();
    m_pDocument = document;
    if (document != nullptr)
    {
        m_DocumentHandle = document->AddView(
            [this](ERecordUpdate hint)
            {
                OnUpdate(hint);
                return 0;
            });
    }
    ShowRecord(document ? document->GetRecord() : nullptr);
}

void CCorvaneListView::ShowRecord(CCorvaneRecord* record)
{
    m_pList->SetRecord(record, true);
    ShowPage(record ? ToQString(BuildRecordHelp(*record)) : QString());
    m_sPage.clear(); // Whoever opened the record may put up another page.
}

void CCorvaneListView::OnUpdate(ERecordUpdate hint)
{
    switch (hint)
    {
    case ERecordUpdate::Attached:
        ShowRecord(m_pDocument->GetRecord());
        break;
    case ERecordUpdate::Detached:
    {
        // A record that was deleted takes no value any more.
        const CCorvaneRecord* record = m_pList->GetRecord();
        m_pList->SetRecord(nullptr, record != nullptr && record->IsInTree());
        break;
    }
    case ERecordUpdate::Reloaded:
        m_pList->InvalidateRows();
        break;
    case ERecordUpdate::AttributesChanged:
        m_pList->InvalidateRows();
        break;
    }
}

void CCorvaneListView::EndEdit(bool commit)
{
    m_pList->EndEdit(commit);
}

bool CCorvaneListView::SelectAttribute(const CCorvaneAttrib& attrib, int item)
{
    m_pList->Flush();
    const CCorvaneAttrib* outer = &attrib;
    while (outer->GetParentAttrib() != nullptr)
        outer = outer->GetParentAttrib();
    for (int i = 0; i < m_pList->GetAttributeCount(); ++i)
    {
        CCorvaneTypeView& view = *m_pList->GetAttribute(i);
        if (&view.GetParentType() != outer)
            continue;
        m_pList->SetSelection(i);
        view.SelectAttribute(attrib, item);
        m_pList->MeasureAttribute(i);
        m_pList->MakeSelectionVisible();
        UpdateHelp();
        return true;
    }
    return false;
}

CCorvaneTypeView* CCorvaneListView::GetTarget() const
{
    m_pList->Flush();
    CCorvaneTypeView* row = m_pList->GetSelectedRow();
    return row ? &row->GetSelectedView() : nullptr;
}

void CCorvaneListView::UpdateHelp()
{
    m_Frame.GetCommandSet().Touch();
    if (m_Frame.GetHelpView() == nullptr)
        return;
    CCorvaneTypeView* row = m_pList->GetSelectedRow();
    if (row == nullptr)
    {
        if (!m_sPage.isEmpty())
            ShowPage({});
        return;
    }
    const CCorvaneType& member = row->GetSelectedAttribute();
    const bool isMember = &member != &row->GetParentType();
    const QString page = ToQString(BuildAttributeHelp(row->GetParentType(), isMember ? &member : nullptr));
    if (page != m_sPage)
        ShowPage(page);
}

void CCorvaneListView::ShowPage(const QString& page)
{
    CCorvaneHtmlView* help = m_Frame.GetHelpView();
    if (help == nullptr)
        return;
    m_sPage = page;
    if (page.isEmpty())
        help->Clear();
    else
        help->NavigateMemory(page);
}

void CCorvaneListView::OnPopup(const QPoint& point)
{
    const CCorvaneTypeView* target = GetTarget();
    if (target == nullptr)
        return;
    CCommandSet& commands = m_Frame.GetCommandSet();
    commands.SetActivePane(this);
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setObjectName(QStringLiteral("AttributeListMenu"));
    if (target->GetActiveSubItem() != kHeaderItem)
    {
        commands.Fill(*menu, kValueMenu);
        menu->setDefaultAction(&commands.Get(ID_EDIT));
    }
    else
    {
        const int first = target->IsExpanded() ? ID_COLLAPSE : ID_EXPAND;
        commands.Fill(*menu, {&first, 1});
        commands.Fill(*menu, kAttributeMenu);
        if (IsExpert())
            commands.Fill(*menu, kExpertMenu);
        commands.Fill(*menu, kPropertiesMenu);
    }
    m_pList->SetPopupOpen(true);
    connect(menu, &QMenu::aboutToHide, m_pList,
            [list = m_pList] { QTimer::singleShot(0, list, [list] { list->SetPopupOpen(false); }); });
    menu->popup(point);
}
