#include "boolean/CorvaneTypeBoolean.h"

#include "FormatText.h"
#include "NameCompare.h"
#include "NumberText.h"
#include "common/SchemaName.h"

bool CCorvaneTypeBoolean::Init(std::u16string_view defaultText, CCorvaneSchemaAttribData& data)
{
    const bool isFalse = EqualNames(defaultText, FormatBoolean(false));
    if (!defaultText.empty() && !isFalse && !ParseBoolean(defaultText))
        TellInvalidDefault(
            data, FormatText(
                      u"The attribute '%s' of schema '%s' contains an invalid boolean default value of '%s'.",
                      data.GetName(), GetSchemaName(data), defaultText));
    return CCorvaneType::Init(FormatBoolean(!isFalse), data);
}

bool CCorvaneTypeBoolean::SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t,
                                         CreatorHandle& handle, std::u16string_view prefix)
{
    handle = CreateInDatabase(creator, record, DBVALUE_BOOLEAN, DBKIND_PLAIN, prefix);
    return SendValues(handle, [&](std::size_t i)
                      { creator.SetBoolean(handle, static_cast<std::int32_t>(i), GetBoolean(i)); });
}

bool CCorvaneTypeBoolean::SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                         std::u16string_view prefix, std::u16string_view location)
{
    const CreatorHandle handle = CreateInOverride(mgr, database, DBVALUE_BOOLEAN, "Boolean",
                                                  "GetBooleanAttribData()", prefix, location);
    return SendValues(handle, [&](std::size_t i) { return mgr->SetBoolean(handle, GetBoolean(i)); });
}

CRef<CCorvaneType> CCorvaneTypeBoolean::Clone(CCorvaneRecord* record) const
{
    return CloneAs<CCorvaneTypeBoolean>(record);
}

bool CCorvaneTypeBoolean::GetBoolean(std::size_t index) const
{
    return ParseBoolean(GetTypedText(index));
}

bool CCorvaneTypeBoolean::SetBoolean(std::size_t index, bool value)
{
    return index < GetValueCount() && SetValue(index, FormatBoolean(value));
}
