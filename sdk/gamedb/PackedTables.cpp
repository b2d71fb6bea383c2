#include "PackedTables.h"

#include <charconv>

namespace
{
template <class Element, class Vector> std::span<const Element> View(const Vector* vector)
{
    return {reinterpret_cast<const Element*>(vector->Data()), vector->size()};
}

// Walks a hashed table from the hash's own slot to the first empty one. A slot holds an index plus 1.
template <class Matches>
std::uint32_t Probe(SPackedTables::Words slots, std::uint32_t hash, const Matches& matches)
{
    const std::size_t mask = slots.size() - 1;
    for (std::size_t i = hash & mask; slots[i] != 0; i = (i + 1) & mask)
    {
        if (matches(slots[i] - 1))
            return slots[i] - 1;
    }
    return packed::kNone;
}
} // namespace

void SPackedTables::Bind(const packed::Database& root, std::size_t size)
{
    version = root.version();
    fileSize = size;
    textOffsets = View<std::uint32_t>(root.text_offsets());
    textBytes = View<char>(root.text_bytes());
    wideOffsets = View<std::uint32_t>(root.wide_offsets());
    wideUnits = View<char16_t>(root.wide_units());
    categories = View<packed::Category>(root.categories());
    records = View<packed::Record>(root.records());
    recordSlots = View<std::uint32_t>(root.record_slots());
    shapes = View<packed::Shape>(root.shapes());
    entries = View<packed::Entry>(root.entries());
    entrySlots = View<std::uint32_t>(root.entry_slots());
    rowHeads = View<std::uint32_t>(root.row_heads());
    attribs = View<packed::Attrib>(root.attribs());
    words = View<std::uint32_t>(root.words());
    floats = View<float>(root.floats());
}

std::uint32_t SPackedTables::FindRecord(std::string_view path) const
{
    const auto isPath = [&](std::uint32_t index)
    {
        const std::string_view category = Text(categories[records[index].category()].path());
        const std::string_view name = Text(records[index].name());
        return path.size() == category.size() + 1 + name.size() && path[category.size()] == '/' &&
               path.ends_with(name) && path.starts_with(category);
    };
    const std::uint64_t hash = packed::AddToNameHash(packed::kNameHashStart, path);
    return Probe(recordSlots, packed::FinishNameHash(hash), isPath);
}

std::uint32_t SPackedTables::FindEntry(const packed::Shape& shape, std::string_view name) const
{
    const auto isName = [&](std::uint32_t index)
    { return Text(entries[shape.entries() + index].name()) == name; };
    const std::uint64_t hash = packed::AddToNameHash(packed::kNameHashStart, name);
    return Probe(entrySlots.subspan(shape.slots(), shape.slot_count()), packed::FinishNameHash(hash), isName);
}

std::uint32_t SPackedTables::FindMember(const packed::Shape& shape, std::uint32_t parent, std::uint32_t row,
                                        std::string_view name) const
{
    const auto isMember = [&](std::uint32_t index)
    {
        const packed::Entry& entry = entries[shape.entries() + index];
        return entry.parent() == parent && entry.row() == row &&
               Text(entry.name()).substr(entry.member()) == name;
    };
    // The full name is hashed in its pieces, so that nothing has to be put together.
    char number[12] = ".";
    const auto end = std::to_chars(number + 1, number + 11, row).ptr;
    *end = '.';
    std::uint64_t hash = packed::kNameHashStart;
    hash = packed::AddToNameHash(hash, Text(entries[shape.entries() + parent].name()));
    hash = packed::AddToNameHash(hash, {number, static_cast<std::size_t>(end + 1 - number)});
    hash = packed::AddToNameHash(hash, name);
    return Probe(entrySlots.subspan(shape.slots(), shape.slot_count()), packed::FinishNameHash(hash),
                 isMember);
}
