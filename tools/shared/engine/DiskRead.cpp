#include "DiskRead.h"

#include "Descriptor.h"
#include "DiskPath.h"

#include <cstring>
#include <fcntl.h>
#include <new>
#include <sys/stat.h>

namespace
{
// No source file comes near this; a larger one is a mistake that must not take the machine's memory.
constexpr std::size_t kLargestFile = std::size_t{1} << 30U;

// Reads what fits behind the first `size` bytes. -1 for a failure, 0 at the end of the file.
ssize_t ReadSome(const CDescriptor& file, CFileBuffer& content, std::size_t size, std::size_t room)
{
    for (;;)
    {
        const ssize_t count = ::read(file.Get(), content.GetBytes().data() + size, room);
        if (count >= 0 || errno != EINTR)
            return count;
    }
}

// Makes room for more bytes and keeps the first `size`, which Resize does not.
void Grow(CFileBuffer& content, std::size_t size)
{
    CFileBuffer larger;
    larger.Resize(size * 2 + CFileBuffer::kSlack);
    std::memcpy(larger.GetBytes().data(), content.GetBytes().data(), size);
    content = std::move(larger);
}

// Asking for the slack behind the expected size too shows the end of an unchanged file with one call.
CFileError ReadToEnd(const CDescriptor& file, std::size_t expected, CFileBuffer& content)
{
    content.Resize(expected);
    std::size_t size = 0;
    for (;;)
    {
        const std::size_t room = content.GetBytes().size() + CFileBuffer::kSlack - size;
        const ssize_t count = ReadSome(file, content, size, room);
        if (count < 0)
            return CFileError::FromErrno(errno);
        size += static_cast<std::size_t>(count);
        if (count == 0 || size == expected)
            break;
        if (size > kLargestFile)
            return {EFileError::OutOfMemory, EFBIG};
        if (static_cast<std::size_t>(count) == room)
            Grow(content, size);
    }
    content.Resize(size);
    return {};
}
} // namespace

SFileInfo MakeFileInfo(const struct stat& status)
{
    const std::int64_t seconds = status.st_mtim.tv_sec;
    const std::int64_t time = seconds * 1'000'000'000 + status.st_mtim.tv_nsec;
    return {true,
            S_ISDIR(status.st_mode),
            (status.st_mode & S_IWUSR) == 0,
            {time, static_cast<std::uint64_t>(status.st_size)},
            status.st_dev,
            status.st_ino};
}

CFileError OpenForReading(std::string& path, CDescriptor& file, struct stat& status)
{
    constexpr int kFlags = O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    file.Reset(WithDiskCase(path, [](const char* name) { return ::open(name, kFlags); }));
    if (!file.IsOpen() || ::fstat(file.Get(), &status) != 0)
        return CFileError::FromErrno(errno);
    if (!S_ISREG(status.st_mode))
        return {EFileError::NotAFile, S_ISDIR(status.st_mode) ? EISDIR : 0};
    return {};
}

CFileError ReadWhole(const CDescriptor& file, struct stat& status, CFileBuffer& content)
{
    const auto expected = static_cast<std::size_t>(status.st_size);
    if (expected > kLargestFile)
        return {EFileError::OutOfMemory, EFBIG};
    CFileError error;
    try
    {
        error = ReadToEnd(file, expected, content);
    }
    catch (const std::bad_alloc&)
    {
        return {EFileError::OutOfMemory, ENOMEM};
    }
    if (!error.IsOk() || content.GetBytes().size() == expected)
        return error;
    if (::fstat(file.Get(), &status) != 0)
        return CFileError::FromErrno(errno);
    status.st_size = static_cast<off_t>(content.GetBytes().size());
    return {};
}
