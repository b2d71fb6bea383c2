#include "vectors/CorvaneTypeVectorValueDlg.h"

#include "QtText.h"
#include "vectors/VectorText.h"

CCorvaneTypeVectorValueDlg::CCorvaneTypeVectorValueDlg(CCorvaneTypeView& view, std::size_t components,
                                                       QWidget* parent)
    : CCorvaneTypeNumbersValueDlg(view, parent)
{
    const char16_t labels[] = {u'X', u'Y', u'Z', u'W'};
    for (std::size_t i = 0; i < std::size(labels); ++i)
    {
        const QString label(QChar{labels[i]});
        AddField(QStringLiteral("Vector") + label, label, MakeFloatRule(), i < components);
    }
}

void CCorvaneTypeVectorValueDlg::ShowText(const QString& text)
{
    const VectorValue value = ParseVector(ToText(text));
    for (std::size_t i = 0; i < value.size(); ++i)
        GetField(i).SetFloat(value[i]);
}

QString CCorvaneTypeVectorValueDlg::ReadText() const
{
    VectorValue value{};
    for (std::size_t i = 0; i < value.size(); ++i)
        value[i] = GetField(i).GetFloat();
    return ToQString(FormatVector(value));
}
