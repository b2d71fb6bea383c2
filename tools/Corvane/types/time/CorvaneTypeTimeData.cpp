#include "time/CorvaneTypeTimeData.h"

#include "NameCompare.h"

CCorvaneTypeTimeData::CCorvaneTypeTimeData(const SAttribDataConstruct& construct)
    : CCorvaneSchemaAttribData(construct)
{
    ParseData();
}

void CCorvaneTypeTimeData::ParseDataToken(std::u16string_view token)
{
    if (EqualNames(token, u"AllowNegative"))
        m_bAllowNegative = true;
}

CRef<CCorvaneSchemaAttribData> CCorvaneTypeTimeData::Clone() const
{
    return CRef<CCorvaneSchemaAttribData>(new CCorvaneTypeTimeData(*this));
}
