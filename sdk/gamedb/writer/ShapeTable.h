// The shapes of a database's records, each once, laid out as the packed file holds them: entries with their
// places in structs, and the hashed names.
#pragma once

#include "packeddatabase_generated.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

template <class Char> class CTextPool;

// What decides whether two attributes have the same place in a shape.
struct SShapeKey
{
    std::uint32_t name;
    std::uint16_t type;
    std::uint16_t kind;
    // Rows of a struct, 0 for every other type.
    std::uint32_t rows;
};

class CShapeTable
{
public:
    explicit CShapeTable(const CTextPool<char>& texts) : m_Texts(texts) {}

    // The number of the shape with these attributes. A new one is not added, and packed::kNone answered, when
    // the table would become larger than `maxBytes`.
    std::uint32_t Intern(std::span<const SShapeKey> keys, std::uint64_t maxBytes);

    std::uint64_t GetSize() const;
    std::span<const packed::Shape> GetShapes() const { return m_Shapes; }
    std::span<const packed::Entry> GetEntries() const { return m_Entries; }
    std::span<const std::uint32_t> GetSlots() const { return m_Slots; }
    std::span<const std::uint32_t> GetRowHeads() const { return m_RowHeads; }

private:
    // A struct's row, and the byte at which the name of its member begins.
    struct SPlace
    {
        std::uint32_t parent;
        std::uint32_t row;
        std::uint32_t member;
    };

    bool IsSame(const packed::Shape& shape, std::span<const SShapeKey> keys) const;
    void AddShape(std::span<const SShapeKey> keys);
    void FillSlots(const packed::Shape& shape);
    void LinkMembers(const packed::Shape& shape);
    SPlace FindPlace(const packed::Shape& shape, std::string_view name) const;
    std::uint32_t FindEntry(const packed::Shape& shape, std::uint64_t nameHash, std::string_view name) const;

    const CTextPool<char>& m_Texts;
    // The answer before, which the next record of a category mostly gets too.
    std::uint32_t m_nRecent = 0;
    std::vector<packed::Shape> m_Shapes;
    std::vector<packed::Entry> m_Entries;
    std::vector<std::uint32_t> m_Slots;
    std::vector<std::uint32_t> m_RowHeads;
    // From the hash of the keys to the shapes that have it. Only looked up, never walked: the order of an
    // unordered container must not reach the file.
    std::unordered_multimap<std::uint64_t, std::uint32_t> m_ByHash;
};
