#include "DiskWrite.h"

#include "Descriptor.h"
#include "DiskRead.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>

namespace
{
// Writes under a temporary name and takes the target's place at the end; without that the temporary file
// goes with the object.
class CReplacement
{
public:
    explicit CReplacement(const std::string& target) : m_sTarget(target) {}
    ~CReplacement()
    {
        if (!m_sTemporary.empty())
            ::unlink(m_sTemporary.c_str());
    }
    CReplacement(const CReplacement&) = delete;
    CReplacement& operator=(const CReplacement&) = delete;

    // The name begins with a point and ends in an extension that no loader takes; it does not hold the
    // target's name, which may already be as long as names can be.
    CFileError Create()
    {
        static std::atomic<unsigned> counter{0};
        const std::string directory = m_sTarget.substr(0, m_sTarget.rfind('/') + 1);
        for (int attempt = 0; attempt < 100; ++attempt)
        {
            std::string name = directory + ".corvane-" + std::to_string(::getpid()) + '-' +
                               std::to_string(++counter) + ".corvane-tmp";
            m_File.Reset(::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
            if (m_File.IsOpen())
            {
                m_sTemporary = std::move(name);
                return {};
            }
            if (errno != EEXIST)
                break;
        }
        return CFileError::FromErrno(errno);
    }

    // Gives the new file the old one's mode, and its owner where the user may.
    CFileError TakeMode(const struct stat& old)
    {
        struct stat own
        {
        };
        if (::fstat(m_File.Get(), &own) != 0)
            return CFileError::FromErrno(errno);
        const bool sameOwner = own.st_uid == old.st_uid && own.st_gid == old.st_gid;
        const bool owned = sameOwner || ::fchown(m_File.Get(), old.st_uid, old.st_gid) == 0;
        // Somebody else's special bits are not passed on to a file of this user.
        const mode_t mode = old.st_mode & (owned ? 07777U : 0777U);
        return ::fchmod(m_File.Get(), mode) == 0 ? CFileError{} : CFileError::FromErrno(errno);
    }

    CFileError Write(std::span<const std::byte> content)
    {
        while (!content.empty())
        {
            const ssize_t count = ::write(m_File.Get(), content.data(), content.size());
            if (count < 0 && errno == EINTR)
                continue;
            if (count <= 0)
                return CFileError::FromErrno(count < 0 ? errno : ENOSPC);
            content = content.subspan(static_cast<std::size_t>(count));
        }
        return {};
    }

    CFileError Commit()
    {
        if (::fsync(m_File.Get()) != 0)
            return CFileError::FromErrno(errno);
        const CFileError closed = m_File.Close();
        if (!closed.IsOk())
            return closed;
        if (::rename(m_sTemporary.c_str(), m_sTarget.c_str()) != 0)
            return CFileError::FromErrno(errno);
        m_sTemporary.clear();
        return {};
    }

private:
    const std::string& m_sTarget;
    std::string m_sTemporary;
    CDescriptor m_File;
};

bool HoldsThese(std::string path, std::span<const std::byte> content)
{
    CDescriptor file;
    struct stat status
    {
    };
    CFileBuffer old;
    if (!OpenForReading(path, file, status).IsOk() || !ReadWhole(file, status, old).IsOk())
        return false;
    const std::span<const std::byte> bytes = old.GetBytes();
    return std::equal(bytes.begin(), bytes.end(), content.begin(), content.end());
}

CFileError CheckTarget(const struct stat& status)
{
    if (!S_ISREG(status.st_mode))
        return {EFileError::NotAFile, S_ISDIR(status.st_mode) ? EISDIR : 0};
    return MakeFileInfo(status).m_bReadOnly ? CFileError{EFileError::ReadOnly, EACCES} : CFileError{};
}

// The text of the link at `path`, or nothing when there is no link.
std::optional<std::string> ReadLink(const std::string& path)
{
    std::array<char, PATH_MAX> text{};
    const ssize_t length = ::readlink(path.c_str(), text.data(), text.size());
    if (length <= 0)
        return std::nullopt;
    return std::string(text.data(), static_cast<std::size_t>(length));
}
} // namespace

CFileError FollowLinks(std::string& path)
{
    constexpr int kMostLinks = 40; // As the system itself counts.
    for (int i = 0; i < kMostLinks; ++i)
    {
        const std::optional<std::string> link = ReadLink(path);
        if (!link)
            return {};
        path = link->front() == '/' ? *link : path.substr(0, path.rfind('/') + 1) + *link;
    }
    return CFileError::FromErrno(ELOOP);
}

CFileError ReplaceFile(const std::string& path, std::span<const std::byte> content)
{
    std::string target = path;
    if (const CFileError error = FollowLinks(target); !error.IsOk())
        return error;
    struct stat old
    {
    };
    const bool exists = ::stat(target.c_str(), &old) == 0;
    if (!exists && errno != ENOENT)
        return CFileError::FromErrno(errno);
    if (const CFileError error = exists ? CheckTarget(old) : CFileError{}; !error.IsOk())
        return error;
    if (exists && static_cast<std::size_t>(old.st_size) == content.size() && HoldsThese(target, content))
        return {};
    CReplacement replacement(target);
    CFileError error = replacement.Create();
    if (error.IsOk() && exists)
        error = replacement.TakeMode(old);
    if (error.IsOk())
        error = replacement.Write(content);
    return error.IsOk() ? replacement.Commit() : error;
}

CFileError FlushFile(const std::string& path)
{
    CDescriptor file;
    file.Reset(::open(path.c_str(), O_WRONLY | O_CLOEXEC));
    return file.IsOpen() && ::fsync(file.Get()) == 0 ? file.Close() : CFileError::FromErrno(errno);
}
