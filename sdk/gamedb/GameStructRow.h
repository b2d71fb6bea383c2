// One row of a struct attribute: a group of member attributes. See GameDatabase.h for the life of handles.
//
// The members of a row, in the order of their creation:
//     for (CGameAttribute member = row.GetFirstMember(); member; member = member.GetNextMember())
#pragma once

#include <cstdint>
#include <string_view>

class CGameAttribute;
struct SPackedTables;

class CGameStructRow
{
public:
    CGameStructRow() = default;

    explicit operator bool() const { return m_pTables != nullptr; }
    bool operator==(const CGameStructRow&) const = default;

    // Empty for a row without members.
    CGameAttribute GetFirstMember() const;
    // Finds a member of this row by its own name, compared byte by byte, in constant time.
    CGameAttribute FindMember(std::string_view name) const;

private:
    friend class CGameAttribute;
    CGameStructRow(const SPackedTables& tables, std::uint32_t record, std::uint32_t position,
                   std::uint32_t row)
        : m_pTables(&tables), m_nRecord(record), m_nPosition(position), m_nRow(row)
    {
    }

    const SPackedTables* m_pTables = nullptr;
    std::uint32_t m_nRecord = 0;
    std::uint32_t m_nPosition = 0;
    std::uint32_t m_nRow = 0;
};
