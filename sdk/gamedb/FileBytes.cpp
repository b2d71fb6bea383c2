#include "FileBytes.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace
{
constexpr std::size_t kMaxBytes = std::size_t{256} << 20;

std::string ReadAll(int file, std::string& bytes)
{
    struct stat info = {};
    if (::fstat(file, &info) != 0)
        return DescribeReadError(errno);
    if (!S_ISREG(info.st_mode))
        return "it is not a file";
    // The file may grow while it is read.
    for (char block[65536];;)
    {
        const ssize_t count = ::read(file, block, sizeof(block));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return DescribeReadError(errno);
        if (count == 0)
            return {};
        bytes.append(block, static_cast<std::size_t>(count));
        if (bytes.size() > kMaxBytes)
            return "it is larger than 256 MB";
    }
}
} // namespace

std::string ReadFileBytes(const std::string& path, std::string& bytes)
{
    bytes.clear();
    // Without waiting, so that a pipe of that name is refused instead of blocking the caller.
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0)
        return DescribeReadError(errno);
    std::string cause = ReadAll(file, bytes);
    ::close(file);
    return cause;
}

std::string DescribeReadError(int error)
{
    switch (error)
    {
    case ENOENT:
    case ENOTDIR:
        return "the file does not exist";
    case EACCES:
    case EPERM:
        return "there is no permission to read it";
    default:
        return "it cannot be read (" + std::generic_category().message(error) + ")";
    }
}
