#include "PackedCheck.h"

#include "PackedSeal.h"
#include "PackedTables.h"

#include <algorithm>
#include <bit>

namespace packed
{
namespace
{
constexpr const char* kForeign = "it is not a packed database";
constexpr const char* kDamaged = "it is damaged";

// A pool of terminated texts: the first is the empty one, so that a value never set reads as it.
template <class Char> bool IsPoolSound(SPackedTables::Words offsets, std::span<const Char> units)
{
    if (offsets.size() < 2 || offsets[0] != 0 || offsets[1] != 1 || offsets.back() != units.size())
        return false;
    for (std::size_t i = 1; i < offsets.size(); ++i)
    {
        if (offsets[i] <= offsets[i - 1] || offsets[i] > units.size() || units[offsets[i] - 1] != 0)
            return false;
    }
    return true;
}

// A hashed table: a power of two slots, of which one at least is free and none leads too far.
bool AreSlotsSound(SPackedTables::Words slots, std::size_t count)
{
    return std::has_single_bit(slots.size()) && std::find(slots.begin(), slots.end(), 0U) != slots.end() &&
           std::all_of(slots.begin(), slots.end(), [&](std::uint32_t slot) { return slot <= count; });
}

// True when [first, first + count) is what follows the elements taken so far, and moves behind it. Ranges
// that touch without a gap or an overlap keep the check linear.
bool Take(std::uint64_t& taken, std::uint64_t first, std::uint64_t count, std::uint64_t size)
{
    if (first != taken || count > size - taken)
        return false;
    taken += count;
    return true;
}

class CContentCheck
{
public:
    explicit CContentCheck(const SPackedTables& tables) : m_Tables(tables) {}

    bool Run()
    {
        return IsPoolSound(m_Tables.textOffsets, m_Tables.textBytes) &&
               IsPoolSound(m_Tables.wideOffsets, m_Tables.wideUnits) && AreCategoriesSound() &&
               AreShapesSound() && AreRecordsSound() &&
               AreSlotsSound(m_Tables.recordSlots, m_Tables.records.size());
    }

private:
    bool IsText(std::uint32_t id) const { return id < m_Tables.textOffsets.size() - 1; }
    bool IsWideText(std::uint32_t id) const { return id < m_Tables.wideOffsets.size() - 1; }

    bool AreCategoriesSound() const
    {
        return std::all_of(m_Tables.categories.begin(), m_Tables.categories.end(),
                           [&](const Category& c) { return IsText(c.path()) && IsText(c.schema()); });
    }

    bool AreShapesSound()
    {
        std::uint64_t slots = 0;
        std::uint64_t entries = 0;
        for (const Shape& shape : m_Tables.shapes)
        {
            if (!Take(entries, shape.entries(), shape.entry_count(), m_Tables.entries.size()) ||
                !Take(slots, shape.slots(), shape.slot_count(), m_Tables.entrySlots.size()) ||
                !AreSlotsSound(m_Tables.entrySlots.subspan(shape.slots(), shape.slot_count()),
                               shape.entry_count()) ||
                !AreEntriesSound(m_Tables.entries.subspan(shape.entries(), shape.entry_count())))
                return false;
        }
        return entries == m_Tables.entries.size() && slots == m_Tables.entrySlots.size() &&
               m_nRowHeads == m_Tables.rowHeads.size();
    }

    bool AreEntriesSound(std::span<const Entry> shape)
    {
        // Names first: the checks behind them compare the names of two entries.
        if (!std::all_of(shape.begin(), shape.end(), [&](const Entry& e) { return IsText(e.name()); }))
            return false;
        for (std::size_t i = 0; i < shape.size(); ++i)
        {
            const Entry& entry = shape[i];
            if (entry.type() < DBVALUE_BOOLEAN || entry.type() > DBVALUE_STRUCT ||
                entry.kind() > DBKIND_EFFECT || !IsMemberSound(shape, entry) || !IsNextSound(shape, i) ||
                !AreRowsSound(shape, i))
                return false;
        }
        return true;
    }

    // A member's name is longer than its struct's, so a walk down from struct to member cannot go in circles.
    bool IsMemberSound(std::span<const Entry> shape, const Entry& entry) const
    {
        if (entry.parent() == kNone)
            return entry.member() == 0;
        if (entry.parent() >= shape.size())
            return false;
        const Entry& parent = shape[entry.parent()];
        return parent.type() == DBVALUE_STRUCT && entry.row() < parent.row_count() &&
               entry.member() <= m_Tables.Text(entry.name()).size() &&
               entry.member() > m_Tables.Text(parent.name()).size();
    }

