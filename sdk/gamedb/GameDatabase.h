// The runtime reader of a packed database: maps the file, checks it once, then answers in place.
//
// Open is linear in the size of the file: offsets, checksum and every index are checked, so that a truncated,
// altered or foreign file is refused and nothing behind Open can leave the file. After that the database
// changes only when overrides are applied (GameOverrides.h): any number of threads may read it, no reading
// call allocates except where it says so, and none fails other than by answering "none".
//
// Categories, records and attributes are small handles, passed by value. They and the texts that they answer
// live as long as the database, also when it has been moved. A handle may be empty, false in a condition; its
// getters then answer zero, the empty text or another empty handle.
//
// Narrow text is UTF-8 as the compiler was given it (not checked), wide text is UTF-16 units (a surrogate may
// stand alone); both have a terminator behind their last character.
#pragma once

#include "GameAttribute.h"
#include "GameCategory.h"
#include "GameRecord.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

class CPackedOverlay;
struct SPackedTables;

// Counts and sizes, for reports.
struct SGameDatabaseInfo
{
    std::uint32_t formatVersion = 0;
    std::size_t fileBytes = 0;
    std::size_t categories = 0;
    std::size_t records = 0;
    std::size_t shapes = 0;
    std::size_t attributes = 0;
    std::size_t attributeBytes = 0;
    std::size_t listBytes = 0;
    std::size_t texts = 0;
    std::size_t textBytes = 0;
    std::size_t wideTexts = 0;
    std::size_t wideTextBytes = 0;
};

class CGameDatabase
{
public:
    ~CGameDatabase();
    CGameDatabase(CGameDatabase&& other) noexcept;
    CGameDatabase& operator=(CGameDatabase&& other) noexcept;

    // Opens the file at `path` (UTF-8). On failure answers nothing and sets `error` to one line that names
    // the file and the cause.
    [[nodiscard]] static std::optional<CGameDatabase> Open(const std::string& path, std::string& error);
    // The same for bytes in memory, which the caller keeps unchanged as long as the database lives. They
    // begin at a multiple of 8.
    [[nodiscard]] static std::optional<CGameDatabase> OpenMemory(std::span<const std::byte> bytes,
                                                                 std::string& error);

    // Indexes count from 0, in the order in which the database was compiled; one past the end gives an empty
    // handle.
    std::size_t GetCategoryCount() const;
    CGameCategory GetCategory(std::size_t index) const;
    std::size_t GetRecordCount() const;
    CGameRecord GetRecord(std::size_t index) const;

    // Finds a record by its category's path, a '/' and its name, compared byte by byte, in constant time. Of
    // several with one path, the first.
    CGameRecord FindRecord(std::string_view path) const;

    SGameDatabaseInfo GetInfo() const;

private:
    friend class CGameOverrides;
    struct SContent;
    explicit CGameDatabase(std::unique_ptr<SContent> content);

    const SPackedTables& GetTables() const;
    // Null gives every attribute its packed values again.
    void SetOverlay(std::unique_ptr<CPackedOverlay> overlay);

    std::unique_ptr<SContent> m_pContent;
};
