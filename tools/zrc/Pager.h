// The program through which a person reads a long text.
#pragma once

#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

class CPager
{
public:
    CPager() = default;
    // Waits until the person has left the pager.
    ~CPager();
    CPager(const CPager&) = delete;
    CPager& operator=(const CPager&) = delete;

    // Starts what the environment's PAGER says, split at blanks outside double quotes; without it "less -R"
    // or "more", whichever is there. False when nothing could be started. An interrupt from the keyboard is
    // the pager's from then on.
    [[nodiscard]] bool Start();
    // False when the pager takes no more: it was left, which is no error.
    [[nodiscard]] bool Write(std::string_view text);

private:
    [[nodiscard]] bool StartProgram(std::vector<std::string> words);

    pid_t m_nId = 0;
    int m_nInput = -1;
};
