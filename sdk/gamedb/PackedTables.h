// The vectors of a packed file that has been checked: every index in them may be followed without a test.
// Internal to this folder; a game uses CGameDatabase and its handles.
#pragma once

#include "PackedLayout.h"
#include "PackedOverlay.h"

#include "packeddatabase_generated.h"

#include <span>
#include <string_view>

struct SPackedTables
{
    using Words = std::span<const std::uint32_t>;

    std::uint32_t version = 0;
    std::size_t fileSize = 0;
    Words textOffsets;
    std::span<const char> textBytes;
    Words wideOffsets;
    std::span<const char16_t> wideUnits;
    std::span<const packed::Category> categories;
    std::span<const packed::Record> records;
    Words recordSlots;
    std::span<const packed::Shape> shapes;
    std::span<const packed::Entry> entries;
    Words entrySlots;
    Words rowHeads;
    std::span<const packed::Attrib> attribs;
    Words words;
    std::span<const float> floats;
    // Not owned; null when every value is the packed one.
    const CPackedOverlay* overlay = nullptr;

    // Takes the vectors as they stand in a file whose offsets are sound, before their content is checked.
    void Bind(const packed::Database& root, std::size_t size);

    // Both texts have a terminator behind their last character.
    std::string_view Text(std::uint32_t id) const
    {
        return {textBytes.data() + textOffsets[id], textOffsets[id + 1] - textOffsets[id] - 1};
    }
    std::u16string_view WideText(std::uint32_t id) const
    {
        return {wideUnits.data() + wideOffsets[id], wideOffsets[id + 1] - wideOffsets[id] - 1};
    }

    const packed::Shape& ShapeOf(std::uint32_t record) const { return shapes[records[record].shape()]; }
    const packed::Entry& EntryOf(std::uint32_t record, std::uint32_t position) const
    {
        return entries[ShapeOf(record).entries() + position];
    }
    // The one place that leads from an attribute to its values.
    SPackedValues ValuesOf(std::uint32_t record, std::uint32_t position) const
    {
        const std::uint32_t attrib = records[record].attribs() + position;
        if (overlay != nullptr) [[unlikely]]
        {
            if (const SPackedValues* const found = overlay->Find(attrib))
                return *found;
        }
        return PackedValuesOf(attrib);
    }
    bool IsOverridden(std::uint32_t record, std::uint32_t position) const
    {
        return overlay != nullptr && overlay->Find(records[record].attribs() + position) != nullptr;
    }
    // What the file says, whatever stands in for it.
    SPackedValues PackedValuesOf(std::uint32_t attrib) const
    {
        return {attribs[attrib].count(), attribs[attrib].value(), words.data(), floats.data()};
    }
    // A text that is a value. Names are always in the file.
    std::string_view ValueText(std::uint32_t id) const
    {
        const std::string* const found = overlay != nullptr ? overlay->FindText(id) : nullptr;
        return found != nullptr ? *found : Text(id);
    }
    std::u16string_view WideValueText(std::uint32_t id) const
    {
        const std::u16string* const found = overlay != nullptr ? overlay->FindWideText(id) : nullptr;
        return found != nullptr ? *found : WideText(id);
    }

    // Each answers packed::kNone when there is none, and the first when there are several.
    std::uint32_t FindRecord(std::string_view path) const;
    std::uint32_t FindEntry(const packed::Shape& shape, std::string_view name) const;
    std::uint32_t FindMember(const packed::Shape& shape, std::uint32_t parent, std::uint32_t row,
                             std::string_view name) const;
};
