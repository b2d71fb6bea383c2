// Where generated databases lie: the directory that the user names, which stays, or a fresh one below the
// system's temporary directory, which goes with the object.
#pragma once

#include <filesystem>

class CWorkDirectory
{
public:
    // An empty path asks for a fresh directory. Throws std::runtime_error when none could be made.
    explicit CWorkDirectory(const std::filesystem::path& given = {});
    ~CWorkDirectory();
    CWorkDirectory(const CWorkDirectory&) = delete;
    CWorkDirectory& operator=(const CWorkDirectory&) = delete;

    [[nodiscard]] const std::filesystem::path& GetPath() const { return m_Path; }

private:
    std::filesystem::path m_Path;
    bool m_bOwn;
};
