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
} // namespace

std::u16string_view GetSourceControlText(CSourceGate& gate, std::u16string_view path)
{
    if (!gate.IsConnected())
        return u"Not connected to source control";
    if (path.empty() || !gate.IsControlled(path))
        return u"Not under source control";
    if (gate.IsMine(path))
        return gate.GetCheckOutState(path) == ECheckOutState::ForDelete ? u"Checked out for delete"
                                                                        : u"Checked out for edit";
    return gate.IsSomebodyElses(path) ? u"Checked out by another user" : u"Checked in";
}

CPropertiesSourceControlDlg::CPropertiesSourceControlDlg(const SPropertiesContext& context,
                                                         std::u16string_view path)
    : CPropertiesBaseDlg(context, "PropertiesSourceControlDlg"), m_sFile(path), m_ServerPath(AddServerPath()),
      m_Status(AddText("Status", tr("S&tatus:"))),
      m_Latest(AddText("LatestComment", tr("&Latest Version Comment:")))
{
    AddList("CheckOutUsers", tr("Check Out &Users:"), {tr("User"), tr("Comment")}, kUserWidths);
    AddList("History", tr("&History:"), {tr("Version"), tr("User"), tr("Comment"), tr("Date")},
            kHistoryWidths);
    AddHistoryButton();
    CPropertiesSourceControlDlg::Refresh();
}

QLineEdit& CPropertiesSourceControlDlg::AddServerPath()
{
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    auto* field = new QLineEdit;
    field->setReadOnly(true);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(CTheme::kGrid);
    layout->addWidget(field, 1);
    layout->addWidget(MakeProviderButton("ShowHistoryDialog", tr("Source control menu")));
    row->setFocusProxy(field);
    AddField("ServerPathRow", tr("&Server Path:"), row);
    SetNames(*field, "ServerPath", tr("Server Path"));
    return *field;
}

void CPropertiesSourceControlDlg::AddList(const char* objectName, const QString& label,
                                          const QStringList& titles, std::span<const int> widths)
{
    auto* model = new QStandardItemModel(this);
    model->setHorizontalHeaderLabels(titles);
    auto* table = new CDialogTable(*model, widths);
    table->setMinimumHeight(3 * CTheme::kRowHeight);
    AddField(objectName, label, table);
}

void CPropertiesSourceControlDlg::AddHistoryButton()
{
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addStretch();
    layout->addWidget(MakeProviderButton("ShowHistory", tr("Show history")));
    AddWide(row);
}

void CPropertiesSourceControlDlg::Refresh()
{
    SetText(m_ServerPath, kUnknownProperty);
    SetText(m_Status, GetSourceControlText(GetManager().GetGate(), m_sFile));
    SetText(m_Latest, kUnknownProperty);
}
