#include "RecordCopyDlg.h"

#include "DialogParts.h"

#include <QBoxLayout>
#include <QRadioButton>

CRecordCopyDlg::CRecordCopyDlg(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("RecordCopyDlg"));
    setWindowTitle(tr("Copy Record"));
    QBoxLayout& layout = MakeDialogLayout(*this);
    QBoxLayout& choices = AddGroup(layout, tr("Copy Method"));
    QRadioButton& clone = AddChoice(
        choices, "Clone",
        u"C&lone\nCreates a copy of the source record.  Any modification made to either record does "
        u"not affect the other.");
    clone.setChecked(true);
    m_pReference = &AddChoice(
        choices, "Reference",
        u"&Reference\nCreates a reference of the source record.  Any modification made to the original "
        u"record is passed on to its references, but any modification made to a reference is not passed back "
        u"to the original.");
    AddOkCancel(*this, layout);
    layout.setSizeConstraint(QLayout::SetFixedSize);
    clone.setFocus();
}

ERecordCopy CRecordCopyDlg::GetMethod() const
{
    return m_pReference->isChecked() ? ERecordCopy::Reference : ERecordCopy::Clone;
}
