#include "DatabaseCreatorMgr.h"

#include <algorithm>

CDatabaseCreatorMgr::SDatabase* CDatabaseCreatorMgr::Find(const SHandle& handle, EHandleKind kind)
{
    if (handle.kind != kind)
        return nullptr;
    if (m_pRecent != nullptr && m_pRecent->serial == handle.serial)
        return m_pRecent;
    const auto found = std::find_if(m_Databases.begin(), m_Databases.end(),
                                    [&](const auto& database) { return database->serial == handle.serial; });
    if (found == m_Databases.end())
        return nullptr;
    m_pRecent = found->get();
    return m_pRecent;
}

template <class Result, class Work>
Result CDatabaseCreatorMgr::Call(CreatorHandle handle, EHandleKind kind, Result refusal, const Work& work)
{
    const SHandle unpacked = UnpackHandle(handle);
    SDatabase* database = Find(unpacked, kind);
    if (database == nullptr)
        return refusal;
    try
    {
        return work(*database, unpacked.index);
    }
    catch (...)
    {
        database->isBroken = true;
        return refusal;
    }
}

template <class Add>
CreatorHandle CDatabaseCreatorMgr::Create(CreatorHandle parent, EHandleKind parentKind, EHandleKind kind,
                                          const Add& add)
{
    return Call(parent, parentKind, CreatorHandle{0},
                [&](SDatabase& database, std::uint32_t parentIndex)
                {
                    const std::uint32_t index = add(database.writer, parentIndex);
                    if (index == CGameDatabaseWriter::kNone)
                        return CreatorHandle{0};
                    return PackHandle({kind, database.serial, index});
                });
}

CreatorHandle CDatabaseCreatorMgr::CreateDatabase()
{
    try
    {
        auto database = std::make_unique<SDatabase>();
        database->serial = TakeSerial();
        if (database->serial == 0)
            return 0;
        m_Databases.push_back(std::move(database));
    }
    catch (...)
    {
        return 0;
    }
    return PackHandle({EHandleKind::Database, m_Databases.back()->serial, 0});
}

void CDatabaseCreatorMgr::ReleaseDatabase(CreatorHandle database)
{
    const SHandle handle = UnpackHandle(database);
    if (handle.index != 0 || Find(handle, EHandleKind::Database) == nullptr)
        return;
    m_pRecent = nullptr;
    std::erase_if(m_Databases, [&](const auto& open) { return open->serial == handle.serial; });
}

bool CDatabaseCreatorMgr::SaveDatabase(CreatorHandle database, IZROutConverter* out)
{
    const SHandle handle = UnpackHandle(database);
    const SDatabase* open = Find(handle, EHandleKind::Database);
    if (out == nullptr || open == nullptr || handle.index != 0 || open->isBroken)
        return false;
    // Not through Call: a save that ends with an exception changes nothing, so the next one may succeed.
    try
    {
        return open->writer.Save(*out);
    }
    catch (...)
    {
        return false;
    }
}

CreatorHandle CDatabaseCreatorMgr::CreateCategory(CreatorHandle database, const char* path,
                                                  const char* schema)
{
    if (path == nullptr || schema == nullptr)
        return 0;
    return Create(database, EHandleKind::Database, EHandleKind::Category,
                  [&](CGameDatabaseWriter& writer, std::uint32_t index)
                  { return index == 0 ? writer.AddCategory(path, schema) : CGameDatabaseWriter::kNone; });
}

CreatorHandle CDatabaseCreatorMgr::CreateRecord(CreatorHandle category, const char* name)
{
    if (name == nullptr)
        return 0;
    return Create(category, EHandleKind::Category, EHandleKind::Record,
                  [&](CGameDatabaseWriter& writer, std::uint32_t index)
                  { return writer.AddRecord(index, name); });
}

CreatorHandle CDatabaseCreatorMgr::CreateAttribute(CreatorHandle record, const char* name, std::int32_t type,
                                                   std::int32_t kind, std::int32_t valueCount)
{
    if (name == nullptr)
        return 0;
    return Create(record, EHandleKind::Record, EHandleKind::Attribute,
                  [&](CGameDatabaseWriter& writer, std::uint32_t index)
                  { return writer.AddAttribute(index, name, type, kind, valueCount); });
}

void CDatabaseCreatorMgr::SetInteger(CreatorHandle attribute, std::int32_t index, std::int32_t value)
{
    Call(attribute, EHandleKind::Attribute, false,
         [&](SDatabase& open, std::uint32_t item) { return open.writer.SetInteger(item, index, value); });
}

void CDatabaseCreatorMgr::SetFloat(CreatorHandle attribute, std::int32_t index, float value)
{
    Call(attribute, EHandleKind::Attribute, false,
         [&](SDatabase& open, std::uint32_t item) { return open.writer.SetFloat(item, index, value); });
}

void CDatabaseCreatorMgr::SetText(CreatorHandle attribute, std::int32_t index, const char* value)
{
    if (value == nullptr)
        return;
    Call(attribute, EHandleKind::Attribute, false,
         [&](SDatabase& open, std::uint32_t item) { return open.writer.SetText(item, index, value); });
}

void CDatabaseCreatorMgr::SetWideText(CreatorHandle attribute, std::int32_t index, const char16_t* value)
{
    if (value == nullptr)
        return;
    Call(attribute, EHandleKind::Attribute, false,
         [&](SDatabase& open, std::uint32_t item) { return open.writer.SetWideText(item, index, value); });
}

void CDatabaseCreatorMgr::SetVector(CreatorHandle attribute, std::int32_t index, EDatabaseValueType type,
                                    const float* value)
{
    if (value == nullptr)
        return;
    Call(attribute, EHandleKind::Attribute, false,
         [&](SDatabase& open, std::uint32_t item)
         { return open.writer.SetVector(item, index, type, value); });
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
    Call(attribute, EHandleKind::Attribute, false,
         [&](SDatabase& open, std::uint32_t item) { return open.writer.SetBoolean(item, index, value); });
}

void CDatabaseCreatorMgr::SetRecordLink(CreatorHandle attribute, std::int32_t index, CreatorHandle record)
{
    const SHandle target = UnpackHandle(record);
    const bool isSameDatabase = target.serial == UnpackHandle(attribute).serial;
    if (record != 0 && (target.kind != EHandleKind::Record || !isSameDatabase))
        return;
    const std::uint32_t link = record == 0 ? CGameDatabaseWriter::kNone : target.index;
    Call(attribute, EHandleKind::Attribute, false,
         [&](SDatabase& open, std::uint32_t item) { return open.writer.SetRecordLink(item, index, link); });
}
