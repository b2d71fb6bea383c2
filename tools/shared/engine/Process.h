// Child processes, started without a shell.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

class IFileSystem;

// Splits a command at blanks outside double quotes; the quotes are dropped. "a""b" joins to ab, and "" is an
// empty word.
[[nodiscard]] std::vector<std::u16string> SplitCommand(std::u16string_view command);

// One child. The object does not end the child: one that still runs when the object goes is left running.
class CProcess
{
public:
    // Starts `command` in `directory` (a path text). The first word goes through the file layer (also with
    // this system's program name where the text ends in ".exe"), relative to the directory; a bare name that
    // is not there is looked for on the search path. False with a cause when it cannot be started.
    [[nodiscard]] bool Start(IFileSystem& files, std::u16string_view command, std::u16string_view directory,
                             std::u16string& error);
    // Waits until the child ends; its exit code (128 + n for a child ended by signal n), or nothing when it
    // cannot be read.
    [[nodiscard]] std::optional<int> Wait();
    [[nodiscard]] int GetId() const { return m_nId; }

private:
    int m_nId = 0;
};
