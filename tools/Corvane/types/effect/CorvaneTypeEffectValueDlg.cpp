#include "effect/CorvaneTypeEffectValueDlg.h"

#include "QtText.h"
#include "effect/EffectList.h"

namespace
{
QStringList GetNames(CEffectList& effects)
{
    QStringList names;
    for (const std::u16string& name : effects.GetNames())
        names += ToQString(name);
    return names;
}
} // namespace

CCorvaneTypeEffectValueDlg::CCorvaneTypeEffectValueDlg(CCorvaneTypeView& view, CEffectList& effects,
                                                       QWidget* parent)
    : CCorvaneTypeListValueDlg(view, GetNames(effects), QStringLiteral("EffectValue"), parent)
{
}
