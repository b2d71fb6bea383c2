#include "flags/CorvaneTypeFlagsData.h"

#include "CorvaneMgr.h"
#include "FormatText.h"
#include "NumberText.h"
#include "common/SchemaName.h"
#include "host/Questions.h"

#include <algorithm>
#include <optional>

namespace
{
constexpr std::int32_t kFlagCount = 32;

// A declaration "Flag3=Name|Description"; the bar and what follows it may be missing. Nothing for any other
// token. Lengths count UTF-16 units; a name that is too long has no description.
std::optional<SFlag> ParseFlag(std::u16string_view token)
{
    constexpr std::u16string_view kPrefix = u"Flag";
    constexpr std::size_t kNameUnits = 128;
    constexpr std::size_t kDescriptionUnits = 256;
    std::int32_t index = 0;
    if (!token.starts_with(kPrefix))
        return std::nullopt;
    token.remove_prefix(kPrefix.size());
    if (!TakeInteger(token, index) || !token.starts_with(u'='))
        return std::nullopt;
    token.remove_prefix(1);
    const std::u16string_view name = token.substr(0, std::min(token.find(u'|'), kNameUnits));
    if (name.empty())
        return std::nullopt;
    token.remove_prefix(name.size());
    if (!token.starts_with(u'|'))
        return SFlag{index, std::u16string(name), {}};
    token.remove_prefix(1);
    const std::u16string_view description = token.substr(0, std::min(token.find(u'\n'), kDescriptionUnits));
    return SFlag{index, std::u16string(name), std::u16string(description)};
}
} // namespace

CCorvaneTypeFlagsData::CCorvaneTypeFlagsData(const SAttribDataConstruct& construct)
    : CCorvaneSchemaAttribData(construct), m_pItems(GetManager().GetTypeState<CFlagsDataList>().m_pItems),
      m_Item(m_pItems->insert(m_pItems->end(), this))
{
    ParseData();
}

CCorvaneTypeFlagsData::CCorvaneTypeFlagsData(const CCorvaneTypeFlagsData& other)
    : CCorvaneSchemaAttribData(other), m_Flags(other.m_Flags), m_pItems(other.m_pItems),
      m_Item(m_pItems->insert(m_pItems->end(), this))
{
}

CCorvaneTypeFlagsData::~CCorvaneTypeFlagsData()
{
    m_pItems->erase(m_Item);
}

void CCorvaneTypeFlagsData::ParseDataToken(std::u16string_view token)
{
    std::optional<SFlag> flag = ParseFlag(token);
    if (!flag)
        return;
    const std::int32_t index = flag->m_nIndex;
    if (index < 1 || index > kFlagCount)
    {
        Tell(u"Invalid Index",
             u"Invalid 'Flag%d' index detected.  The valid index range is [1,32].\n\nSchema:\t %s\n"
             u"Attribute:\t %s",
             index);
        return;
    }
    const auto sameIndex = [index](const SFlag& other) { return other.m_nIndex == index; };
    if (std::any_of(m_Flags.begin(), m_Flags.end(), sameIndex))
    {
        Tell(u"Duplicate Entries",
             u"Duplicate 'Flag%d' descriptions have been detected.\n\nSchema:\t %s\nAttribute:\t %s", index);
        return;
    }
    m_Flags.push_back(std::move(*flag));
}

CRef<CCorvaneSchemaAttribData> CCorvaneTypeFlagsData::Clone() const
{
    return CRef<CCorvaneSchemaAttribData>(new CCorvaneTypeFlagsData(*this));
}

void CCorvaneTypeFlagsData::Tell(std::u16string_view title, std::u16string_view format,
                                 std::int32_t index) const
{
    GetManager().GetContext().m_Questions.Tell(title,
                                               FormatText(format, index, GetSchemaName(*this), GetName()));
}
