#include "color/CorvaneTypeColorData.h"

CCorvaneTypeColorData::CCorvaneTypeColorData(const SAttribDataConstruct& construct)
    : CCorvaneSchemaAttribData(construct)
{
    ParseData();
}

void CCorvaneTypeColorData::ParseDataToken(std::u16string_view token)
{
    m_Encoding = FindColorEncoding(token).value_or(m_Encoding);
}

CRef<CCorvaneSchemaAttribData> CCorvaneTypeColorData::Clone() const
{
    return CRef<CCorvaneSchemaAttribData>(new CCorvaneTypeColorData(*this));
}
