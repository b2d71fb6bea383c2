#include "recordlink/CorvaneTypeRecordLinkView.h"

#include "Editor.h"
#include "recordlink/CorvaneTypeRecordLink.h"
#include "recordlink/CorvaneTypeRecordLinkValueActivateDlg.h"

CCorvaneTypeRecordLinkView::CCorvaneTypeRecordLinkView(CCorvaneTypeRecordLink& attrib, ITypeViewList& list)
    : CCorvaneTypeView(attrib, list), m_Attrib(attrib)
{
}

EViewUpdate CCorvaneTypeRecordLinkView::BeginEdit(const QRect&, int item)
{
    SetEditedItem(item);
    if (GetEditedItem() == kHeaderItem)
        return EViewUpdate::EditEnded;
    const CRef<CCorvaneTypeView> keep(this);
    CCorvaneTypeRecordLinkValueActivateDlg dialog(m_Attrib, GetEditText(GetEditedItem()),
                                                  GetList().GetFrame().GetWindow());
    // Anything may have happened while it was open.
    if (dialog.exec() != QDialog::Accepted || !IsAttached() || !CanEdit())
        return EViewUpdate::EditEnded;
    const EViewUpdate update = ApplyText(dialog.GetValue(), true);
    return update == EViewUpdate::Measure ? EViewUpdate::MeasureEditEnded : EViewUpdate::EditEnded;
}
