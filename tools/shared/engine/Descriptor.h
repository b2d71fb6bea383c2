// An owned file descriptor of the operating system.
#pragma once

#include "FileSystem.h"

#include <cerrno>
#include <unistd.h>
#include <utility>

class CDescriptor
{
public:
    CDescriptor() = default;
    ~CDescriptor() { Reset(-1); }
    CDescriptor(const CDescriptor&) = delete;
    CDescriptor& operator=(const CDescriptor&) = delete;

    [[nodiscard]] bool IsOpen() const { return m_nDescriptor >= 0; }
    [[nodiscard]] int Get() const { return m_nDescriptor; }
    [[nodiscard]] int Release() { return std::exchange(m_nDescriptor, -1); }
    void Reset(int descriptor)
    {
        if (IsOpen())
            ::close(m_nDescriptor);
        m_nDescriptor = descriptor;
    }
    // Closes and tells whether the system held back a write error until now.
    [[nodiscard]] CFileError Close()
    {
        const bool closed = ::close(Release()) == 0 || errno == EINTR;
        return closed ? CFileError{} : CFileError::FromErrno(errno);
    }

private:
    int m_nDescriptor = -1;
};
