// The files that were opened last, kept in the profile: section "Recent File List", keys File1 (the newest)
// to File8. Paths are compared without regard to case.
#pragma once

#include <string>
#include <string_view>
#include <vector>

class CProfile;

class CRecentFileList
{
public:
    static constexpr std::size_t kMaxFiles = 8;

    void Load(const CProfile& profile);
    // Hands the list to the profile; CProfile::Save brings it to the disk.
    void Store(CProfile& profile) const;
    // Puts a file at the front.
    void Add(std::u16string_view path);
    // Takes a file out, wherever it stands.
    void Remove(std::u16string_view path);
    // Newest first.
    [[nodiscard]] const std::vector<std::u16string>& GetFiles() const { return m_Files; }

private:
    std::vector<std::u16string> m_Files;
};
