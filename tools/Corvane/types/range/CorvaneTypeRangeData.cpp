#include "range/CorvaneTypeRangeData.h"

#include "NameCompare.h"
#include "NumberText.h"

#include <algorithm>

CCorvaneTypeRangeData::CCorvaneTypeRangeData(const SAttribDataConstruct& construct)
    : CCorvaneSchemaAttribData(construct)
{
    ParseData();
}

void CCorvaneTypeRangeData::ParseDataToken(std::u16string_view token)
{
    constexpr std::u16string_view kMinimum = u"min=";
    constexpr std::u16string_view kMaximum = u"max=";
    if (BeginsWithName(token, kMinimum))
        m_fMinimum = ParseFloat(token.substr(kMinimum.size()));
    else if (BeginsWithName(token, kMaximum))
        m_fMaximum = ParseFloat(token.substr(kMaximum.size()));
    else if (EqualNames(token, u"int"))
        m_bIntegerOnly = true;
}

CRef<CCorvaneSchemaAttribData> CCorvaneTypeRangeData::Clone() const
{
    return CRef<CCorvaneSchemaAttribData>(new CCorvaneTypeRangeData(*this));
}

bool CCorvaneTypeRangeData::IsInRange(const SRange& range) const
{
    return IsInRange(range.m_fMinimum) && IsInRange(range.m_fMaximum);
}

float CCorvaneTypeRangeData::Clamp(float value) const
{
    // A schema may hold its limits the wrong way round, which std::clamp does not allow.
    return value < m_fMinimum ? m_fMinimum : std::min(value, m_fMaximum);
}
