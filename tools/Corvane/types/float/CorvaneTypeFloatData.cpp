#include "float/CorvaneTypeFloatData.h"

#include "NameCompare.h"
#include "NumberText.h"

#include <algorithm>

CCorvaneTypeFloatData::CCorvaneTypeFloatData(const SAttribDataConstruct& construct)
    : CCorvaneSchemaAttribData(construct)
{
    ParseData();
}

void CCorvaneTypeFloatData::ParseDataToken(std::u16string_view token)
{
    constexpr std::u16string_view kMinimum = u"min=";
    constexpr std::u16string_view kMaximum = u"max=";
    if (BeginsWithName(token, kMinimum))
        m_fMinimum = ParseFloat(token.substr(kMinimum.size()));
    else if (BeginsWithName(token, kMaximum))
        m_fMaximum = ParseFloat(token.substr(kMaximum.size()));
}

CRef<CCorvaneSchemaAttribData> CCorvaneTypeFloatData::Clone() const
{
    return CRef<CCorvaneSchemaAttribData>(new CCorvaneTypeFloatData(*this));
}

float CCorvaneTypeFloatData::Clamp(float value) const
{
    // A schema may hold its limits the wrong way round, which std::clamp does not allow.
    return value < m_fMinimum ? m_fMinimum : std::min(value, m_fMaximum);
}
