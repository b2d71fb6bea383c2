#include "ShapeTable.h"

#include "ContentHash.h"
#include "PackedLayout.h"
#include "TextPool.h"

#include <charconv>

namespace
{
// Reads the row at the head of `text` ("12.Member" is row 12). A number that would not be written so, such as
// "012", is no row: the reader finds a member under the number as it is written.
bool ReadRow(std::string_view text, std::uint32_t& row)
{
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), row);
    const auto length = static_cast<std::size_t>(end - text.data());
    return error == std::errc() && length < text.size() && *end == '.' &&
           (length == 1 || text.front() != '0');
}
} // namespace

std::uint64_t CShapeTable::GetSize() const
{
    return m_Shapes.size() * sizeof(packed::Shape) + m_Entries.size() * sizeof(packed::Entry) +
           (m_Slots.size() + m_RowHeads.size()) * sizeof(std::uint32_t);
}

std::uint32_t CShapeTable::Intern(std::span<const SShapeKey> keys, std::uint64_t maxBytes)
{
    if (m_nRecent < m_Shapes.size() && IsSame(m_Shapes[m_nRecent], keys))
        return m_nRecent;
    const std::uint64_t hash = ContentHash(std::as_bytes(keys));
    const auto [first, last] = m_ByHash.equal_range(hash);
    for (auto same = first; same != last; ++same)
    {
        if (IsSame(m_Shapes[same->second], keys))
            return m_nRecent = same->second;
    }
    std::uint64_t size = GetSize() + sizeof(packed::Shape) + keys.size() * sizeof(packed::Entry) +
                         packed::SlotCount(keys.size()) * sizeof(std::uint32_t);
    for (const SShapeKey& key : keys)
        size += key.rows * sizeof(std::uint32_t);
    if (size > maxBytes)
        return packed::kNone;
    AddShape(keys);
    m_ByHash.emplace(hash, static_cast<std::uint32_t>(m_Shapes.size() - 1));
    return m_nRecent = static_cast<std::uint32_t>(m_Shapes.size() - 1);
}

bool CShapeTable::IsSame(const packed::Shape& shape, std::span<const SShapeKey> keys) const
{
    if (shape.entry_count() != keys.size())
        return false;
    for (std::size_t i = 0; i < keys.size(); ++i)
    {
        const packed::Entry& entry = m_Entries[shape.entries() + i];
        if (entry.name() != keys[i].name || entry.type() != keys[i].type || entry.kind() != keys[i].kind ||
            entry.row_count() != keys[i].rows)
            return false;
    }
    return true;
}

void CShapeTable::AddShape(std::span<const SShapeKey> keys)
{
    const packed::Shape shape(static_cast<std::uint32_t>(m_Entries.size()),
                              static_cast<std::uint32_t>(keys.size()),
                              static_cast<std::uint32_t>(m_Slots.size()), packed::SlotCount(keys.size()));
    for (const SShapeKey& key : keys)
    {
        const auto rows = key.type == DBVALUE_STRUCT ? static_cast<std::uint32_t>(m_RowHeads.size()) : 0;
        m_Entries.emplace_back(key.name, static_cast<std::uint8_t>(key.type),
                               static_cast<std::uint8_t>(key.kind), std::uint16_t{0}, packed::kNone, 0U, 0U,
                               packed::kNone, rows, key.rows);
        m_RowHeads.insert(m_RowHeads.end(), key.rows, packed::kNone);
    }
    m_Slots.resize(m_Slots.size() + shape.slot_count());
    FillSlots(shape);
    LinkMembers(shape);
    m_Shapes.push_back(shape);
}

void CShapeTable::FillSlots(const packed::Shape& shape)
{
    const std::uint32_t mask = shape.slot_count() - 1;
    for (std::uint32_t i = 0; i < shape.entry_count(); ++i)
    {
        const std::uint32_t name = m_Entries[shape.entries() + i].name();
        const std::uint64_t hash = packed::AddToNameHash(packed::kNameHashStart, m_Texts[name]);
        std::uint32_t slot = packed::FinishNameHash(hash) & mask;
        std::uint32_t* slots = m_Slots.data() + shape.slots();
        // Of several attributes with one name only the first is found, so only the first has a slot.
        while (slots[slot] != 0 && m_Entries[shape.entries() + slots[slot] - 1].name() != name)
            slot = (slot + 1) & mask;
        if (slots[slot] == 0)
            slots[slot] = i + 1;
    }
}

void CShapeTable::LinkMembers(const packed::Shape& shape)
{
    packed::Entry* const entries = m_Entries.data() + shape.entries();
    // Backwards, so that the member behind is known when a member is put at the head of its row.
    for (std::uint32_t i = shape.entry_count(); i-- > 0;)
    {
        packed::Entry& entry = entries[i];
        const SPlace place = FindPlace(shape, m_Texts[entry.name()]);
        if (place.parent == packed::kNone)
            continue;
        std::uint32_t& head = m_RowHeads[entries[place.parent].rows() + place.row];
        entry = packed::Entry(entry.name(), entry.type(), entry.kind(), 0, place.parent, place.row,
                              place.member, head, entry.rows(), entry.row_count());
        head = i;
    }
}

// The innermost struct wins: "S.0.Sub.1.X" is a member of "S.0.Sub" when that is a struct, else of "S".
CShapeTable::SPlace CShapeTable::FindPlace(const packed::Shape& shape, std::string_view name) const
{
    SPlace place{packed::kNone, 0, 0};
    std::uint64_t hash = packed::kNameHashStart;
    for (std::size_t i = 0; i < name.size(); ++i)
    {
        std::uint32_t row = 0;
        if (name[i] == '.' && ReadRow(name.substr(i + 1), row))
        {
            const std::uint32_t parent = FindEntry(shape, hash, name.substr(0, i));
            if (parent != packed::kNone && row < m_Entries[shape.entries() + parent].row_count())
                place = {parent, row, static_cast<std::uint32_t>(name.find('.', i + 1) + 1)};
        }
        hash = packed::AddToNameHash(hash, name.substr(i, 1));
    }
    return place;
}

std::uint32_t CShapeTable::FindEntry(const packed::Shape& shape, std::uint64_t nameHash,
                                     std::string_view name) const
{
    const std::uint32_t mask = shape.slot_count() - 1;
    const std::uint32_t* slots = m_Slots.data() + shape.slots();
    for (std::uint32_t slot = packed::FinishNameHash(nameHash) & mask; slots[slot] != 0;
         slot = (slot + 1) & mask)
    {
        if (m_Texts[m_Entries[shape.entries() + slots[slot] - 1].name()] == name)
            return slots[slot] - 1;
    }
    return packed::kNone;
}
