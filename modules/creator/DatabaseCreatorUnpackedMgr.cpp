#include "DatabaseCreatorUnpackedMgr.h"

CreatorHandle CDatabaseCreatorUnpackedMgr::CreateDatabase()
{
    return m_Databases.Create();
}

void CDatabaseCreatorUnpackedMgr::ReleaseDatabase(CreatorHandle database)
{
    m_Databases.Release(database);
}

bool CDatabaseCreatorUnpackedMgr::SaveDatabase(CreatorHandle database, const char* databasePath,
                                               const char* constraintsPath)
{
    return databasePath != nullptr && constraintsPath != nullptr &&
           m_Databases.Save(database, [&](const COverrideWriter& writer)
                            { return writer.Save(databasePath, constraintsPath); });
}

CreatorHandle CDatabaseCreatorUnpackedMgr::CreateAttribute(CreatorHandle database, const char* help,
                                                           std::int32_t type, const char* fullName,
                                                           const char* data, const char* typeName,
                                                           std::int32_t, std::int32_t valueCount)
{
    if (help == nullptr || fullName == nullptr || data == nullptr || typeName == nullptr)
        return 0;
    return m_Databases.Add(database, EHandleKind::Database, EHandleKind::Attribute,
                           [&](COverrideWriter& writer, std::uint32_t)
                           { return writer.AddAttribute(help, type, fullName, data, typeName, valueCount); });
}

bool CDatabaseCreatorUnpackedMgr::SetIntegerLimits(CreatorHandle attribute, std::int32_t minimum,
                                                   std::int32_t maximum)
{
    return m_Databases.Call(attribute, EHandleKind::Attribute, false,
                            [&](COverrideWriter& writer, std::uint32_t item)
                            { return writer.SetIntegerLimits(item, minimum, maximum); });
}

bool CDatabaseCreatorUnpackedMgr::SetFloatLimits(CreatorHandle attribute, float minimum, float maximum)
{
    return m_Databases.Call(attribute, EHandleKind::Attribute, false,
                            [&](COverrideWriter& writer, std::uint32_t item)
                            { return writer.SetFloatLimits(item, minimum, maximum); });
}

bool CDatabaseCreatorUnpackedMgr::SetTextLimits(CreatorHandle attribute, std::int32_t minimum,
                                                std::int32_t maximum)
{
    return m_Databases.Call(attribute, EHandleKind::Attribute, false,
                            [&](COverrideWriter& writer, std::uint32_t item)
                            { return writer.SetTextLimits(item, minimum, maximum); });
}

bool CDatabaseCreatorUnpackedMgr::SetInteger(CreatorHandle attribute, std::int32_t value)
{
    return m_Databases.Call(attribute, EHandleKind::Attribute, false,
                            [&](COverrideWriter& writer, std::uint32_t item)
                            { return writer.AddInteger(item, value); });
}

bool CDatabaseCreatorUnpackedMgr::SetFloat(CreatorHandle attribute, float value)
{
    return m_Databases.Call(attribute, EHandleKind::Attribute, false,
                            [&](COverrideWriter& writer, std::uint32_t item)
                            { return writer.AddFloat(item, value); });
}

bool CDatabaseCreatorUnpackedMgr::SetText(CreatorHandle attribute, const char* value)
{
    if (value == nullptr)
        return false;
    return m_Databases.Call(attribute, EHandleKind::Attribute, false,
                            [&](COverrideWriter& writer, std::uint32_t item)
                            { return writer.AddText(item, value); });
}

bool CDatabaseCreatorUnpackedMgr::SetBoolean(CreatorHandle attribute, bool value)
{
    return m_Databases.Call(attribute, EHandleKind::Attribute, false,
                            [&](COverrideWriter& writer, std::uint32_t item)
                            { return writer.AddBoolean(item, value); });
}

bool CDatabaseCreatorUnpackedMgr::SetVector(CreatorHandle attribute, EDatabaseValueType type,
                                            const float* value)
{
    if (value == nullptr)
        return false;
    return m_Databases.Call(attribute, EHandleKind::Attribute, false,
                            [&](COverrideWriter& writer, std::uint32_t item)
                            { return writer.AddVector(item, type, value); });
}

bool CDatabaseCreatorUnpackedMgr::SetVector2(CreatorHandle attribute, const float value[2])
{
    return SetVector(attribute, DBVALUE_VECTOR2, value);
}

bool CDatabaseCreatorUnpackedMgr::SetVector3(CreatorHandle attribute, const float value[3])
{
    return SetVector(attribute, DBVALUE_VECTOR3, value);
}

bool CDatabaseCreatorUnpackedMgr::SetVector4(CreatorHandle attribute, const float value[4])
{
    return SetVector(attribute, DBVALUE_VECTOR4, value);
}
