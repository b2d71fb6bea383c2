// The file layer: the only way from the system's path texts to the operating system's files.
//
// A path text may use either separator and differ from the disk in letter case: '\' is read as '/', a drive
// letter is dropped where the system has none, and where the exact name does not exist the entry that equals
// it without regard to case is taken (the first in directory order). Names that the disk gives keep their
// case.
//
// Failures come back as CFileError; nothing throws. An implementation is used from one thread at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class IZROutStream;

enum class EFileError
{
    None,
    NotFound,
    AccessDenied,
    ReadOnly,
    NotAFile,      // A directory stands where a file is wanted, or the other way round.
    AlreadyExists, // The system's code 183.
    DiskFull,
    Loop,        // Too many links.
    InvalidData, // The system's code 13: not in the wanted format.
    OutOfMemory,
    Other,
};

struct CFileError
{
    EFileError m_Code = EFileError::None;
    int m_nSystemCode = 0; // errno where the system gave one.

    [[nodiscard]] bool IsOk() const { return m_Code == EFileError::None; }
    // A short English cause, such as "no such file or directory". Empty for no error.
    [[nodiscard]] std::u16string GetText() const;
    static CFileError FromErrno(int code);
};

// Identity of a file's content as far as the disk tells: equal stamps mean "not changed since it was read".
struct SFileStamp
{
    std::int64_t m_nTime = 0; // Nanoseconds since 1970, UTC.
    std::uint64_t m_nSize = 0;
    bool operator==(const SFileStamp&) const = default;
};

struct SFileInfo
{
    bool m_bExists = false;
    bool m_bDirectory = false;
    bool m_bReadOnly = false; // No write permission for its owner, whoever asks.
    SFileStamp m_Stamp;
    // Device and file number, which tell a file from every other one whatever path leads to it; both 0 where
    // the layer knows none.
    std::uint64_t m_nDevice = 0;
    std::uint64_t m_nNode = 0;
};

// Last write time as DOS date (high 16 bits) and time (low 16 bits), local time; 0 for a time of 0.
[[nodiscard]] std::uint32_t GetDosTime(const SFileStamp& stamp);

struct SDirectoryEntry
{
    std::u16string m_sName;
    bool m_bDirectory = false;
    // Device and file number of a directory, for finding loops of links; 0 for files.
    std::uint64_t m_nDevice = 0;
    std::uint64_t m_nNode = 0;
};

// What a listing shall hold; a loader asks for what it wants, so that the rest is neither sorted nor copied.
struct SDirectoryFilter
{
    bool m_bDirectories = true;
    bool m_bFiles = true;
    std::u16string_view m_sExtension; // Files with this extension only (no point, any case); empty takes all.
};

// Bytes of one file. Keeps its capacity from one read to the next.
class CFileBuffer
{
public:
    [[nodiscard]] std::span<std::byte> GetBytes() { return {m_pBytes.get(), m_nSize}; }
    [[nodiscard]] std::span<const std::byte> GetBytes() const { return {m_pBytes.get(), m_nSize}; }
    // Makes room for `size` bytes, without keeping or clearing the content. There are always
    // kSlack bytes behind the last one, so that a reader can terminate a text in place.
    void Resize(std::size_t size);

    static constexpr std::size_t kSlack = 16;

private:
    std::unique_ptr<std::byte[]> m_pBytes;
    std::size_t m_nSize = 0;
    std::size_t m_nCapacity = 0;
};

class IFileSystem
{
public:
    virtual ~IFileSystem() = default;

    // A missing file is an answer (m_bExists false) and not an error.
    [[nodiscard]] virtual CFileError GetInfo(std::u16string_view path, SFileInfo& info) = 0;
    // `info`, when not null, is that of the very file that was read.
    [[nodiscard]] virtual CFileError ReadFile(std::u16string_view path, CFileBuffer& content,
                                              SFileInfo* info) = 0;

    // Replaces a file whole: a temporary name in the same directory, flushed, renamed over the old one. A
    // crash or a full disk leaves the old file or the new one. A read-only file is refused first; a file
    // that holds these very bytes is left alone and counts as written.
    [[nodiscard]] virtual CFileError WriteFile(std::u16string_view path,
                                               std::span<const std::byte> content) = 0;
    // A plain stream on a new or emptied file, for large outputs. Flush and close failures are reported by
    // CloseStream. Null with `error` set on failure.
    [[nodiscard]] virtual std::unique_ptr<IZROutStream> OpenStream(std::u16string_view path,
                                                                   CFileError& error) = 0;
    // Flushes the stream to the disk and closes it.
    [[nodiscard]] virtual CFileError CloseStream(std::unique_ptr<IZROutStream> stream) = 0;

    // Entries in the stable order (NameOrder), "." and ".." left out; files and directories mixed. Links to
    // directories count as directories.
    [[nodiscard]] virtual CFileError ListDirectory(std::u16string_view path, const SDirectoryFilter& filter,
                                                   std::vector<SDirectoryEntry>& entries) = 0;
    // AlreadyExists when the directory (or a file of that name) stands there.
    [[nodiscard]] virtual CFileError CreateDirectory(std::u16string_view path) = 0;
    // Moves `from` to `to`. With `replace` false an existing `to` is AlreadyExists.
    [[nodiscard]] virtual CFileError Rename(std::u16string_view from, std::u16string_view to,
                                            bool replace) = 0;
    [[nodiscard]] virtual CFileError Remove(std::u16string_view path) = 0;
    [[nodiscard]] virtual CFileError SetReadOnly(std::u16string_view path, bool readOnly) = 0;
    // The operating system's own form of a path, in UTF-8, for modules and processes.
    [[nodiscard]] virtual std::string GetNativePath(std::u16string_view path) = 0;

    [[nodiscard]] bool Exists(std::u16string_view path);
    [[nodiscard]] bool IsDirectory(std::u16string_view path);
    // Drops the last element as a file name and creates every missing directory above it. A path with no
    // directory fails.
    [[nodiscard]] CFileError CreateDirectoryTree(std::u16string_view path);
};
