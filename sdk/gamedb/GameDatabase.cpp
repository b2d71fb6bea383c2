#include "GameDatabase.h"

#include "MappedFile.h"
#include "PackedCheck.h"
#include "PackedTables.h"

#include <cstdint>

struct CGameDatabase::SContent
{
    CMappedFile file;
    SPackedTables tables;
    std::unique_ptr<CPackedOverlay> overlay;
};

CGameDatabase::CGameDatabase(std::unique_ptr<SContent> content) : m_pContent(std::move(content)) {}
CGameDatabase::~CGameDatabase() = default;
CGameDatabase::CGameDatabase(CGameDatabase&& other) noexcept = default;
CGameDatabase& CGameDatabase::operator=(CGameDatabase&& other) noexcept = default;

std::optional<CGameDatabase> CGameDatabase::Open(const std::string& path, std::string& error)
{
    auto content = std::make_unique<SContent>();
    std::string cause = content->file.Open(path);
    if (cause.empty() && content->file.GetBytes().empty())
        cause = "it is empty";
    if (cause.empty())
        cause = packed::Check(content->file.GetBytes(), content->tables);
    error = cause.empty() ? std::string() : "Cannot open the database '" + path + "': " + cause + ".";
    if (!cause.empty())
        return std::nullopt;
    return CGameDatabase(std::move(content));
}

std::optional<CGameDatabase> CGameDatabase::OpenMemory(std::span<const std::byte> bytes, std::string& error)
{
    auto content = std::make_unique<SContent>();
    const bool isAligned = reinterpret_cast<std::uintptr_t>(bytes.data()) % alignof(std::uint64_t) == 0;
    const std::string cause =
        isAligned ? packed::Check(bytes, content->tables) : "it does not begin at a multiple of 8";
    error = cause.empty() ? std::string() : "Cannot open the database in memory: " + cause + ".";
    if (!cause.empty())
        return std::nullopt;
    return CGameDatabase(std::move(content));
}

const SPackedTables& CGameDatabase::GetTables() const
{
    return m_pContent->tables;
}

void CGameDatabase::SetOverlay(std::unique_ptr<CPackedOverlay> overlay)
{
    m_pContent->tables.overlay = overlay.get();
    m_pContent->overlay = std::move(overlay);
}

std::size_t CGameDatabase::GetCategoryCount() const
{
    return m_pContent->tables.categories.size();
}

CGameCategory CGameDatabase::GetCategory(std::size_t index) const
{
    if (index >= GetCategoryCount())
        return {};
    return {m_pContent->tables, static_cast<std::uint32_t>(index)};
}

std::size_t CGameDatabase::GetRecordCount() const
{
    return m_pContent->tables.records.size();
}

CGameRecord CGameDatabase::GetRecord(std::size_t index) const
{
    if (index >= GetRecordCount())
        return {};
    return {m_pContent->tables, static_cast<std::uint32_t>(index)};
}

CGameRecord CGameDatabase::FindRecord(std::string_view path) const
{
    return GetRecord(m_pContent->tables.FindRecord(path));
}

SGameDatabaseInfo CGameDatabase::GetInfo() const
{
    const SPackedTables& tables = m_pContent->tables;
    SGameDatabaseInfo info;
    info.formatVersion = tables.version;
    info.fileBytes = tables.fileSize;
    info.categories = tables.categories.size();
    info.records = tables.records.size();
    info.shapes = tables.shapes.size();
    info.attributes = tables.attribs.size();
    info.attributeBytes = tables.attribs.size_bytes();
    info.listBytes = tables.words.size_bytes() + tables.floats.size_bytes();
    info.texts = tables.textOffsets.size() - 1;
    info.textBytes = tables.textBytes.size_bytes();
    info.wideTexts = tables.wideOffsets.size() - 1;
    info.wideTextBytes = tables.wideUnits.size_bytes();
    return info;
}
