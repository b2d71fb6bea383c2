// A record of an open database. See GameDatabase.h for the life of handles and texts.
#pragma once

#include "GameCategory.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

class CGameAttribute;
struct SPackedTables;

class CGameRecord
{
public:
    CGameRecord() = default;

    explicit operator bool() const { return m_pTables != nullptr; }
    bool operator==(const CGameRecord&) const = default;

    std::string_view GetName() const;
    CGameCategory GetCategory() const;
    std::string_view GetSchemaName() const { return GetCategory().GetSchemaName(); }
    // The text by which the database finds the record. Allocates.
    std::string GetPath() const;

    // All attributes in the order of their creation, the members of structs among them;
    // CGameAttribute::IsMember tells those. An index past the end gives an empty handle.
    std::size_t GetAttributeCount() const;
    CGameAttribute GetAttribute(std::size_t index) const;
    // Finds an attribute by its name, compared byte by byte, in constant time. Of several with one name, the
    // first. A struct's member is found under "<struct>.<row>.<member>", or through CGameStructRow.
    CGameAttribute FindAttribute(std::string_view name) const;

private:
    friend class CGameAttribute;
    friend class CGameDatabase;
    CGameRecord(const SPackedTables& tables, std::uint32_t index) : m_pTables(&tables), m_nIndex(index) {}

    const SPackedTables* m_pTables = nullptr;
    std::uint32_t m_nIndex = 0;
};
