#include "FileSystem.h"

#include "Path.h"
#include "Unicode.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ctime>

namespace
{
EFileError CodeFromErrno(int code)
{
    switch (code)
    {
    case 0:
        return EFileError::None;
    case ENOENT:
        return EFileError::NotFound;
    case EACCES:
    case EPERM:
        return EFileError::AccessDenied;
    case EROFS:
        return EFileError::ReadOnly;
    case EISDIR:
    case ENOTDIR:
        return EFileError::NotAFile;
    case EEXIST:
        return EFileError::AlreadyExists;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return EFileError::DiskFull;
    case ELOOP:
        return EFileError::Loop;
    case ENOMEM:
        return EFileError::OutOfMemory;
    default:
        return EFileError::Other;
    }
}

std::u16string_view TextOf(EFileError code)
{
    switch (code)
    {
    case EFileError::None:
        return {};
    case EFileError::NotFound:
        return u"no such file or directory";
    case EFileError::AccessDenied:
        return u"permission denied";
    case EFileError::ReadOnly:
        return u"the file is read-only";
    case EFileError::NotAFile:
        return u"not a file of the wanted kind";
    case EFileError::AlreadyExists:
        return u"the name is already taken";
    case EFileError::DiskFull:
        return u"no space left on the disk";
    case EFileError::Loop:
        return u"too many links";
    case EFileError::InvalidData:
        return u"the data is invalid";
    case EFileError::OutOfMemory:
        return u"the file is too large for the memory";
    case EFileError::Other:
        break;
    }
    return u"the operation failed";
}

constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;
} // namespace

std::u16string CFileError::GetText() const
{
    const char* description = m_Code == EFileError::Other ? ::strerrordesc_np(m_nSystemCode) : nullptr;
    if (description != nullptr && m_nSystemCode != 0)
        return ToWide(description);
    return std::u16string(TextOf(m_Code));
}

CFileError CFileError::FromErrno(int code)
{
    return {CodeFromErrno(code), code};
}

std::uint32_t GetDosTime(const SFileStamp& stamp)
{
    const std::time_t seconds = stamp.m_nTime / kNanosecondsPerSecond;
    std::tm local{};
    if (stamp.m_nTime == 0 || ::localtime_r(&seconds, &local) == nullptr)
        return 0;
    // The form holds the years 1980 to 2107.
    constexpr int kFirstYear = 80;
    if (local.tm_year < kFirstYear)
        return 1U << 21U | 1U << 16U;
    const auto year = static_cast<std::uint32_t>(std::min(local.tm_year - kFirstYear, 127));
    const auto month = static_cast<std::uint32_t>(local.tm_mon + 1);
    const auto day = static_cast<std::uint32_t>(local.tm_mday);
    const auto hour = static_cast<std::uint32_t>(local.tm_hour);
    const auto minute = static_cast<std::uint32_t>(local.tm_min);
    const auto second = static_cast<std::uint32_t>(std::min(local.tm_sec, 59));
    return year << 25U | month << 21U | day << 16U | hour << 11U | minute << 5U | second / 2;
}

void CFileBuffer::Resize(std::size_t size)
{
    if (m_pBytes == nullptr || size > m_nCapacity)
    {
        constexpr std::size_t kSmallest = 16 * 1024;
        const std::size_t capacity = std::max({size, m_nCapacity + m_nCapacity / 2, kSmallest});
        m_pBytes = std::make_unique_for_overwrite<std::byte[]>(capacity + kSlack);
        m_nCapacity = capacity;
    }
    m_nSize = size;
}

bool IFileSystem::Exists(std::u16string_view path)
{
    SFileInfo info;
    return GetInfo(path, info).IsOk() && info.m_bExists;
}

bool IFileSystem::IsDirectory(std::u16string_view path)
{
    SFileInfo info;
    return GetInfo(path, info).IsOk() && info.m_bExists && info.m_bDirectory;
}

CFileError IFileSystem::CreateDirectoryTree(std::u16string_view path)
{
    const std::u16string_view directory = GetDirectoryPart(path);
    if (directory.empty())
        return {EFileError::NotFound, 0};
    if (IsDirectory(directory))
        return {};
    const std::u16string_view name = WithoutLastSeparator(directory);
    const CFileError above = CreateDirectoryTree(name);
    if (!above.IsOk())
        return above;
    const CFileError created = CreateDirectory(name);
    // Somebody else may have made it in between; a file of that name stays an error.
    if (created.m_Code != EFileError::AlreadyExists)
        return created;
    return IsDirectory(name) ? CFileError{} : CFileError{EFileError::NotAFile, created.m_nSystemCode};
}
