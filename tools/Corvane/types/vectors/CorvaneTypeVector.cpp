#include "vectors/CorvaneTypeVector.h"

namespace
{
EDatabaseValueType GetValueType(EVectorDimension dimension)
{
    switch (dimension)
    {
    case EVectorDimension::Two:
        return DBVALUE_VECTOR2;
    case EVectorDimension::Four:
        return DBVALUE_VECTOR4;
    default:
        return DBVALUE_VECTOR3;
    }
}

bool SendVector(IDatabaseCreatorUnpackedMgr& mgr, CreatorHandle attribute, EDatabaseValueType type,
                const VectorValue& value)
{
    if (type == DBVALUE_VECTOR2)
        return mgr.SetVector2(attribute, value.data());
    if (type == DBVALUE_VECTOR3)
        return mgr.SetVector3(attribute, value.data());
    return mgr.SetVector4(attribute, value.data());
}

void SendVector(IDatabaseCreatorMgr& creator, CreatorHandle attribute, std::size_t index,
                EDatabaseValueType type, const VectorValue& value)
{
    const auto place = static_cast<std::int32_t>(index);
    if (type == DBVALUE_VECTOR2)
        creator.SetVector2(attribute, place, value.data());
    else if (type == DBVALUE_VECTOR3)
        creator.SetVector3(attribute, place, value.data());
    else
        creator.SetVector4(attribute, place, value.data());
}
} // namespace

bool CCorvaneTypeVector::Init(std::u16string_view defaultText, CCorvaneSchemaAttribData& data)
{
    return CCorvaneType::Init(FormatVector(ParseVector(defaultText)), data);
}

bool CCorvaneTypeVector::SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t,
                                        CreatorHandle& handle, std::u16string_view prefix)
{
    handle = 0;
    if (m_nDimension == EVectorDimension::None)
        return false;
    const EDatabaseValueType type = GetValueType(m_nDimension);
    handle = CreateInDatabase(creator, record, type, DBKIND_PLAIN, prefix);
    return SendValues(handle, [&](std::size_t i) { SendVector(creator, handle, i, type, GetVector(i)); });
}

bool CCorvaneTypeVector::SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                        std::u16string_view prefix, std::u16string_view location)
{
    if (m_nDimension == EVectorDimension::None)
        return false;
    const EDatabaseValueType type = GetValueType(m_nDimension);
    const CreatorHandle handle =
        CreateInOverride(mgr, database, type, "Vector", "GetVectorAttribData()", prefix, location);
    return SendValues(handle, [&](std::size_t i) { return SendVector(*mgr, handle, type, GetVector(i)); });
}

std::u16string_view CCorvaneTypeVector::GetSchemaTypeName() const
{
    switch (m_nDimension)
    {
    case EVectorDimension::Two:
        return u"Vector2";
    case EVectorDimension::Four:
        return u"Vector4";
    default:
        return u"Vector3";
    }
}

void CCorvaneTypeVector::Assign(const CCorvaneAttrib& source)
{
    if (source.GetTypeGuid() == kTypeGuid)
        m_nDimension = static_cast<const CCorvaneTypeVector&>(source).m_nDimension;
    CCorvaneType::Assign(source);
}

CRef<CCorvaneType> CCorvaneTypeVector::Clone(CCorvaneRecord* record) const
{
    return CloneAs<CCorvaneTypeVector>(record);
}

VectorValue CCorvaneTypeVector::GetVector(std::size_t index) const
{
    return ParseVector(GetTypedText(index));
}

bool CCorvaneTypeVector::SetVector(std::size_t index, const VectorValue& value)
{
    return index < GetValueCount() && SetValue(index, FormatVector(value));
}
