// A category of an open database. See GameDatabase.h for the life of handles and texts.
#pragma once

#include <cstdint>
#include <string_view>

struct SPackedTables;

class CGameCategory
{
public:
    CGameCategory() = default;

    explicit operator bool() const { return m_pTables != nullptr; }
    bool operator==(const CGameCategory&) const = default;

    // The names of the category and its parents, outermost first, joined by '/'.
    std::string_view GetPath() const;
    // The schema of its records; empty for a category that holds only sub-categories.
    std::string_view GetSchemaName() const;

private:
    friend class CGameDatabase;
    friend class CGameRecord;
    CGameCategory(const SPackedTables& tables, std::uint32_t index) : m_pTables(&tables), m_nIndex(index) {}

    const SPackedTables* m_pTables = nullptr;
    std::uint32_t m_nIndex = 0;
};
