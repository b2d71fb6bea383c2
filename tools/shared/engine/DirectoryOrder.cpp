#include "DirectoryOrder.h"

#include "FileSystem.h"
#include "NameCompare.h"

#include <algorithm>

namespace
{
struct SOrderKey
{
    std::size_t offset; // Of the folded name in the pool.
    std::size_t index;  // Of the entry.
};
} // namespace

void SortDirectoryEntries(std::vector<SDirectoryEntry>& entries)
{
    std::size_t total = 0;
    for (const SDirectoryEntry& entry : entries)
        total += entry.m_sName.size();
    std::u16string pool(total, u'\0');
    std::vector<SOrderKey> keys;
    keys.reserve(entries.size());
    std::size_t offset = 0;
    for (const SDirectoryEntry& entry : entries)
    {
        keys.push_back({offset, keys.size()});
        FoldUnits(entry.m_sName.data(), entry.m_sName.size(), pool.data() + offset);
        offset += entry.m_sName.size();
    }
    // Folding keeps lengths, so that an entry's own length is that of its folded name.
    const auto folded = [&](const SOrderKey& key)
    { return std::u16string_view(pool).substr(key.offset, entries[key.index].m_sName.size()); };
    std::sort(keys.begin(), keys.end(),
              [&](const SOrderKey& a, const SOrderKey& b)
              {
                  const int order = folded(a).compare(folded(b));
                  return order != 0 ? order < 0 : entries[a.index].m_sName < entries[b.index].m_sName;
              });
    std::vector<SDirectoryEntry> sorted;
    sorted.reserve(entries.size());
    for (const SOrderKey& key : keys)
        sorted.push_back(std::move(entries[key.index]));
    entries.swap(sorted);
}