    // The chain of a row only goes forward, so it ends.
    static bool IsNextSound(std::span<const Entry> shape, std::size_t index)
    {
        const std::uint32_t next = shape[index].next();
        return next == kNone ||
               (next > index && next < shape.size() && shape[next].parent() == shape[index].parent() &&
                shape[next].row() == shape[index].row());
    }

    bool AreRowsSound(std::span<const Entry> shape, std::size_t index)
    {
        const Entry& entry = shape[index];
        if (entry.type() != DBVALUE_STRUCT)
            return entry.row_count() == 0;
        if (!Take(m_nRowHeads, entry.rows(), entry.row_count(), m_Tables.rowHeads.size()))
            return false;
        for (std::uint32_t row = 0; row < entry.row_count(); ++row)
        {
            const std::uint32_t head = m_Tables.rowHeads[entry.rows() + row];
            if (head != kNone &&
                (head >= shape.size() || shape[head].parent() != index || shape[head].row() != row))
                return false;
        }
        return true;
    }

    bool AreRecordsSound()
    {
        std::uint64_t attribs = 0;
        for (const Record& record : m_Tables.records)
        {
            if (record.category() >= m_Tables.categories.size() || !IsText(record.name()) ||
                record.shape() >= m_Tables.shapes.size())
                return false;
            const Shape& shape = m_Tables.shapes[record.shape()];
            if (!Take(attribs, record.attribs(), shape.entry_count(), m_Tables.attribs.size()))
                return false;
            for (std::uint32_t i = 0; i < shape.entry_count(); ++i)
            {
                if (!IsAttribSound(m_Tables.entries[shape.entries() + i],
                                   m_Tables.attribs[record.attribs() + i]))
                    return false;
            }
        }
        return attribs == m_Tables.attribs.size() && m_nWords == m_Tables.words.size() &&
               m_nFloats == m_Tables.floats.size();
    }

    bool IsAttribSound(const Entry& entry, const Attrib& attrib)
    {
        const std::uint32_t count = attrib.count();
        const std::uint32_t type = entry.type();
        if (count > kMaxValues)
            return false;
        if (type == DBVALUE_STRUCT)
            return count == entry.row_count();
        if (Dimension(type) != 0)
            return count == 0 || Take(m_nFloats, attrib.value(), std::uint64_t{count} * Dimension(type),
                                      m_Tables.floats.size());
        if (count == 1)
            return IsWordSound(type, attrib.value());
        if (count == 0)
            return true;
        if (!Take(m_nWords, attrib.value(), count, m_Tables.words.size()))
            return false;
        const SPackedTables::Words words = m_Tables.words.subspan(attrib.value(), count);
        return std::all_of(words.begin(), words.end(),
                           [&](std::uint32_t word) { return IsWordSound(type, word); });
    }

    bool IsWordSound(std::uint32_t type, std::uint32_t word) const
    {
        switch (type)
        {
        case DBVALUE_TEXT:
            return IsText(word);
        case DBVALUE_WIDETEXT:
            return IsWideText(word);
        case DBVALUE_RECORDLINK:
            return word <= m_Tables.records.size();
        default:
            return true;
        }
    }

    const SPackedTables& m_Tables;
    std::uint64_t m_nRowHeads = 0;
    std::uint64_t m_nWords = 0;
    std::uint64_t m_nFloats = 0;
};
} // namespace

std::string Check(std::span<const std::byte> bytes, SPackedTables& tables)
{
    constexpr std::size_t kHeadSize = 8;
    if (bytes.size() < kHeadSize || !DatabaseBufferHasIdentifier(bytes.data()))
        return kForeign;
    if (bytes.size() >= FLATBUFFERS_MAX_BUFFER_SIZE)
        return kDamaged;
    flatbuffers::Verifier verifier(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    if (!VerifyDatabaseBuffer(verifier))
        return kDamaged;
    const Database& root = *GetDatabase(bytes.data());
    if (root.version() != kFormatVersion)
        return "its format version " + std::to_string(root.version()) +
               " is not supported (this reader knows version " + std::to_string(kFormatVersion) + ")";
    if (!IsSealed(bytes))
        return kDamaged;
    tables.Bind(root, bytes.size());
    return CContentCheck(tables).Run() ? std::string() : kDamaged;
}
} // namespace packed
