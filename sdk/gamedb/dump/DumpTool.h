// The command line of gamedb-dump.
#pragma once

#include <iosfwd>
#include <span>
#include <string_view>

enum EDumpStatus : int
{
    DUMP_OK = 0,
    DUMP_RECORD_NOT_FOUND = 1,
    DUMP_USAGE = 2,
    DUMP_INVALID_FILE = 3,
    DUMP_OUTPUT_FAILED = 4,
};

// Runs the tool with its arguments, the program's name not among them, and answers the exit status. Messages
// go to `error`, all else to `out`.
[[nodiscard]] int RunDumpTool(std::span<const char* const> arguments, std::ostream& out, std::ostream& error);
