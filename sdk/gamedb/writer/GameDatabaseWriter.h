// Builds a packed database in memory and writes it.
//
// Everything is named by the index that its Add answered, counted from 0. The same calls in the same order
// give the same bytes on every machine. Texts are copied. An operation on an index that does not exist, a
// value at or past the attribute's count, or a value of another type than the attribute's is refused: kNone
// or false, and nothing changes. So is whatever would make the file larger than `maxBytes`; the database is
// then incomplete, and Save fails. std::bad_alloc passes through and leaves the database as it was before.
#pragma once

#include "DatabaseModel.h"
#include "PackedLayout.h"
#include "SizeBudget.h"
#include "idatabasecreator.h"

#include <cstdint>
#include <string_view>

class IZROutConverter;

class CGameDatabaseWriter
{
public:
    static constexpr std::uint32_t kNone = packed::kNone;

    explicit CGameDatabaseWriter(std::uint64_t maxBytes = packed::kMaxFileBytes) : m_Budget(maxBytes) {}

    [[nodiscard]] std::uint32_t AddCategory(std::string_view path, std::string_view schema);
    [[nodiscard]] std::uint32_t AddRecord(std::uint32_t category, std::string_view name);
    // `type` is one of EDatabaseValueType, `kind` one of EDatabaseValueKind (not plain for texts only),
    // `count` from 0 to packed::kMaxValues. Attributes of several records may come in any order.
    [[nodiscard]] std::uint32_t AddAttribute(std::uint32_t record, std::string_view name, std::int32_t type,
                                             std::int32_t kind, std::int32_t count);

    bool SetBoolean(std::uint32_t attribute, std::int32_t index, bool value);
    bool SetInteger(std::uint32_t attribute, std::int32_t index, std::int32_t value);
    bool SetFloat(std::uint32_t attribute, std::int32_t index, float value);
    bool SetText(std::uint32_t attribute, std::int32_t index, std::string_view value);
    bool SetWideText(std::uint32_t attribute, std::int32_t index, std::u16string_view value);
    // Copies as many floats as the vector type `type` has.
    bool SetVector(std::uint32_t attribute, std::int32_t index, EDatabaseValueType type, const float* value);
    // `record` is the index of a record, or kNone for a link to nothing.
    bool SetRecordLink(std::uint32_t attribute, std::int32_t index, std::uint32_t record);

    // Writes the whole file, one piece after the other. Returns false when the database is too large or `out`
    // failed.
    [[nodiscard]] bool Save(IZROutConverter& out) const;

private:
    // The number of the name that the next attribute of `record` gets.
    std::uint32_t InternName(std::uint32_t record, std::string_view name);
    // The attribute when it has that type and that value; otherwise null.
    SDatabaseModel::SAttrib* FindValue(std::uint32_t attribute, std::int32_t index, EDatabaseValueType type);
    bool SetWord(std::uint32_t attribute, std::int32_t index, EDatabaseValueType type, std::uint32_t word);

    CSizeBudget m_Budget;
    SDatabaseModel m_Model;
    // The first attribute of the record that was filled last.
    std::size_t m_nRecordStart = 0;
    // The attribute of the record before it that stands where the next one will stand.
    std::size_t m_nNamesake = 0;
};
