#include "color/CorvaneTypeColorView.h"

#include "ColorSwatch.h"
#include "CorvaneMgr.h"
#include "Editor.h"
#include "Theme.h"
#include "UiModule.h"
#include "color/CorvaneTypeColor.h"
#include "color/CorvaneTypeColorDialog.h"

#include <QPainter>
#include <QPointer>

CCorvaneTypeColorView::CCorvaneTypeColorView(CCorvaneTypeColor& attrib, ITypeViewList& list)
    : CCorvaneTypeView(attrib, list), m_Attrib(attrib)
{
}

EViewUpdate CCorvaneTypeColorView::BeginEdit(const QRect&, int item)
{
    CancelEdit();
    SetEditedItem(item);
    if (GetEditedItem() == kHeaderItem)
        return EViewUpdate::EditEnded;
    const CRef<CCorvaneTypeView> keep(this); // The record may go while the picker is open.
    IEditorFrame& frame = GetList().GetFrame();
    CProfile& profile = frame.GetEditor().GetApplication().GetContext().m_Profile;
    const QPointer<CCorvaneTypeColorDialog> dialog(new CCorvaneTypeColorDialog(
        profile, m_Attrib.GetName(), GetEditText(GetEditedItem()), frame.GetWindow()));
    const bool accepted = dialog->exec() == QDialog::Accepted;
    if (!dialog)
        return EViewUpdate::EditEnded;
    const std::u16string text = dialog->GetText();
    delete dialog;
    if (!accepted || !IsAttached() || !CanEdit() || ApplyText(text, true) != EViewUpdate::Measure)
        return EViewUpdate::EditEnded;
    return EViewUpdate::MeasureEditEnded;
}

void CCorvaneTypeColorView::DrawValue(QPainter& painter, const QRect& cell, int item)
{
    const std::uint32_t color = m_Attrib.GetColor(static_cast<std::size_t>(item));
    const QRect swatch(cell.left() + kListTextMargin, cell.top() + 3, 3 * cell.height() - 7,
                       cell.height() - 7);
    painter.save();
    DrawColorSwatch(painter, swatch, UnpackColor(color));
    painter.setPen(CTheme::Get().GetColor(EThemeColor::GreyText));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(swatch.adjusted(0, 0, -1, -1));
    painter.restore();
    // Blanks as wide as digits keep the numbers of several rows below each other.
    constexpr QChar kDigitBlank(0x2007);
    QStringList numbers;
    for (const unsigned shift : {24U, 0U, 8U, 16U})
        numbers += QString::number(color >> shift & 0xFFU).rightJustified(3, kDigitBlank);
    DrawCellText(painter, cell.adjusted(swatch.width() + kListTextMargin, 0, 0, 0),
                 numbers.join(QStringLiteral(", ")));
}
