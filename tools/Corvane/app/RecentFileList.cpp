#include "RecentFileList.h"

#include "FormatText.h"
#include "NameCompare.h"
#include "Profile.h"

#include <algorithm>

namespace
{
constexpr std::u16string_view kSection = u"Recent File List";

std::u16string GetKey(std::size_t index)
{
    return FormatText(u"File%u", static_cast<unsigned>(index + 1));
}
} // namespace

void CRecentFileList::Load(const CProfile& profile)
{
    m_Files.clear();
    for (std::size_t i = 0; i < kMaxFiles; ++i)
    {
        std::u16string path = profile.GetString(kSection, GetKey(i), u"");
        if (!path.empty())
            m_Files.push_back(std::move(path));
    }
}

void CRecentFileList::Store(CProfile& profile) const
{
    for (std::size_t i = 0; i < m_Files.size(); ++i)
        profile.SetString(kSection, GetKey(i), m_Files[i]);
    // A list that became shorter leaves keys behind.
    for (std::size_t i = m_Files.size(); i < kMaxFiles; ++i)
        if (!profile.GetString(kSection, GetKey(i), u"").empty())
            profile.SetString(kSection, GetKey(i), u"");
}

void CRecentFileList::Remove(std::u16string_view path)
{
    const std::u16string removed(path); // The view may be of an entry of the list.
    std::erase_if(m_Files, [&](const std::u16string& file) { return EqualNames(file, removed); });
}

void CRecentFileList::Add(std::u16string_view path)
{
    std::u16string added(path);
    Remove(added);
    m_Files.insert(m_Files.begin(), std::move(added));
    m_Files.resize(std::min(m_Files.size(), kMaxFiles));
}
