#include "ValidateDlg.h"

#include "CorvaneEvent.h"
#include "CorvaneMgr.h"
#include "DialogParts.h"
#include "DialogTable.h"
#include "Editor.h"
#include "FileDialogs.h"
#include "FormatText.h"
#include "IconSet.h"
#include "QtText.h"
#include "RunState.h"
#include "Theme.h"
#include "UiModule.h"
#include "ValidateModel.h"
#include "WaitCursor.h"
#include "WindowPlacement.h"
#include "host/Questions.h"
#include "host/Services.h"
#include "zrassert.h"

#include <QBoxLayout>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QStyledItemDelegate>

namespace
{
constexpr QSize kFirstSize(1100, 460);
constexpr int kColumnWidths[] = {20, 150, 100, 250, 100, 50, 300};

// The severity is its icon; the word stands beside it where the user has made room.
class CSeverityDelegate final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const int text = option.fontMetrics.horizontalAdvance(index.data().toString());
        m_bNarrow = option.rect.width() < CTheme::kIconSize + text + 4 * CTheme::kGrid;
        QStyledItemDelegate::paint(painter, option, index);
        if (m_bNarrow)
            index.data(Qt::DecorationRole).value<QIcon>().paint(painter, GetIconPlace(option.rect));
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        if (!m_bNarrow)
            return;
        option->text.clear();
        option->icon = {};
    }

private:
    // The style's margins leave too little of a narrow column.
    static QRect GetIconPlace(const QRect& cell)
    {
        QRect place(0, 0, CTheme::kIconSize, CTheme::kIconSize);
        place.moveCenter(cell.center());
        return place;
    }

    mutable bool m_bNarrow = false;
};
} // namespace

CValidateDlg::CValidateDlg(IEditor& editor, QWidget* parent)
    : QDialog(parent), m_Editor(editor), m_pModel(new CValidateModel(this)),
      m_pTable(new CDialogTable(*m_pModel, kColumnWidths)), m_pSummary(new QLabel)
{
    setObjectName(QStringLiteral("ValidateDlg"));
    setWindowTitle(tr("Validate"));
    QBoxLayout& layout = MakeDialogLayout(*this);
    AddList(layout);
    AddButtons(layout);
    connect(m_pModel, &QAbstractItemModel::modelReset, this, [this] { UpdateSummary(); });
    m_EventHandle = editor.GetApplication().GetManager().AddObserver([this](const CCorvaneEvent& event)
                                                                     { return OnEvent(event); });
    SetBuild(editor.GetApplication().GetManager().GetActiveBuild());
    resize(kFirstSize);
    CWindowPlacement(editor.GetApplication().GetContext().m_Profile, u"Dialogs\\Validate").Keep(*this);
    m_pTable->setFocus();
}

void CValidateDlg::AddList(QBoxLayout& layout)
{
    SetNames(*m_pTable, "Findings", tr("Findings"));
    m_pTable->setItemDelegateForColumn(CValidateModel::SeverityColumn, new CSeverityDelegate(m_pTable));
    // In the order of reporting until the user wants another.
    m_pTable->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    m_pTable->setSortingEnabled(true);
    connect(m_pTable, &QTableView::activated, this,
            [this](const QModelIndex& index) { ActivateRow(index.row()); });
    layout.addWidget(m_pTable, 1);
}

void CValidateDlg::AddButtons(QBoxLayout& layout)
{
    auto* row = new QHBoxLayout;
    AddButton(*row, "Scan", tr("&Scan"), "scan", &CValidateDlg::Scan);
    AddButton(*row, "Save", tr("Sa&ve"), "save", &CValidateDlg::Save).setToolTip(tr("Save"));
    AddButton(*row, "Copy", tr("&Copy"), "copy", &CValidateDlg::Copy).setToolTip(tr("Copy"));
    row->addSpacing(CTheme::kSpacing);
    SetNames(*m_pSummary, "Summary", tr("Summary"));
    row->addWidget(m_pSummary, 1);
    auto* close = new QPushButton(tr("Close"));
    SetNames(*close, "Close", tr("Close"));
    close->setAutoDefault(false);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    row->addWidget(close);
    layout.addLayout(row);
}

QPushButton& CValidateDlg::AddButton(QBoxLayout& layout, const char* objectName, const QString& text,
                                     const char* icon, void (CValidateDlg::*action)())
{
    auto* button = new QPushButton(GetIcon(icon), text);
    SetNames(*button, objectName, QString(text).remove(u'&'));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, action);
    layout.addWidget(button);
    return *button;
}

void CValidateDlg::PopulateList(const CValidateCore* pVCore)
{
    ZRASSERT(pVCore);
    if (pVCore == nullptr)
        return;
    m_nBuild = pVCore->GetBuild();
    m_pModel->SetCore(*pVCore);
    const QHeaderView* header = m_pTable->horizontalHeader();
    if (header->sortIndicatorSection() >= 0)
        m_pModel->sort(header->sortIndicatorSection(), header->sortIndicatorOrder());
    if (m_pModel->rowCount() > 0)
        m_pTable->setCurrentIndex(m_pModel->index(0, 0));
}

void CValidateDlg::SetBuild(std::uint32_t build)
{
    m_nBuild = build;
    UpdateSummary();
}

int CValidateDlg::DoModalFor(const CValidateCore& core, std::uint32_t build)
{
    PopulateList(&core);
    SetBuild(build);
    return exec();
}

void CValidateDlg::Scan()
{
    const CWaitCursor wait;
    CValidateCore core;
    static_cast<void>(core.ValidateDatabase(m_Editor.GetApplication().GetManager(), m_nBuild));
    PopulateList(&core);
}

void CValidateDlg::Save()
{
    const SFileDialog dialog{u"Save", {}, u"txt", u"Text Files (*.txt)|*.txt|All Files (*.*)|*.*|"};
    const std::u16string path = m_Editor.GetFileDialogs().SaveFile(this, dialog);
    if (path.empty())
        return;
    const CCorvaneContext& context = m_Editor.GetApplication().GetContext();
    if (!m_pModel->MakeSortedCore().SaveList(context.m_Files, path) && !context.m_Run.m_bSilent)
        context.m_Questions.Tell(
            u"File Open Failed",
            FormatText(u"Failed to open the following file for writing.\n\n%s", std::u16string_view(path)));
}

void CValidateDlg::Copy()
{
    QGuiApplication::clipboard()->setText(ToQString(m_pModel->MakeSortedCore().FormatList()));
}

void CValidateDlg::ActivateRow(int row)
{
    if (CCorvaneRecord* record = m_pModel->GetRecord(row))
        m_Editor.OpenRecordFrame(record, true);
    else
        m_Editor.GetApplication().GetContext().m_Services.Beep();
}

void CValidateDlg::UpdateSummary()
{
    const CValidateCore& core = m_pModel->GetCore();
    m_pSummary->setText(tr("Build %1: %2 critical, %3 warnings")
                            .arg(m_nBuild)
                            .arg(core.GetCriticalCount())
                            .arg(core.GetWarningCount()));
}

int CValidateDlg::OnEvent(const CCorvaneEvent& event)
{
    // Findings hold attributes, which must not outlive their database.
    if (event.GetCode() == ECorvaneEvent::CloseBegin)
        m_pModel->SetCore(CValidateCore(m_nBuild));
    // A record may have another name or be gone.
    m_pTable->viewport()->update();
    return 0;
}
