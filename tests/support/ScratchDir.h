// A fresh directory that lives as long as the object, below the system's temporary directory.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

class CScratchDir
{
public:
    CScratchDir();
    ~CScratchDir();
    CScratchDir(const CScratchDir&) = delete;
    CScratchDir& operator=(const CScratchDir&) = delete;

    const std::filesystem::path& GetPath() const { return m_Path; }
    // The absolute path of `relative` as the program's path text ('/' separators, UTF-16).
    std::u16string Text(std::string_view relative) const { return (m_Path / relative).u16string(); }

    // Writes a file and its directories. Utf16 puts a mark ahead and ends lines as the text has them.
    void WriteBytes(std::string_view relative, std::string_view bytes) const;
    void WriteUtf16(std::string_view relative, std::u16string_view text) const;
    std::string ReadBytes(std::string_view relative) const;
    // The units behind the little-endian mark; a file without one fails the test.
    std::u16string ReadUtf16(std::string_view relative) const;
    bool Exists(std::string_view relative) const { return std::filesystem::exists(m_Path / relative); }

private:
    std::filesystem::path m_Path;
};
