#include "DatabaseCreatorUnpackedMgr.h"

#include <algorithm>

CDatabaseCreatorUnpackedMgr::SDatabase* CDatabaseCreatorUnpackedMgr::Find(const SHandle& handle,
                                                                          EHandleKind kind)
{
    if (handle.kind != kind || (kind == EHandleKind::Database && handle.index != 0))
        return nullptr;
    const auto found = std::find_if(m_Databases.begin(), m_Databases.end(),
                                    [&](const auto& database) { return database->serial == handle.serial; });
    return found == m_Databases.end() ? nullptr : found->get();
}

template <class Result, class Work>
Result CDatabaseCreatorUnpackedMgr::Call(CreatorHandle handle, EHandleKind kind, Result refusal,
                                         const Work& work)
{
    const SHandle unpacked = UnpackHandle(handle);
    SDatabase* const database = Find(unpacked, kind);
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

CreatorHandle CDatabaseCreatorUnpackedMgr::CreateDatabase()
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

void CDatabaseCreatorUnpackedMgr::ReleaseDatabase(CreatorHandle database)
{
    const SDatabase* const open = Find(UnpackHandle(database), EHandleKind::Database);
    if (open != nullptr)
        std::erase_if(m_Databases, [open](const auto& other) { return other.get() == open; });
}

bool CDatabaseCreatorUnpackedMgr::SaveDatabase(CreatorHandle database, const char* databasePath,
                                               const char* constraintsPath)
{
    const SDatabase* const open = Find(UnpackHandle(database), EHandleKind::Database);
    if (open == nullptr || open->isBroken || databasePath == nullptr || constraintsPath == nullptr)
        return false;
    // Not through Call: a save that ends with an exception changes nothing, so the next one may succeed.
    try
    {
        return open->writer.Save(databasePath, constraintsPath);
    }
    catch (...)
    {
        return false;
    }
}

CreatorHandle CDatabaseCreatorUnpackedMgr::CreateAttribute(CreatorHandle database, const char* help,
                                                           std::int32_t type, const char* fullName,
                                                           const char* data, const char* typeName,
                                                           std::int32_t, std::int32_t valueCount)
{
    if (help == nullptr || fullName == nullptr || data == nullptr || typeName == nullptr)
        return 0;
    return Call(database, EHandleKind::Database, CreatorHandle{0},
                [&](SDatabase& open, std::uint32_t)
                {
                    const std::uint32_t index =
                        open.writer.AddAttribute(help, type, fullName, data, typeName, valueCount);
                    if (index == COverrideWriter::kNone)
                        return CreatorHandle{0};
                    return PackHandle({EHandleKind::Attribute, open.serial, index});
                });
}

bool CDatabaseCreatorUnpackedMgr::SetIntegerLimits(CreatorHandle attribute, std::int32_t minimum,
                                                   std::int32_t maximum)
{
    return Call(attribute, EHandleKind::Attribute, false,
                [&](SDatabase& open, std::uint32_t item)
                { return open.writer.SetIntegerLimits(item, minimum, maximum); });
}

bool CDatabaseCreatorUnpackedMgr::SetFloatLimits(CreatorHandle attribute, float minimum, float maximum)
{
    return Call(attribute, EHandleKind::Attribute, false,
                [&](SDatabase& open, std::uint32_t item)
                { return open.writer.SetFloatLimits(item, minimum, maximum); });
}

bool CDatabaseCreatorUnpackedMgr::SetTextLimits(CreatorHandle attribute, std::int32_t minimum,
                                                std::int32_t maximum)
{
    return Call(attribute, EHandleKind::Attribute, false,
                [&](SDatabase& open, std::uint32_t item)
                { return open.writer.SetTextLimits(item, minimum, maximum); });
}

bool CDatabaseCreatorUnpackedMgr::SetInteger(CreatorHandle attribute, std::int32_t value)
{
    return Call(attribute, EHandleKind::Attribute, false,
                [&](SDatabase& open, std::uint32_t item) { return open.writer.AddInteger(item, value); });
}

bool CDatabaseCreatorUnpackedMgr::SetFloat(CreatorHandle attribute, float value)
{
    return Call(attribute, EHandleKind::Attribute, false,
                [&](SDatabase& open, std::uint32_t item) { return open.writer.AddFloat(item, value); });
}

bool CDatabaseCreatorUnpackedMgr::SetText(CreatorHandle attribute, const char* value)
{
    if (value == nullptr)
        return false;
    return Call(attribute, EHandleKind::Attribute, false,
                [&](SDatabase& open, std::uint32_t item) { return open.writer.AddText(item, value); });
}

bool CDatabaseCreatorUnpackedMgr::SetBoolean(CreatorHandle attribute, bool value)
{
    return Call(attribute, EHandleKind::Attribute, false,
                [&](SDatabase& open, std::uint32_t item) { return open.writer.AddBoolean(item, value); });
}

bool CDatabaseCreatorUnpackedMgr::SetVector(CreatorHandle attribute, EDatabaseValueType type,
                                            const float* value)
{
    if (value == nullptr)
        return false;
    return Call(attribute, EHandleKind::Attribute, false,
                [&](SDatabase& open, std::uint32_t item)
                { return open.writer.AddVector(item, type, value); });
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
