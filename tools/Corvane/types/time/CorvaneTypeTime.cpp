#include "time/CorvaneTypeTime.h"

#include "FormatText.h"
#include "NumberText.h"
#include "common/SchemaName.h"

bool CCorvaneTypeTime::Init(std::u16string_view defaultText, CCorvaneSchemaAttribData& data)
{
    const bool negativeAllowed = static_cast<const CCorvaneTypeTimeData&>(data).IsNegativeAllowed();
    const std::int32_t time = ParseInteger(defaultText);
    if (time >= 0 || negativeAllowed)
        return CCorvaneType::Init(FormatInteger(time), data);
    TellInvalidDefault(
        data, FormatText(u"The attribute '%s' of schema '%s' contains an invalid default time of '%d'.",
                         data.GetName(), GetSchemaName(data), time));
    return CCorvaneType::Init(FormatInteger(0), data);
}

bool CCorvaneTypeTime::SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t,
                                      CreatorHandle& handle, std::u16string_view prefix)
{
    handle = CreateInDatabase(creator, record, DBVALUE_INTEGER, DBKIND_PLAIN, prefix);
    return SendValues(handle, [&](std::size_t i)
                      { creator.SetInteger(handle, static_cast<std::int32_t>(i), GetTime(i)); });
}

bool CCorvaneTypeTime::SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                      std::u16string_view prefix, std::u16string_view location)
{
    const CreatorHandle handle =
        CreateInOverride(mgr, database, DBVALUE_INTEGER, "Time", "GetTimeAttribData()", prefix, location);
    return SendValues(handle, [&](std::size_t i) { return mgr->SetInteger(handle, GetTime(i)); });
}

CRef<CCorvaneType> CCorvaneTypeTime::Clone(CCorvaneRecord* record) const
{
    return CloneAs<CCorvaneTypeTime>(record);
}

std::int32_t CCorvaneTypeTime::GetTime(std::size_t index) const
{
    return ParseInteger(GetTypedText(index));
}

bool CCorvaneTypeTime::SetTime(std::size_t index, std::int32_t milliseconds)
{
    return index < GetValueCount() && SetValue(index, FormatInteger(milliseconds));
}

const CCorvaneTypeTimeData* CCorvaneTypeTime::GetTimeAttribData() const
{
    return static_cast<const CCorvaneTypeTimeData*>(GetAttribData());
}
