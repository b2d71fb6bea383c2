#include "MappedFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace
{
std::string Cause(int error)
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
} // namespace

CMappedFile::~CMappedFile()
{
    if (!m_Bytes.empty())
        ::munmap(const_cast<std::byte*>(m_Bytes.data()), m_Bytes.size());
}

std::string CMappedFile::Open(const std::string& path)
{
    // Without waiting, so that a pipe of that name is refused instead of blocking the caller.
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0)
        return Cause(errno);
    std::string cause = Map(file);
    ::close(file);
    return cause;
}

std::string CMappedFile::Map(int file)
{
    struct stat info = {};
    if (::fstat(file, &info) != 0)
        return Cause(errno);
    if (!S_ISREG(info.st_mode))
        return "it is not a file";
    if (info.st_size == 0)
        return {};
    const auto size = static_cast<std::size_t>(info.st_size);
    void* bytes = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
    if (bytes == MAP_FAILED)
        return Cause(errno);
    m_Bytes = {static_cast<const std::byte*>(bytes), size};
    return {};
}
