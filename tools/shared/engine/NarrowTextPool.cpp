#include "NarrowTextPool.h"

#include "NameCompare.h"
#include "Unicode.h"

#include <algorithm>
#include <array>

namespace
{
constexpr std::size_t kFirstTable = 64;

bool IsAscii(std::string_view text)
{
    unsigned all = 0;
    for (const char byte : text)
        all |= static_cast<unsigned char>(byte);
    return all < 0x80;
}

// Nearly all names are short and ASCII: those are widened without the heap.
std::size_t HashNarrow(std::string_view text)
{
    std::array<char16_t, 128> units;
    if (text.size() > units.size() || !IsAscii(text))
        return HashName(ToWide(text));
    std::transform(text.begin(), text.end(), units.begin(),
                   [](char byte) { return static_cast<char16_t>(byte); });
    return HashName({units.data(), text.size()});
}
} // namespace

CNarrowTextPool::CNarrowTextPool() : m_Table(kFirstTable)
{
    Add({});
}

CNarrowTextPool::TextId CNarrowTextPool::Add(std::string_view text)
{
    const std::size_t hash = HashNarrow(text);
    const auto id = static_cast<TextId>(m_Entries.size());
    TextId name = id;
    std::size_t place = hash & (m_Table.size() - 1);
    for (; m_Table[place] != 0; place = (place + 1) & (m_Table.size() - 1))
    {
        const SEntry& entry = m_Entries[m_Table[place] - 1];
        if (entry.m_nHash != hash)
            continue;
        if (GetView(entry) == text)
            return m_Table[place] - 1;
        if (name == id && EqualNames(ToWide(GetView(entry)), ToWide(text)))
            name = entry.m_nName;
    }
    m_Table[place] = id + 1;
    m_Entries.push_back({m_sTexts.size(), text.size(), hash, name});
    m_sTexts.append(text).push_back('\0');
    if (m_Entries.size() * 2 > m_Table.size())
        Grow();
    return id;
}

void CNarrowTextPool::Grow()
{
    m_Table.assign(m_Table.size() * 2, 0);
    for (std::size_t i = 0; i < m_Entries.size(); ++i)
    {
        std::size_t place = m_Entries[i].m_nHash & (m_Table.size() - 1);
        while (m_Table[place] != 0)
            place = (place + 1) & (m_Table.size() - 1);
        m_Table[place] = static_cast<std::uint32_t>(i + 1);
    }
}
