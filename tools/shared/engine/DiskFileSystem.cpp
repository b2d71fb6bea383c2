#include "DiskFileSystem.h"

#include "Descriptor.h"
#include "DirectoryOrder.h"
#include "DiskPath.h"
#include "DiskRead.h"
#include "DiskStream.h"
#include "DiskWrite.h"
#include "NameCompare.h"
#include "Unicode.h"

#include <algorithm>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

namespace
{
CFileError LastError()
{
    return CFileError::FromErrno(errno);
}

bool IsMissing(int code)
{
    return code == ENOENT || code == ENOTDIR;
}

// Decides which entries of one directory belong to a listing.
class CEntryReader
{
public:
    CEntryReader(int directory, const SDirectoryFilter& filter)
        : m_nDirectory(directory), m_Filter(filter), m_sExtension(ToNarrow(filter.m_sExtension))
    {
    }

    // Fills `out` when the entry belongs to the listing.
    bool Read(const dirent64& entry, SDirectoryEntry& out)
    {
        const std::string_view name = entry.d_name;
        if (name == "." || name == "..")
            return false;
        struct stat status
        {
        };
        const bool known = entry.d_type == DT_REG;
        if (known ? !TakesFile(name) : !GetStatus(entry, status))
            return false;
        if (!known && !TakesKind(name, status))
            return false;
        if (!FromDiskName(name, out.m_sName))
            return false;
        out.m_bDirectory = !known && S_ISDIR(status.st_mode);
        out.m_nDevice = out.m_bDirectory ? status.st_dev : 0;
        out.m_nNode = out.m_bDirectory ? status.st_ino : 0;
        return true;
    }

private:
    // Follows links: what a link names decides its kind. A link to nothing is left out.
    bool GetStatus(const dirent64& entry, struct stat& status) const
    {
        if (entry.d_type == DT_DIR && !m_Filter.m_bDirectories)
            return false;
        return ::fstatat(m_nDirectory, entry.d_name, &status, 0) == 0;
    }

    bool TakesKind(std::string_view name, const struct stat& status) const
    {
        return S_ISDIR(status.st_mode) ? m_Filter.m_bDirectories : S_ISREG(status.st_mode) && TakesFile(name);
    }

    bool TakesFile(std::string_view name) const
    {
        if (!m_Filter.m_bFiles || m_sExtension.empty())
            return m_Filter.m_bFiles;
        const std::size_t point = name.rfind('.');
        return point != std::string_view::npos && EqualsExtension(name.substr(point + 1));
    }

    // Most entries are settled by their bytes; only a text beyond ASCII is converted.
    bool EqualsExtension(std::string_view extension) const
    {
        if (extension == m_sExtension)
            return true;
        const auto isAscii = [](char byte) { return static_cast<unsigned char>(byte) < 0x80; };
        const bool ascii = std::all_of(extension.begin(), extension.end(), isAscii);
        if (ascii && extension.size() != m_Filter.m_sExtension.size())
            return false;
        return EqualNames(ToWide(extension), m_Filter.m_sExtension);
    }

    int m_nDirectory;
    const SDirectoryFilter& m_Filter;
    std::string m_sExtension;
};

// Asks the system itself, so that a listing costs no look at the open directory and no block of memory of
// the C library's.
CFileError ReadEntries(int directory, const SDirectoryFilter& filter, std::vector<SDirectoryEntry>& entries)
{
    constexpr std::size_t kBufferSize = 32 * 1024;
    alignas(dirent64) std::byte buffer[kBufferSize];
    CEntryReader reader(directory, filter);
    SDirectoryEntry found;
    for (;;)
    {
        const ssize_t size = ::getdents64(directory, buffer, sizeof buffer);
        // A directory that was removed while it is open has no entries any more.
        if (size <= 0)
            return size == 0 || errno == ENOENT ? CFileError{} : LastError();
        for (ssize_t offset = 0; offset < size;)
        {
            const auto* entry = reinterpret_cast<const dirent64*>(buffer + offset);
            if (reader.Read(*entry, found))
                entries.push_back(std::move(found));
            offset += entry->d_reclen;
        }
    }
}

// Where the file system cannot refuse to replace by itself, the name is looked at first.
int RenameWithoutReplacing(const char* from, const char* to)
{
    if (::renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS)
        return -1;
    struct stat status
    {
    };
    if (::lstat(to, &status) != 0)
        return ::rename(from, to);
    errno = EEXIST;
    return -1;
}

bool IsOnDisk(const std::string& path)
{
    struct stat status
    {
    };
    return ::lstat(path.c_str(), &status) == 0;
}

std::string WithLastElementOf(const std::string& path, const std::string& source)
{
    return path.substr(0, path.rfind('/') + 1) + source.substr(source.rfind('/') + 1);
}
} // namespace

