#include "NarrowTextPool.h"

#include "NameCompare.h"
#include "Unicode.h"

#include <algorithm>
#include <array>

namespace
{
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

CNarrowTextPool::CNarrowTextPool()
{
    Add({});
}

CNarrowTextPool::TextId CNarrowTextPool::Add(std::string_view text)
{
    const auto id = static_cast<TextId>(m_Entries.size());
    const std::size_t hash = HashNarrow(text);
    TextId name = id;
    const auto isThis = [&](TextId known)
    {
        const SEntry& entry = m_Entries[known];
        if (GetView(entry) == text)
            return true;
        if (name == id && EqualNames(ToWide(GetView(entry)), ToWide(text)))
            name = entry.m_nName;
        return false;
    };
    if (const TextId known = m_Index.Find(hash, isThis); known != CPlaceIndex::kNone)
        return known;
    m_Index.Add(hash, id);
    m_Entries.push_back({m_sTexts.size(), text.size(), name});
    m_sTexts.append(text).push_back('\0');
    return id;
}
