#include "DatabaseCreatorMgr.h"

CreatorHandle CDatabaseCreatorMgr::CreateDatabase()
{
    return m_Databases.Create();
}

void CDatabaseCreatorMgr::ReleaseDatabase(CreatorHandle database)
{
    m_Databases.Release(database);
}

bool CDatabaseCreatorMgr::SaveDatabase(CreatorHandle database, IZROutConverter* out)
{
    return out != nullptr &&
           m_Databases.Save(database, [out](const CGameDatabaseWriter& writer) { return writer.Save(*out); });
}

CreatorHandle CDatabaseCreatorMgr::CreateCategory(CreatorHandle database, const char* path,
                                                  const char* schema)
{
    if (path == nullptr || schema == nullptr)
        return 0;
    return m_Databases.Add(database, EHandleKind::Database, EHandleKind::Category,
                           [&](CGameDatabaseWriter& writer, std::uint32_t)
                           { return writer.AddCategory(path, schema); });
}

CreatorHandle CDatabaseCreatorMgr::CreateRecord(CreatorHandle category, const char* name)
{
    if (name == nullptr)
        return 0;
    return m_Databases.Add(category, EHandleKind::Category, EHandleKind::Record,
                           [&](CGameDatabaseWriter& writer, std::uint32_t index)
                           { return writer.AddRecord(index, name); });
}

CreatorHandle CDatabaseCreatorMgr::CreateAttribute(CreatorHandle record, const char* name, std::int32_t type,
                                                   std::int32_t kind, std::int32_t valueCount)
{
    if (name == nullptr)
        return 0;
    return m_Databases.Add(record, EHandleKind::Record, EHandleKind::Attribute,
                           [&](CGameDatabaseWriter& writer, std::uint32_t index)
                           { return writer.AddAttribute(index, name, type, kind, valueCount); });
}

void CDatabaseCreatorMgr::SetInteger(CreatorHandle attribute, std::int32_t index, std::int32_t value)
{
    m_Databases.Call(attribute, EHandleKind::Attribute, false,
                     [&](CGameDatabaseWriter& writer, std::uint32_t item)
                     { return writer.SetInteger(item, index, value); });
}

void CDatabaseCreatorMgr::SetFloat(CreatorHandle attribute, std::int32_t index, float value)
{
    m_Databases.Call(attribute, EHandleKind::Attribute, false,
                     [&](CGameDatabaseWriter& writer, std::uint32_t item)
                     { return writer.SetFloat(item, index, value); });
}

void CDatabaseCreatorMgr::SetText(CreatorHandle attribute, std::int32_t index, const char* value)
{
    if (value == nullptr)
        return;
    m_Databases.Call(attribute, EHandleKind::Attribute, false,
                     [&](CGameDatabaseWriter& writer, std::uint32_t item)
                     { return writer.SetText(item, index, value); });
}

void CDatabaseCreatorMgr::SetWideText(CreatorHandle attribute, std::int32_t index, const char16_t* value)
{
    if (value == nullptr)
        return;
    m_Databases.Call(attribute, EHandleKind::Attribute, false,
                     [&](CGameDatabaseWriter& writer, std::uint32_t item)
                     { return writer.SetWideText(item, index, value); });
}

void CDatabaseCreatorMgr::SetVector(CreatorHandle attribute, std::int32_t index, EDatabaseValueType type,
                                    const float* value)
{
    if (value == nullptr)
        return;
    m_Databases.Call(attribute, EHandleKind::Attribute, false,
                     [&](CGameDatabaseWriter& writer, std::uint32_t item)
                     { return writer.SetVector(item, index, type, value); });
}

void CDatabaseCreatorMgr::SetVector2(CreatorHandle attribute, std::int32_t index, const float value[2])
{
    SetVector(attribute, index, DBVALUE_VECTOR2, value);
}

void CDatabaseCreatorMgr::SetVector3(CreatorHandle attribute, std::int32_t index, const float value[3])
{
    SetVector(attribute, index, DBVALUE_VECTOR3, value);
}

void CDatabaseCreatorMgr::SetVector4(CreatorHandle attribute, std::int32_t index, const float value[4])
{
    SetVector(attribute, index, DBVALUE_VECTOR4, value);
}

void CDatabaseCreatorMgr::SetBoolean(CreatorHandle attribute, std::int32_t index, bool value)
{
    m_Databases.Call(attribute, EHandleKind::Attribute, false,
                     [&](CGameDatabaseWriter& writer, std::uint32_t item)
                     { return writer.SetBoolean(item, index, value); });
}

void CDatabaseCreatorMgr::SetRecordLink(CreatorHandle attribute, std::int32_t index, CreatorHandle record)
{
    const SHandle target = UnpackHandle(record);
    const bool isSameDatabase = target.serial == UnpackHandle(attribute).serial;
    if (record != 0 && (target.kind != EHandleKind::Record || !isSameDatabase))
        return;
    const std::uint32_t link = record == 0 ? CGameDatabaseWriter::kNone : target.index;
    m_Databases.Call(attribute, EHandleKind::Attribute, false,
                     [&](CGameDatabaseWriter& writer, std::uint32_t item)
                     { return writer.SetRecordLink(item, index, link); });
}
