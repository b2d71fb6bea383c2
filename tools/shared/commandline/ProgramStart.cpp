#include "ProgramStart.h"

#include "Path.h"
#include "Unicode.h"

#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

namespace
{
void OccupyStandardStreams()
{
    int stream = 0;
    do
        stream = ::open("/dev/null", O_RDWR);
    while (stream >= 0 && stream <= STDERR_FILENO);
    if (stream >= 0)
        ::close(stream);
}
} // namespace

std::vector<std::u16string> TakeArguments(int argc, const char* const* argv)
{
    OccupyStandardStreams();
    std::vector<std::u16string> arguments;
    for (int i = 1; i < argc; ++i)
        arguments.push_back(ToWide(argv[i]));
    return arguments;
}

std::u16string MakeDocumentPath(std::u16string_view path)
{
    if (path.starts_with(u'"'))
        path.remove_prefix(1);
    path = path.substr(0, path.rfind(u'"'));
    std::error_code error;
    return ResolvePath(std::filesystem::current_path(error).u16string(), path);
}
