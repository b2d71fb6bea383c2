#include "PropertiesSourceControlDlg.h"

#include "CorvaneMgr.h"
#include "DialogParts.h"
#include "DialogTable.h"
#include "SourceGate.h"
#include "Theme.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QStandardItemModel>
#include <QToolButton>

namespace
{
constexpr int kUserWidths[] = {100, 256};
constexpr int kHistoryWidths[] = {60, 56, 85, 140};

// A button that a provider's abilities enable.
QToolButton* MakeProviderButton(const char* objectName, const QString& name)
{
    auto* button = new QToolButton;
    button->setText(QStringLiteral("!"));
    button->setToolTip(QWidget::tr("Not connected to source control"));
    button->setEnabled(false);
    SetNames(*button, objectName, name);
    return button;
}

QTableView* MakeList(const QStringList& titles, std::span<const int> widths)
{
    auto* model = new QStandardItemModel;
    model->setHorizontalHeaderLabels(titles);
    auto* table = new CDialogTable(*model, widths);
    model->setParent(table);
    table->setMinimumHeight(3 * CTheme::kRowHeight);
    return table;
}
} // namespace

std::u16string_view GetSourceControlText(bool controlled, std::uint32_t flags, ECheckOutState state)
{
    if (!controlled)
        return u"Not under source control";
    if ((flags & FILE_FLAG_MINE) != 0 && state == ECheckOutState::ForDelete)
        return u"Checked out for delete";
    if ((flags & FILE_FLAG_MINE) != 0)
        return (flags & FILE_FLAG_PENDING_ADD) != 0 ? u"Imported/Created, Checked out for edit"
                                                    : u"Checked out for edit";
    if ((flags & FILE_FLAG_SOMEBODY_ELSES) != 0)
        return u"Checked out by another user";
    return (flags & FILE_FLAG_PENDING_ADD) != 0 ? u"Imported/Created" : u"Checked in";
}

CPropertiesSourceControlDlg::CPropertiesSourceControlDlg(const SPropertiesContext& context,
                                                         std::u16string_view path)
    : CPropertiesBaseDlg(context, "PropertiesSourceControlDlg"), m_sFile(path), m_ServerPath(AddServerPath()),
      m_Status(AddText("Status", tr("S&tatus:"))),
      m_Latest(AddText("LatestComment", tr("&Latest Version Comment:"))), m_pUsers(AddUsers())
{
    AddHistory();
    CPropertiesSourceControlDlg::Refresh();
}

void CPropertiesSourceControlDlg::AddRow(const char* objectName, const QString& label, QWidget* field,
                                         QToolButton* button)
{
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(CTheme::kGrid);
    layout->addWidget(field, 1);
    layout->addWidget(button, 0, Qt::AlignTop);
    row->setFocusProxy(field);
    row->setSizePolicy(field->sizePolicy());
    AddField("Row", label, row);
    SetNames(*field, objectName, row->accessibleName());
}

QLineEdit& CPropertiesSourceControlDlg::AddServerPath()
{
    auto* field = new QLineEdit;
    field->setReadOnly(true);
    AddRow("ServerPath", tr("&Server Path:"), field,
           MakeProviderButton("ShowHistoryDialog", tr("Source control menu")));
    return *field;
}

QStandardItemModel* CPropertiesSourceControlDlg::AddUsers()
{
    QTableView* table = MakeList({tr("User"), tr("Comment")}, kUserWidths);
    AddField("CheckOutUsers", tr("Check Out &Users:"), table);
    return qobject_cast<QStandardItemModel*>(table->model());
}

void CPropertiesSourceControlDlg::AddHistory()
{
    AddRow("History", tr("&History:"),
           MakeList({tr("Version"), tr("User"), tr("Comment"), tr("Date")}, kHistoryWidths),
           MakeProviderButton("ShowHistory", tr("Show history")));
}

void CPropertiesSourceControlDlg::Refresh()
{
    CSourceGate& gate = GetManager().GetGate();
    const bool controlled = !m_sFile.empty() && gate.IsControlled(m_sFile);
    SetText(m_ServerPath, kUnknownProperty);
    SetText(m_Latest, kUnknownProperty);
    SetText(m_Status, gate.IsConnected() ? GetSourceControlText(controlled, gate.GetFileFlags(m_sFile),
                                                                gate.GetCheckOutState(m_sFile))
                                         : std::u16string_view(u"Not connected to source control"));
    ShowUsers();
}

void CPropertiesSourceControlDlg::ShowUsers()
{
    m_pUsers->removeRows(0, m_pUsers->rowCount());
    for (const SCheckOutUser& user : GetManager().GetGate().GetCheckOutUsers(m_sFile))
        m_pUsers->appendRow({new QStandardItem(MakeCellText(user.m_sName)),
                             new QStandardItem(MakeCellText(user.m_sComment))});
}
