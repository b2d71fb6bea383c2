#include "color/CorvaneTypeColor.h"

#include <algorithm>

namespace
{
void SendColor(IDatabaseCreatorMgr& creator, CreatorHandle attribute, std::size_t index,
               EColorEncoding encoding, std::uint32_t color)
{
    const auto place = static_cast<std::int32_t>(index);
    const EDatabaseValueType type = GetColorValueType(encoding);
    if (type == DBVALUE_INTEGER)
        creator.SetInteger(attribute, place, EncodeColorInteger(encoding, color));
    else if (type == DBVALUE_VECTOR3)
        creator.SetVector3(attribute, place, EncodeColorVector(encoding, color).data());
    else
        creator.SetVector4(attribute, place, EncodeColorVector(encoding, color).data());
}

bool SendColor(IDatabaseCreatorUnpackedMgr& mgr, CreatorHandle attribute, EColorEncoding encoding,
               std::uint32_t color)
{
    const EDatabaseValueType type = GetColorValueType(encoding);
    if (type == DBVALUE_INTEGER)
        return mgr.SetInteger(attribute, EncodeColorInteger(encoding, color));
    if (type == DBVALUE_VECTOR3)
        return mgr.SetVector3(attribute, EncodeColorVector(encoding, color).data());
    return mgr.SetVector4(attribute, EncodeColorVector(encoding, color).data());
}
} // namespace

bool CCorvaneTypeColor::Init(std::u16string_view defaultText, CCorvaneSchemaAttribData& data)
{
    ColorParts parts = ParseColorParts(defaultText);
    for (std::int32_t& part : parts)
        part = std::min(part, 255);
    return CCorvaneType::Init(FormatColorParts(parts), data);
}

bool CCorvaneTypeColor::SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t,
                                       CreatorHandle& handle, std::u16string_view prefix)
{
    const EColorEncoding encoding = GetEncoding();
    handle = CreateInDatabase(creator, record, GetColorValueType(encoding), DBKIND_PLAIN, prefix);
    return SendValues(handle, [&](std::size_t i) { SendColor(creator, handle, i, encoding, GetColor(i)); });
}

bool CCorvaneTypeColor::SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                       std::u16string_view prefix, std::u16string_view location)
{
    const EColorEncoding encoding = GetEncoding();
    const CreatorHandle handle = CreateInOverride(mgr, database, GetColorValueType(encoding), "Color",
                                                  "GetColorAttribData()", prefix, location);
    return SendValues(handle, [&](std::size_t i) { return SendColor(*mgr, handle, encoding, GetColor(i)); });
}

CRef<CCorvaneType> CCorvaneTypeColor::Clone(CCorvaneRecord* record) const
{
    return CloneAs<CCorvaneTypeColor>(record);
}

std::uint32_t CCorvaneTypeColor::GetColor(std::size_t index) const
{
    return ParseColor(GetTypedText(index));
}

bool CCorvaneTypeColor::SetColor(std::size_t index, std::uint32_t color)
{
    return index < GetValueCount() && SetValue(index, FormatColor(color));
}

const CCorvaneTypeColorData* CCorvaneTypeColor::GetColorAttribData() const
{
    return static_cast<const CCorvaneTypeColorData*>(GetAttribData());
}

EColorEncoding CCorvaneTypeColor::GetEncoding() const
{
    const CCorvaneTypeColorData* data = GetColorAttribData();
    return data ? data->GetEncoding() : EColorEncoding::Int_ABGR;
}
