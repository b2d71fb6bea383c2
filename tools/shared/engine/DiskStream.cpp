#include "DiskStream.h"

#include <cerrno>
#include <cstring>
#include <limits>
#include <unistd.h>

namespace
{
constexpr std::size_t kBufferSize = 256 * 1024;
} // namespace

CDiskStream::CDiskStream(int descriptor)
    : m_nDescriptor(descriptor), m_pBuffer(std::make_unique_for_overwrite<std::byte[]>(kBufferSize))
{
}

CDiskStream::~CDiskStream()
{
    if (m_nDescriptor >= 0)
        ::close(m_nDescriptor);
}

bool CDiskStream::Write(const void* block, std::size_t size)
{
    if (HasFailed())
        return false;
    if (size > kBufferSize - m_nUsed && !Flush())
        return false;
    const auto* bytes = static_cast<const std::byte*>(block);
    if (size >= kBufferSize)
        return WriteAt(bytes, size);
    if (size != 0)
        std::memcpy(m_pBuffer.get() + m_nUsed, bytes, size);
    m_nUsed += size;
    return true;
}

bool CDiskStream::Seek(std::uint64_t offset)
{
    if (HasFailed() || !Flush())
        return false;
    if (offset > static_cast<std::uint64_t>(std::numeric_limits<off_t>::max()))
    {
        m_Error = CFileError::FromErrno(EINVAL);
        return false;
    }
    m_nStart = offset;
    return true;
}

CFileError CDiskStream::Close()
{
    if (!HasFailed())
        Flush();
    if (!HasFailed() && ::fsync(m_nDescriptor) != 0)
        m_Error = CFileError::FromErrno(errno);
    const int result = ::close(m_nDescriptor);
    m_nDescriptor = -1;
    if (!HasFailed() && result != 0 && errno != EINTR)
        m_Error = CFileError::FromErrno(errno);
    return m_Error;
}

bool CDiskStream::Flush()
{
    const std::size_t used = m_nUsed;
    m_nUsed = 0;
    return WriteAt(m_pBuffer.get(), used);
}

bool CDiskStream::WriteAt(const std::byte* bytes, std::size_t size)
{
    while (size != 0)
    {
        const ssize_t written = ::pwrite(m_nDescriptor, bytes, size, static_cast<off_t>(m_nStart));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
        {
            m_Error = CFileError::FromErrno(written < 0 ? errno : ENOSPC);
            return false;
        }
        bytes += written;
        size -= static_cast<std::size_t>(written);
        m_nStart += static_cast<std::uint64_t>(written);
    }
    return true;
}
