#include "DeferredAttribDlg.h"

#include "AttributeUseModel.h"
#include "CorvaneEvent.h"
#include "CorvaneMgr.h"
#include "DeferredEntryModel.h"
#include "DialogParts.h"
#include "DialogTable.h"
#include "Editor.h"
#include "RatioSplitter.h"
#include "Theme.h"
#include "UiModule.h"
#include "WaitCursor.h"
#include "WindowPlacement.h"
#include "host/Questions.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>

namespace
{
constexpr std::u16string_view kSection = u"Dialogs\\Deferred Attribute";
constexpr std::u16string_view kSplitter = u"Splitter";
constexpr float kEntryShare = 0.5F;
constexpr QSize kFirstSize(820, 560);

// A list below its title, as one pane of a splitter.
QWidget* MakeListPane(QTableView& table, const QString& title)
{
    auto* pane = new QWidget;
    auto* layout = new QVBoxLayout(pane);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(CTheme::kGrid);
    auto* label = new QLabel(title);
    label->setBuddy(&table);
    layout->addWidget(label);
    layout->addWidget(&table);
    return pane;
}
} // namespace

CDeferredAttribDlg::CDeferredAttribDlg(IEditor& editor, QWidget* parent)
    : QDialog(parent), m_Editor(editor), m_List(editor.GetApplication().GetManager()),
      m_pEntries(new CDeferredEntryModel(
          m_List, [this] { UpdateDelete(); }, this)),
      m_pUses(new CAttributeUseModel(this)), m_pOperation(new QComboBox), m_pBuild(new QComboBox),
      m_pSplitter(new CRatioSplitter(Qt::Vertical)), m_pDelete(new QPushButton(tr("&Delete")))
{
    setObjectName(QStringLiteral("DeferredAttribDlg"));
    setWindowTitle(tr("Deferred Attributes"));
    QBoxLayout& layout = MakeDialogLayout(*this);
    AddSearch(layout);
    AddLists(layout);
    AddButtons(layout);
    UpdateDelete();
    m_EventHandle = editor.GetApplication().GetManager().AddObserver(
        [this](const CCorvaneEvent& event)
        {
            if (event.GetCode() == ECorvaneEvent::CloseBegin)
                LetGo();
            return 0;
        });
    resize(kFirstSize);
    const CWindowPlacement placement(editor.GetApplication().GetContext().m_Profile, kSection);
    placement.RestoreSplitter(*m_pSplitter, kSplitter, kEntryShare);
    placement.Keep(*this);
}

void CDeferredAttribDlg::AddSearch(QBoxLayout& layout)
{
    auto* operationLabel = new QLabel(tr("Find &Operation:"));
    operationLabel->setBuddy(m_pOperation);
    SetNames(*m_pOperation, "Operation", tr("Find Operation"));
    m_pOperation->addItem(tr("Deleted"), static_cast<int>(EDeferOperation::Deleted));
    m_pOperation->addItem(tr("Deprecated"), static_cast<int>(EDeferOperation::Deprecated));

    auto* buildLabel = new QLabel(tr("Find &Build:"));
    buildLabel->setBuddy(m_pBuild);
    SetNames(*m_pBuild, "Build", tr("Find Build"));
    m_pBuild->setEditable(true);
    m_pBuild->setInsertPolicy(QComboBox::NoInsert);
    m_pBuild->setLineEdit(new CBuildNumberEdit);
    m_pBuild->setCompleter(nullptr);
    FillHistory();
    if (m_pBuild->count() == 0)
        m_pBuild->setEditText(QString::number(m_Editor.GetApplication().GetManager().GetActiveBuild()));

    auto* find = new QPushButton(tr("&Find"));
    SetNames(*find, "Find", tr("Find"));
    find->setDefault(true);
    connect(find, &QPushButton::clicked, this, [this] { Find(); });

    auto* row = new QHBoxLayout;
    row->addWidget(operationLabel);
    row->addWidget(m_pOperation);
    row->addSpacing(CTheme::kSpacing);
    row->addWidget(buildLabel);
    row->addWidget(m_pBuild);
    row->addWidget(find);
    row->addStretch();
    layout.addLayout(row);
}