CFileError CDiskFileSystem::GetInfo(std::u16string_view path, SFileInfo& info)
{
    info = {};
    std::string name = ToDiskPath(path);
    struct stat status
    {
    };
    if (WithDiskCase(name, [&](const char* file) { return ::stat(file, &status); }) == 0)
        info = MakeFileInfo(status);
    else if (!IsMissing(errno))
        return LastError();
    return {};
}

CFileError CDiskFileSystem::ReadFile(std::u16string_view path, CFileBuffer& content, SFileInfo* info)
{
    std::string name = ToDiskPath(path);
    CDescriptor file;
    struct stat status
    {
    };
    CFileError error = OpenForReading(name, file, status);
    if (error.IsOk())
        error = ReadWhole(file, status, content);
    if (error.IsOk() && info != nullptr)
        *info = MakeFileInfo(status);
    return error;
}

CFileError CDiskFileSystem::WriteFile(std::u16string_view path, std::span<const std::byte> content)
{
    return ReplaceFile(FindDiskPath(path), content);
}

std::unique_ptr<IZROutStream> CDiskFileSystem::OpenStream(std::u16string_view path, CFileError& error)
{
    const std::string name = FindDiskPath(path);
    struct stat status
    {
    };
    error = {};
    if (::stat(name.c_str(), &status) == 0 && !S_ISDIR(status.st_mode) && MakeFileInfo(status).m_bReadOnly)
    {
        error = {EFileError::ReadOnly, EACCES};
        return nullptr;
    }
    CDescriptor file;
    file.Reset(::open(name.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, 0666));
    if (!file.IsOpen() || ::fstat(file.Get(), &status) != 0)
        error = LastError();
    else if (!S_ISREG(status.st_mode))
        error = {EFileError::NotAFile, 0};
    if (!error.IsOk())
        return nullptr;
    return std::make_unique<CDiskStream>(file.Release());
}

CFileError CDiskFileSystem::CloseStream(std::unique_ptr<IZROutStream> stream)
{
    auto* own = dynamic_cast<CDiskStream*>(stream.get());
    return own != nullptr ? own->Close() : CFileError::FromErrno(EBADF);
}

CFileError CDiskFileSystem::ListDirectory(std::u16string_view path, const SDirectoryFilter& filter,
                                          std::vector<SDirectoryEntry>& entries)
{
    entries.clear();
    std::string name = ToDiskPath(path);
    constexpr int kFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
    CDescriptor descriptor;
    descriptor.Reset(WithDiskCase(name, [](const char* file) { return ::open(file, kFlags); }));
    if (!descriptor.IsOpen())
        return LastError();
    const CFileError error = ReadEntries(descriptor.Get(), filter, entries);
    if (!error.IsOk())
        entries.clear();
    SortDirectoryEntries(entries);
    return error;
}

CFileError CDiskFileSystem::CreateDirectory(std::u16string_view path)
{
    const std::string name = FindDiskPath(path);
    return ::mkdir(name.c_str(), 0777) == 0 ? CFileError{} : LastError();
}

CFileError CDiskFileSystem::Rename(std::u16string_view from, std::u16string_view to, bool replace)
{
    const std::string source = FindDiskPath(from);
    std::string target = FindDiskPath(to);
    // A new spelling of the same name is a rename of its own, never a collision.
    if (target == source)
    {
        target = WithLastElementOf(target, ToDiskPath(to));
        return ::rename(source.c_str(), target.c_str()) == 0 ? CFileError{} : LastError();
    }
    if (!replace && IsOnDisk(source) && IsOnDisk(target))
        return CFileError::FromErrno(EEXIST);
    const int result = replace ? ::rename(source.c_str(), target.c_str())
                               : RenameWithoutReplacing(source.c_str(), target.c_str());
    return result == 0 ? CFileError{} : LastError();
}

CFileError CDiskFileSystem::Remove(std::u16string_view path)
{
    const std::string name = FindDiskPath(path);
    if (::unlink(name.c_str()) == 0)
        return {};
    const int cause = errno;
    if ((cause == EISDIR || cause == EPERM) && ::rmdir(name.c_str()) == 0)
        return {};
    return CFileError::FromErrno(cause == EISDIR ? errno : cause);
}

CFileError CDiskFileSystem::SetReadOnly(std::u16string_view path, bool readOnly)
{
    std::string name = ToDiskPath(path);
    struct stat status
    {
    };
    if (WithDiskCase(name, [&](const char* file) { return ::stat(file, &status); }) != 0)
        return LastError();
    constexpr mode_t kWrite = S_IWUSR | S_IWGRP | S_IWOTH;
    const mode_t mode = (status.st_mode & 07777U & ~kWrite) | (readOnly ? 0U : S_IWUSR);
    return ::chmod(name.c_str(), mode) == 0 ? CFileError{} : LastError();
}

std::string CDiskFileSystem::GetNativePath(std::u16string_view path)
{
    return FindDiskPath(path);
}
