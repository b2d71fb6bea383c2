// An attribute of a record with its values. See GameDatabase.h for the life of handles and texts.
//
// A value getter that does not fit the attribute's type, or an index at or past GetCount, answers zero,
// false, the empty text or an empty handle, as a value that was never set does.
#pragma once

#include "GameRecord.h"
#include "GameStructRow.h"
#include "idatabasecreator.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

struct SPackedTables;

class CGameAttribute
{
public:
    CGameAttribute() = default;

    explicit operator bool() const { return m_pTables != nullptr; }
    bool operator==(const CGameAttribute&) const = default;

    // The name under which the record finds it: for a struct's member "<struct>.<row>.<member>".
    std::string_view GetName() const;
    // The name without the struct and the row ahead of it; for an attribute outside structs the name.
    std::string_view GetMemberName() const;
    bool IsMember() const;
    CGameRecord GetRecord() const;

    // An empty handle answers 0, which is no type.
    EDatabaseValueType GetType() const;
    // What a text stands for; DBKIND_PLAIN for the other types.
    EDatabaseValueKind GetKind() const;
    // Values of the attribute; for a struct its rows.
    std::size_t GetCount() const;
    // The values are a server's, not those of the packed file (GameOverrides.h).
    bool IsOverridden() const;

    bool GetBoolean(std::size_t index = 0) const;
    std::int32_t GetInteger(std::size_t index = 0) const;
    float GetFloat(std::size_t index = 0) const;
    std::string_view GetText(std::size_t index = 0) const;
    std::u16string_view GetWideText(std::size_t index = 0) const;
    std::array<float, 2> GetVector2(std::size_t index = 0) const;
    std::array<float, 3> GetVector3(std::size_t index = 0) const;
    std::array<float, 4> GetVector4(std::size_t index = 0) const;
    // The record that the link names; empty for a link to nothing or to a record that was not compiled.
    CGameRecord GetRecordLink(std::size_t index = 0) const;
    CGameStructRow GetRow(std::size_t index = 0) const;

    // The member behind this one in the same row of a struct; empty at the end and outside structs.
    CGameAttribute GetNextMember() const;

private:
    friend class CGameRecord;
    friend class CGameStructRow;
    CGameAttribute(const SPackedTables& tables, std::uint32_t record, std::uint32_t position)
        : m_pTables(&tables), m_nRecord(record), m_nPosition(position)
    {
    }
    // The value's word, or 0 when the attribute is not of that type or has no such value.
    std::uint32_t GetWord(EDatabaseValueType type, std::size_t index) const;
    template <std::size_t Dimension> std::array<float, Dimension> GetVector(std::size_t index) const;

    const SPackedTables* m_pTables = nullptr;
    std::uint32_t m_nRecord = 0;
    std::uint32_t m_nPosition = 0;
};
