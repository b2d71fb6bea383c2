#include "DumpTool.h"

#include <iostream>

int main(int argc, char** argv)
{
    std::ios::sync_with_stdio(false);
    const std::span<const char* const> arguments(argv, static_cast<std::size_t>(argc));
    return RunDumpTool(arguments.subspan(argc > 0 ? 1 : 0), std::cout, std::cerr);
}
