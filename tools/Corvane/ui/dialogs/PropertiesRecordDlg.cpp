#include "PropertiesRecordDlg.h"

#include "CorvaneMgr.h"
#include "CorvaneRecord.h"
#include "DialogParts.h"
#include "FormatText.h"
#include "IconSet.h"
#include "PropertiesText.h"
#include "RecordListModel.h"
#include "Theme.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QListView>
#include <QToolButton>

CPropertiesRecordDlg::CPropertiesRecordDlg(const SPropertiesContext& context, CCorvaneRecord& record)
    : CPropertiesBaseDlg(context, "PropertiesRecordDlg"), m_pRecord(&record), m_pOpen(new QToolButton),
      m_pModel(new CRecordListModel(this)), m_Name(AddText("Name", tr("&Name:"))),
      m_Path(AddPath(tr("&Local Path:"))), m_Referencer(AddReferencer()), m_Referencees(AddReferencees()),
      m_Comment(AddEdit("Comment", tr("&Comment:")))
{
    CPropertiesRecordDlg::Refresh();
}

CPropertiesRecordDlg::~CPropertiesRecordDlg() = default;

QLineEdit& CPropertiesRecordDlg::AddReferencer()
{
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    auto* field = new QLineEdit;
    field->setReadOnly(true);
    m_pOpen->setIcon(GetIcon("open-record"));
    m_pOpen->setToolTip(tr("Open the referencer"));
    SetNames(*m_pOpen, "OpenReferencer", m_pOpen->toolTip());
    m_pOpen->setFocusPolicy(Qt::StrongFocus);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(CTheme::kGrid);
    layout->addWidget(field, 1);
    layout->addWidget(m_pOpen);
    row->setFocusProxy(field);
    AddField("ReferencerRow", tr("Re&ferencer (parent):"), row);
    SetNames(*field, "Referencer", tr("Referencer (parent)"));
    connect(m_pOpen, &QToolButton::clicked, this,
            [this]
            {
                if (m_pRecord && m_pRecord->GetParent() != nullptr)
                    OpenRecord(*m_pRecord->GetParent());
            });
    return *field;
}

QListView& CPropertiesRecordDlg::AddReferencees()
{
    auto* list = new QListView;
    list->setModel(m_pModel);
    list->setUniformItemSizes(true);
    list->setMinimumHeight(3 * CTheme::kRowHeight);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    AddField("Referencees", tr("&Referencees (children):"), list);
    connect(list, &QListView::doubleClicked, this,
            [this](const QModelIndex& index)
            {
                if (CCorvaneRecord* record = m_pModel->GetRecord(index.row()))
                    OpenRecord(*record);
            });
    return *list;
}

void CPropertiesRecordDlg::Forget()
{
    m_pRecord = nullptr;
    m_pModel->SetRecords({});
}

void CPropertiesRecordDlg::Refresh()
{
    if (!m_pRecord)
        return;
    SetText(m_Name, m_pRecord->GetName());
    SetPath(m_Path, m_pRecord->GetFile());
    m_Comment.SetText(m_pRecord->GetComment());
    m_pModel->SetRecords(m_pRecord->GetReferencees());
    ShowReferencer();
    ClearModified();
}

void CPropertiesRecordDlg::ShowReferencer()
{
    const CCorvaneRecord* parent = m_pRecord->GetParent();
    std::u16string path;
    if (parent != nullptr)
        GetManager().GetRecordDisplayPath(parent, path);
    else if (!m_pRecord->GetHierarchy().empty())
        path = FormatText(u"%s (NOT FOUND)", m_pRecord->GetHierarchy());
    SetText(m_Referencer, path);
    m_pOpen->setEnabled(parent != nullptr);
}

bool CPropertiesRecordDlg::Apply()
{
    const CRef<CCorvaneRecord> record = m_pRecord;
    if (!record || (m_Comment.IsChanged() && !record->SetComment(m_Comment.GetText())))
        return false;
    Refresh();
    return true;
}
