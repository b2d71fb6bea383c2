#include "DeferredModifiedDlg.h"

#include "AttributeUseModel.h"
#include "CorvaneEvent.h"
#include "CorvaneMgr.h"
#include "DeferredAttributes.h"
#include "DialogParts.h"
#include "DialogTable.h"
#include "Editor.h"
#include "UiModule.h"
#include "WaitCursor.h"
#include "WindowPlacement.h"

#include <QBoxLayout>

namespace
{
constexpr QSize kFirstSize(760, 420);
} // namespace

CDeferredModifiedDlg::CDeferredModifiedDlg(IEditor& editor, std::uint32_t build, QWidget* parent)
    : QDialog(parent), m_Editor(editor), m_pModel(new CAttributeUseModel(this))
{
    setObjectName(QStringLiteral("DeferredModifiedDlg"));
    setWindowTitle(tr("Modified Attributes"));
    Collect(build);
    QBoxLayout& layout = MakeDialogLayout(*this);
    AddNote(layout, u"The following attributes have been modified after they have been marked as deprecated");
    auto* table = new CDialogTable(*m_pModel, CAttributeUseModel::kColumnWidths);
    SetNames(*table, "Attributes", tr("Modified attributes"));
    connect(table, &QTableView::activated, this,
            [this](const QModelIndex& index) { ActivateRow(index.row()); });
    table->setCurrentIndex(m_pModel->index(0, 0));
    layout.addWidget(table, 1);
    AddOkCancel(*this, layout);
    m_EventHandle = editor.GetApplication().GetManager().AddObserver(
        [this](const CCorvaneEvent& event)
        {
            if (event.GetCode() == ECorvaneEvent::CloseBegin)
                m_pModel->SetRows({});
            return 0;
        });
    resize(kFirstSize);
    CWindowPlacement(editor.GetApplication().GetContext().m_Profile, u"Dialogs\\Modified Attribute")
        .Keep(*this);
    table->setFocus();
}

void CDeferredModifiedDlg::Collect(std::uint32_t build)
{
    const CWaitCursor wait;
    std::vector<SAttributeRow> rows;
    for (SModifiedAttribute& found : FindModifiedAttributes(m_Editor.GetApplication().GetManager(), build))
        rows.push_back({std::move(found.m_pRecord), std::move(found.m_pAttrib), true});
    m_pModel->SetRows(std::move(rows));
}

bool CDeferredModifiedDlg::IsEmpty() const
{
    return m_pModel->rowCount() == 0;
}

void CDeferredModifiedDlg::ActivateRow(int row)
{
    if (CCorvaneRecord* record = m_pModel->GetRecord(row))
        m_Editor.OpenRecordFrame(record, true);
}
