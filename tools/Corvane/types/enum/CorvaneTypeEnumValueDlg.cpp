#include "enum/CorvaneTypeEnumValueDlg.h"

#include "QtText.h"
#include "enum/CorvaneTypeEnumData.h"

namespace
{
QStringList GetWords(const CCorvaneTypeEnumData* entry)
{
    QStringList words;
    if (entry == nullptr)
        return words;
    for (const std::u16string_view word : entry->GetValueList())
        words += ToQString(word);
    return words;
}
} // namespace

CCorvaneTypeEnumValueDlg::CCorvaneTypeEnumValueDlg(CCorvaneTypeView& view, const CCorvaneTypeEnumData* words,
                                                   QWidget* parent)
    : CCorvaneTypeListValueDlg(view, GetWords(words), QStringLiteral("EnumValue"), parent)
{
}
