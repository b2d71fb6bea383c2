#include "ReplacedFile.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
std::string FollowLinks(const std::string& path)
{
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.c_str(), nullptr), &std::free);
    return real ? std::string(real.get()) : path;
}

// A name beside the target that nobody uses, as long as only one run of this process writes to it.
std::string NameBeside(const std::string& target, const char* what)
{
    return target + '.' + std::to_string(::getpid()) + what;
}

bool WriteAll(int file, std::string_view content)
{
    while (!content.empty())
    {
        const ssize_t written = ::write(file, content.data(), content.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return ::fsync(file) == 0;
}
} // namespace

CReplacedFile::CReplacedFile(const std::string& path) : m_sTarget(FollowLinks(path)) {}

CReplacedFile::~CReplacedFile()
{
    for (const std::string& name : {m_sNew, m_sOld})
    {
        if (!name.empty())
            ::unlink(name.c_str());
    }
}

bool CReplacedFile::IsWritable()
{
    struct stat info = {};
    if (::stat(m_sTarget.c_str(), &info) != 0)
        return errno == ENOENT;
    m_bExisted = true;
    m_nMode = info.st_mode & 07777U;
    // A program of the superuser would pass over a mark that somebody set on purpose.
    return S_ISREG(info.st_mode) && (info.st_mode & 0222) != 0 && ::access(m_sTarget.c_str(), W_OK) == 0;
}

bool CReplacedFile::Write(std::string_view content)
{
    if (!IsWritable())
        return false;
    const std::string name = NameBeside(m_sTarget, ".new");
    const int file = ::open(name.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, 0666);
    if (file < 0)
        return false;
    m_sNew = name;
    bool isWritten = WriteAll(file, content);
    if (m_bExisted)
        isWritten = ::fchmod(file, m_nMode) == 0 && isWritten;
    return ::close(file) == 0 && isWritten;
}

bool CReplacedFile::Replace()
{
    // Without hard links the old file cannot be kept; the new one is still put in its place at once.
    const std::string old = NameBeside(m_sTarget, ".old");
    if (m_bExisted && ::link(m_sTarget.c_str(), old.c_str()) == 0)
        m_sOld = old;
    if (std::rename(m_sNew.c_str(), m_sTarget.c_str()) != 0)
        return false;
    m_sNew.clear();
    return true;
}

void CReplacedFile::Restore()
{
    if (!m_bExisted)
        ::unlink(m_sTarget.c_str());
    else if (!m_sOld.empty() && std::rename(m_sOld.c_str(), m_sTarget.c_str()) == 0)
        m_sOld.clear();
}
