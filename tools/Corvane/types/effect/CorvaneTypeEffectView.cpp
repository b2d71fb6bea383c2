#include "effect/CorvaneTypeEffectView.h"

#include "effect/CorvaneTypeEffect.h"
#include "effect/CorvaneTypeEffectValueDlg.h"
#include "effect/EffectList.h"

CCorvaneTypeEffectView::CCorvaneTypeEffectView(CCorvaneTypeEffect& attrib, ITypeViewList& list)
    : CCorvaneTypeView(attrib, list), m_Attrib(attrib)
{
}

CCorvaneTypeValueDlg* CCorvaneTypeEffectView::CreateValueDialog(QWidget* parent)
{
    CEffectList* effects = m_Attrib.GetEffectList();
    return effects != nullptr ? new CCorvaneTypeEffectValueDlg(*this, *effects, parent) : nullptr;
}

std::u16string CCorvaneTypeEffectView::GetEditText(int item) const
{
    std::u16string text = CCorvaneTypeView::GetEditText(item);
    return text.empty() ? std::u16string(kNoEffect) : text;
}

bool CCorvaneTypeEffectView::ApplyAdd(std::u16string_view text)
{
    return CCorvaneTypeView::ApplyAdd(EqualNames(text, kNoEffect) ? std::u16string_view() : text);
}
