// Runs the built program as a child process over a small project in a scratch directory.
#pragma once

#include "ScratchDir.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

struct SRunResult
{
    int m_nStatus = -1;    // As a shell sees it; 128 + n for a child ended by signal n.
    std::string m_sOutput; // Standard output and standard error.
};

class CShellRun : public ::testing::Test
{
protected:
    // The project lies in "p", the database in "p/Db"; its packed file is "p/Db/Packed.Gamdb00p".
    CShellRun();

    void WriteLocator(std::string_view creator) const;
    void WriteRoot(std::u16string_view more = {}) const;
    // The value of the one record's one attribute, whose range is 0 to 10.
    void WriteCount(std::u16string_view value) const;

    // Starts a copy of the program that has no modules beside it; "~" stands for the scratch directory.
    [[nodiscard]] pid_t Start(std::vector<std::string> arguments);
    [[nodiscard]] SRunResult Finish(pid_t child) const;
    [[nodiscard]] SRunResult Run(std::vector<std::string> arguments)
    {
        return Finish(Start(std::move(arguments)));
    }
    [[nodiscard]] std::u16string ReadProfile() const;
    void WriteProfile(std::u16string_view text) const { m_Scratch.WriteUtf16(kProfile, text); }

    static constexpr const char* kProfile = "config/Harrowgate Works/ZORN/Corvane.ini";
    CScratchDir m_Scratch;
};
