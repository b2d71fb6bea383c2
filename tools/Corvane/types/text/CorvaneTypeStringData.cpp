#include "text/CorvaneTypeStringData.h"

#include "NameCompare.h"
#include "NumberText.h"

CCorvaneTypeStringData::CCorvaneTypeStringData(const SAttribDataConstruct& construct)
    : CCorvaneSchemaAttribData(construct)
{
    ParseData();
}

void CCorvaneTypeStringData::ParseDataToken(std::u16string_view token)
{
    constexpr std::u16string_view kMaximum = u"max=";
    if (BeginsWithName(token, kMaximum))
        m_nMaximumLength = ParseInteger(token.substr(kMaximum.size()));
}

CRef<CCorvaneSchemaAttribData> CCorvaneTypeStringData::Clone() const
{
    return CRef<CCorvaneSchemaAttribData>(new CCorvaneTypeStringData(*this));
}
