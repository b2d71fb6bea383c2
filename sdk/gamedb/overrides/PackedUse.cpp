#include "PackedUse.h"

#include "PackedTables.h"
#include "Utf8.h"

#include <algorithm>

namespace
{
// The name without the numbers of rows: "Drops.12.Item" is "Drops..Item".
std::string WithoutRows(std::string_view name)
{
    std::string key;
    while (!name.empty())
    {
        const std::size_t end = std::min(name.find('.'), name.size());
        const std::string_view piece = name.substr(0, end);
        const bool isRow = !key.empty() && piece.find_first_not_of("0123456789") == std::string_view::npos;
        if (!isRow)
            key += piece;
        if (end < name.size())
            key += '.';
        name.remove_prefix(std::min(end + 1, name.size()));
    }
    return key;
}
} // namespace

bool CPackedUse::IsWordInUse(std::string_view attribute, std::string_view word)
{
    return UseOf(attribute).words.count(std::string(word)) != 0;
}

bool CPackedUse::IsSchemaInUse(std::string_view attribute, std::string_view schema)
{
    return UseOf(attribute).schemas.count(std::string(schema)) != 0;
}

const CPackedUse::SUse& CPackedUse::UseOf(std::string_view attribute)
{
    const std::string key = WithoutRows(attribute);
    const auto [place, isNew] = m_Uses.try_emplace(key);
    if (!isNew)
        return place->second;
    // Names lie in the shapes, which many records share.
    std::vector<std::vector<std::uint32_t>> positions(m_Tables.shapes.size());
    for (std::size_t shape = 0; shape < positions.size(); ++shape)
    {
        for (std::uint32_t i = 0; i < m_Tables.shapes[shape].entry_count(); ++i)
        {
            if (WithoutRows(m_Tables.Text(m_Tables.entries[m_Tables.shapes[shape].entries() + i].name())) ==
                key)
                positions[shape].push_back(i);
        }
    }
    for (std::uint32_t record = 0; record < m_Tables.records.size(); ++record)
    {
        for (const std::uint32_t position : positions[m_Tables.records[record].shape()])
            AddValues(place->second, record, position);
    }
    return place->second;
}

void CPackedUse::AddValues(SUse& use, std::uint32_t record, std::uint32_t position) const
{
    const std::uint32_t type = m_Tables.EntryOf(record, position).type();
    if (type != DBVALUE_TEXT && type != DBVALUE_WIDETEXT && type != DBVALUE_RECORDLINK)
        return;
    const SPackedValues values = m_Tables.PackedValuesOf(m_Tables.records[record].attribs() + position);
    for (std::uint32_t i = 0; i < values.count; ++i)
    {
        const std::uint32_t word = values.count == 1 ? values.value : values.words[values.value + i];
        if (type == DBVALUE_TEXT)
            use.words.emplace(m_Tables.Text(word));
        else if (type == DBVALUE_WIDETEXT)
            use.words.insert(ToUtf8(m_Tables.WideText(word)));
        else if (word != 0)
            use.schemas.emplace(
                m_Tables.Text(m_Tables.categories[m_Tables.records[word - 1].category()].schema()));
    }
}