void CDeferredAttribDlg::AddLists(QBoxLayout& layout)
{
    auto* entries = new CDialogTable(*m_pEntries, CDeferredEntryModel::kColumnWidths);
    SetNames(*entries, "Entries", tr("Attributes"));
    auto* uses = new CDialogTable(*m_pUses, CAttributeUseModel::kColumnWidths);
    SetNames(*uses, "Uses", tr("Records"));
    connect(uses, &QTableView::doubleClicked, this,
            [this](const QModelIndex& index)
            {
                if (CCorvaneRecord* record = m_pUses->GetRecord(index.row()))
                    m_Editor.OpenRecordFrame(record, true);
            });
    m_pSplitter->addWidget(MakeListPane(*entries, tr("&Attributes:")));
    m_pSplitter->addWidget(MakeListPane(*uses, tr("&Records:")));
    m_pSplitter->setChildrenCollapsible(false);
    layout.addWidget(m_pSplitter, 1);
}

void CDeferredAttribDlg::AddButtons(QBoxLayout& layout)
{
    SetNames(*m_pDelete, "Delete", tr("Delete"));
    m_pDelete->setAutoDefault(false);
    connect(m_pDelete, &QPushButton::clicked, this, [this] { Delete(); });
    auto* close = new QPushButton(tr("Close"));
    SetNames(*close, "Close", tr("Close"));
    close->setAutoDefault(false);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    auto* row = new QHBoxLayout;
    row->addWidget(m_pDelete);
    row->addStretch();
    row->addWidget(close);
    layout.addLayout(row);
}

void CDeferredAttribDlg::FillHistory()
{
    m_pBuild->clear();
    for (const std::uint32_t build : CBuildHistory(m_Editor.GetApplication().GetContext().m_Profile).Load())
        m_pBuild->addItem(QString::number(build));
}

void CDeferredAttribDlg::Find()
{
    const auto* field = static_cast<const CBuildNumberEdit*>(m_pBuild->lineEdit());
    if (field->text().isEmpty())
        return;
    const std::uint32_t build = field->GetBuild();
    CBuildHistory(m_Editor.GetApplication().GetContext().m_Profile).Add(build);
    FillHistory();
    const CWaitCursor wait;
    m_pEntries->BeginChange();
    m_List.Find(static_cast<EDeferOperation>(m_pOperation->currentData().toInt()), build);
    m_pEntries->EndChange();
    ShowUses();
}

void CDeferredAttribDlg::Delete()
{
    bool deleted = false;
    {
        const CWaitCursor wait;
        m_pEntries->BeginChange();
        deleted = m_List.DeleteTicked();
        m_pEntries->EndChange();
    }
    ShowUses();
    if (!deleted)
        m_Editor.GetApplication().GetContext().m_Questions.Tell(u"Delete Failed",
                                                                u"Failed to delete attribute.");
}

void CDeferredAttribDlg::ShowUses()
{
    std::vector<SAttributeRow> rows;
    for (const SAttributeUse& use : m_List.GetUses())
        rows.push_back({use.m_pRecord, use.m_pAttrib, use.m_pAttrib->IsModified()});
    m_pUses->SetRows(std::move(rows));
    UpdateDelete();
}

void CDeferredAttribDlg::UpdateDelete()
{
    m_pDelete->setEnabled(m_List.HasTicks());
}

// The lists hold objects, which must not outlive their database.
void CDeferredAttribDlg::LetGo()
{
    m_pEntries->BeginChange();
    m_List.Clear();
    m_pEntries->EndChange();
    ShowUses();
}

void CDeferredAttribDlg::done(int result)
{
    CWindowPlacement(m_Editor.GetApplication().GetContext().m_Profile, kSection)
        .StoreSplitter(*m_pSplitter, kSplitter);
    QDialog::done(result);
}
