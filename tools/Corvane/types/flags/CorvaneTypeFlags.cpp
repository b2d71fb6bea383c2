#include "flags/CorvaneTypeFlags.h"

#include "flags/FlagsText.h"

bool CCorvaneTypeFlags::Init(std::u16string_view defaultText, CCorvaneSchemaAttribData& data)
{
    return CCorvaneType::Init(FormatFlags(ParseFlags(defaultText)), data);
}

bool CCorvaneTypeFlags::SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t,
                                       CreatorHandle& handle, std::u16string_view prefix)
{
    handle = CreateInDatabase(creator, record, DBVALUE_INTEGER, DBKIND_PLAIN, prefix);
    return SendValues(handle, [&](std::size_t i)
                      { creator.SetInteger(handle, static_cast<std::int32_t>(i), GetSigned(i)); });
}

bool CCorvaneTypeFlags::SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                       std::u16string_view prefix, std::u16string_view location)
{
    const CreatorHandle handle =
        CreateInOverride(mgr, database, DBVALUE_INTEGER, "Flags", "GetFlagsAttribData()", prefix, location);
    return SendValues(handle, [&](std::size_t i) { return mgr->SetInteger(handle, GetSigned(i)); });
}

CRef<CCorvaneType> CCorvaneTypeFlags::Clone(CCorvaneRecord* record) const
{
    return CloneAs<CCorvaneTypeFlags>(record);
}

std::uint32_t CCorvaneTypeFlags::GetFlags(std::size_t index) const
{
    return ParseFlags(GetTypedText(index));
}

bool CCorvaneTypeFlags::SetFlags(std::size_t index, std::uint32_t mask)
{
    return index < GetValueCount() && SetValue(index, FormatFlags(mask));
}

const CCorvaneTypeFlagsData* CCorvaneTypeFlags::GetFlagsAttribData() const
{
    return static_cast<const CCorvaneTypeFlagsData*>(GetAttribData());
}

std::int32_t CCorvaneTypeFlags::GetSigned(std::size_t index) const
{
    return static_cast<std::int32_t>(GetFlags(index));
}
