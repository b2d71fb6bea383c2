#include "integer/CorvaneTypeIntegerData.h"

#include "NameCompare.h"
#include "NumberText.h"

#include <algorithm>

CCorvaneTypeIntegerData::CCorvaneTypeIntegerData(const SAttribDataConstruct& construct)
    : CCorvaneSchemaAttribData(construct)
{
    ParseData();
}

void CCorvaneTypeIntegerData::ParseDataToken(std::u16string_view token)
{
    constexpr std::u16string_view kMinimum = u"min=";
    constexpr std::u16string_view kMaximum = u"max=";
    if (BeginsWithName(token, kMinimum))
        m_nMinimum = ParseInteger(token.substr(kMinimum.size()));
    else if (BeginsWithName(token, kMaximum))
        m_nMaximum = ParseInteger(token.substr(kMaximum.size()));
}

CRef<CCorvaneSchemaAttribData> CCorvaneTypeIntegerData::Clone() const
{
    return CRef<CCorvaneSchemaAttribData>(new CCorvaneTypeIntegerData(*this));
}

std::int32_t CCorvaneTypeIntegerData::Clamp(std::int32_t value) const
{
    // A schema may hold its limits the wrong way round, which std::clamp does not allow.
    return value < m_nMinimum ? m_nMinimum : std::min(value, m_nMaximum);
}
