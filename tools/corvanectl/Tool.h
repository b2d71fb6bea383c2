// corvanectl: what scripts do with a database, one sub-command each. The exit status, the reports and the
// table of sub-commands are described in docs/corvanectl.md.
#pragma once

#include <span>
#include <string>

// The arguments are those behind the program's name; the result is the exit status.
[[nodiscard]] int RunTool(std::span<const std::u16string> arguments);
