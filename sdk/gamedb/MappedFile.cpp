#include "MappedFile.h"

#include "FileBytes.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

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
        return DescribeReadError(errno);
    std::string cause = Map(file);
    ::close(file);
    return cause;
}

std::string CMappedFile::Map(int file)
{
    struct stat info = {};
    if (::fstat(file, &info) != 0)
        return DescribeReadError(errno);
    if (!S_ISREG(info.st_mode))
        return "it is not a file";
    if (info.st_size == 0)
        return {};
    const auto size = static_cast<std::size_t>(info.st_size);
    void* bytes = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
    if (bytes == MAP_FAILED)
        return DescribeReadError(errno);
    m_Bytes = {static_cast<const std::byte*>(bytes), size};
    return {};
}
