// A file of the disk, mapped for reading. The mapping ends with the object; nobody may shorten the file as
// long as it lives (a replacement by rename is fine).
#pragma once

#include <cstddef>
#include <span>
#include <string>

class CMappedFile
{
public:
    CMappedFile() = default;
    ~CMappedFile();
    CMappedFile(const CMappedFile&) = delete;
    CMappedFile& operator=(const CMappedFile&) = delete;

    // Maps `path` (UTF-8, as the operating system spells it). Returns the cause of a failure, empty on
    // success. An empty file is mapped as no bytes.
    [[nodiscard]] std::string Open(const std::string& path);
    std::span<const std::byte> GetBytes() const { return m_Bytes; }

private:
    [[nodiscard]] std::string Map(int file);

    std::span<const std::byte> m_Bytes;
};
