#include "color/CorvaneTypeColorDialog.h"

#include "QtText.h"
#include "TipText.h"
#include "color/ColorText.h"

CCorvaneTypeColorDialog::CCorvaneTypeColorDialog(CProfile& profile, std::u16string_view attribute,
                                                 std::u16string_view text, QWidget* parent)
    : CCorvaneColorDialog(profile, ParseColor(text), parent), m_sGiven(text)
{
    constexpr qsizetype kLongestTitle = 100;
    setWindowTitle(QStringLiteral("Color - ") + LimitText(ToQString(attribute), kLongestTitle));
}

std::u16string CCorvaneTypeColorDialog::GetText() const
{
    return GetColor() == ParseColor(m_sGiven) ? m_sGiven : FormatColor(GetColor());
}
