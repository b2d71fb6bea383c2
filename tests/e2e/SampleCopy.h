// A copy of the sample in a directory of its own, so that a test may change it and write beside it.
#pragma once

#include "ScratchDir.h"

#include <filesystem>
#include <string>

class CSampleCopy
{
public:
    CSampleCopy();

    [[nodiscard]] std::filesystem::path GetDatabase() const
    {
        return m_Scratch.GetPath() / "outpost/Database";
    }
    [[nodiscard]] std::string GetRootFile() const { return (GetDatabase() / "Outpost.Gamdb00s").string(); }
    [[nodiscard]] std::string PathOf(const std::string& name) const
    {
        return (m_Scratch.GetPath() / name).string();
    }

    // The exit status of a shell command; what it prints goes to the files "output" and "error".
    [[nodiscard]] int RunShell(const std::string& command) const;

    // Gives a key of a section in a file below the database another value; a key `Inherit` of that section
    // becomes False. A missing section or key fails the test.
    void SetValue(const std::string& file, const std::u16string& section, const std::u16string& key,
                  const std::u16string& value) const;

    CScratchDir m_Scratch;
};
