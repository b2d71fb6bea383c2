#include "RecentPaths.h"

#include "FormatText.h"
#include "NameCompare.h"
#include "UnicodeFileParse.h"

#include <algorithm>

namespace
{
std::u16string GetKey(std::size_t index)
{
    return FormatText(u"File%u", index);
}
} // namespace

std::vector<std::u16string> CRecentPaths::Load() const
{
    std::vector<std::u16string> paths;
    for (std::size_t i = 0; i < kMaxPaths; ++i)
    {
        std::u16string path;
        if (m_Settings.ReadString(m_sSection, GetKey(i), path) && !path.empty())
            paths.push_back(std::move(path));
    }
    return paths;
}

void CRecentPaths::Add(std::u16string_view path)
{
    std::vector<std::u16string> paths = Load();
    std::erase_if(paths, [&](const std::u16string& known) { return EqualNames(known, path); });
    paths.insert(paths.begin(), std::u16string(path));
    paths.resize(std::min(paths.size(), kMaxPaths));
    for (std::size_t i = 0; i < paths.size(); ++i)
        m_Settings.WriteString(m_sSection, GetKey(i), paths[i]);
}
