#include "flags/CorvaneTypeFlagsValueDlg.h"

#include "CorvaneTypeView.h"
#include "Editor.h"
#include "QtText.h"
#include "flags/CorvaneTypeFlagsData.h"
#include "flags/CorvaneTypeFlagsValueActivateDlg.h"
#include "flags/FlagsText.h"

#include <QLineEdit>

CCorvaneTypeFlagsValueDlg::CCorvaneTypeFlagsValueDlg(CCorvaneTypeView& view,
                                                     const CCorvaneTypeFlagsData* names, QWidget* parent)
    : CCorvaneTypeButtonsValueDlg(view, QStringLiteral("FlagsValue"), parent), m_pNames(names)
{
    AddButton("more", QStringLiteral("More"), [this] { OpenFlags(); });
    connect(GetLineEdit(), &QLineEdit::editingFinished, this, [this] { ShowText(ReadText()); });
}

void CCorvaneTypeFlagsValueDlg::ShowText(const QString& text)
{
    GetLineEdit()->setText(ToQString(FormatFlags(ParseFlags(ToText(text)))));
}

QString CCorvaneTypeFlagsValueDlg::ReadText() const
{
    return ToQString(FormatFlags(ParseFlags(ToText(GetLineEdit()->text()))));
}

void CCorvaneTypeFlagsValueDlg::OpenFlags()
{
    const QPointer<CCorvaneTypeFlagsValueDlg> alive(this);
    const std::span<const SFlag> flags = m_pNames ? m_pNames->GetFlags() : std::span<const SFlag>();
    const QPointer<CCorvaneTypeFlagsValueActivateDlg> dialog(new CCorvaneTypeFlagsValueActivateDlg(
        GetView().GetParentType().GetName(), flags, ParseFlags(ToText(ReadText())),
        GetView().GetList().GetFrame().GetWindow()));
    const bool accepted = dialog->exec() == QDialog::Accepted;
    if (!dialog)
        return; // The window went with its frame.
    if (accepted && alive)
        ShowText(ToQString(FormatFlags(dialog->GetMask())));
    delete dialog;
}
