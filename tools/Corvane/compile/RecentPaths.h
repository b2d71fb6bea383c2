// Paths that a user chose last for one purpose, kept in the user's own settings of the database: keys File0
// (the newest) to File7 of a section. Paths are compared without regard to case.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

class IUnicodeFileParse;

class CRecentPaths
{
public:
    static constexpr std::size_t kMaxPaths = 8;

    // `settings` is not owned; `section` names the purpose and outlives the object.
    CRecentPaths(IUnicodeFileParse& settings, std::u16string_view section)
        : m_Settings(settings), m_sSection(section)
    {
    }

    // Newest first.
    [[nodiscard]] std::vector<std::u16string> Load() const;
    // Puts a path at the front, in the settings; bringing these to the disk is the caller's.
    void Add(std::u16string_view path);

private:
    IUnicodeFileParse& m_Settings;
    std::u16string_view m_sSection;
};
