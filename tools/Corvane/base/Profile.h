// The application profile, one for a user of this machine: a section file below the user's configuration
// directory. Numbers are integers, booleans 0 or 1, floats texts with six decimals.
//
// A profile that cannot be read counts as empty. Values are written to disk by Save; a key that was never
// written is not stored.
#pragma once

#include "UnicodeFileParse_ReadWrite.h"

#include <cstdint>
#include <string>
#include <string_view>

class CProfile
{
public:
    // `path` is the profile's file; see GetProfilePath.
    CProfile(IFileSystem& files, std::u16string path);

    [[nodiscard]] std::int32_t GetInteger(std::u16string_view section, std::u16string_view key,
                                          std::int32_t fallback) const;
    void SetInteger(std::u16string_view section, std::u16string_view key, std::int32_t value);
    [[nodiscard]] std::u16string GetString(std::u16string_view section, std::u16string_view key,
                                           std::u16string_view fallback) const;
    void SetString(std::u16string_view section, std::u16string_view key, std::u16string_view value);
    [[nodiscard]] float GetFloat(std::u16string_view section, std::u16string_view key, float fallback) const;
    void SetFloat(std::u16string_view section, std::u16string_view key, float value);

    // Writes the file when something changed. False when it could not be written.
    [[nodiscard]] bool Save();
    [[nodiscard]] const std::u16string& GetPath() const { return m_sPath; }

private:
    CUnicodeFileParse_ReadWrite m_Store;
    std::u16string m_sPath;
    bool m_bChanged = false;
};

// $XDG_CONFIG_HOME, else ~/.config, without a last separator.
[[nodiscard]] std::u16string GetApplicationDataDirectory();
// The profile's file below it.
[[nodiscard]] std::u16string GetProfilePath();
// The per-user settings file of the database with this GUID text.
[[nodiscard]] std::u16string GetPerUserFilePath(std::u16string_view databaseId);
