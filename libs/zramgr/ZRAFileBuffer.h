// A file that is written or read from start to end, byte by byte, through a small cache.
//
// Every failure is a false result, and its cause stays readable (`GetError`) until the next `Open`. A failure
// lasts: after a write that failed nothing more is written, so that a file never has a hole. What was written
// is in the file only when `Close` has returned true.
//
// One object for one thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>

class CZRAFileBuffer
{
public:
    enum EMode
    {
        OPEN_READ = 0,
        OPEN_WRITE = 1,
        CLOSED = 2,
    };

    static constexpr std::uint32_t DEFAULT_CACHE_SIZE = 1024;

    CZRAFileBuffer() = default;
    // Closes. Its result is lost: a writer calls `Close` itself.
    ~CZRAFileBuffer();
    CZRAFileBuffer(const CZRAFileBuffer&) = delete;
    CZRAFileBuffer& operator=(const CZRAFileBuffer&) = delete;

    // `pszFilename` is UTF-8, as the operating system spells it; `nCacheSize` is in bytes, not 0. Writing
    // makes the file anew, or goes on at its end with `bAppend`. Reading fills the cache at once, so that
    // what cannot be read, such as a directory, is refused here. An open object is refused.
    [[nodiscard]] bool Open(const char* pszFilename, EMode eMode, std::uint32_t nCacheSize, bool bAppend);
    // Works on a stream that the caller has opened, such as the standard output or one in memory. The stream
    // stays the caller's: `Close` flushes it and leaves it open. Reading takes more bytes from it than are
    // asked for.
    [[nodiscard]] bool Attach(std::FILE* pStream, EMode eMode, std::uint32_t nCacheSize);

    // False at the end of the file and after a read error, which `GetError` tells apart.
    [[nodiscard]] bool ReadByte(std::uint8_t& nOut);
    [[nodiscard]] bool WriteByte(std::uint8_t nValue);
    [[nodiscard]] bool WriteBlock(const void* pData, std::size_t nLength);
    // Hands the cache's bytes to the stream.
    [[nodiscard]] bool FlushCache();
    // True when every read or write since `Open` went well, the last flush and the system's close included.
    // Closing what is not open does nothing and is true.
    [[nodiscard]] bool Close();

    EMode GetMode() const { return m_eMode; }
    bool IsOpen() const { return m_eMode != CLOSED; }
    // The system's error number (errno) of the first failure since `Open`, 0 without one.
    int GetError() const { return m_nError; }

private:
    [[nodiscard]] bool Prepare(EMode eMode, std::uint32_t nCacheSize, bool bAppend);
    [[nodiscard]] bool Start(EMode eMode, std::uint32_t nCacheSize);
    [[nodiscard]] bool FillCache();
    bool Fail(int nError);

    std::unique_ptr<std::uint8_t[]> m_pCache;
    std::uint32_t m_nCacheSize = 0;
    std::uint32_t m_nCacheValid = 0; // Bytes in the cache while reading.
    std::uint32_t m_nCachePos = 0;
    EMode m_eMode = CLOSED;
    std::FILE* m_pFile = nullptr;
    bool m_bOwnFile = false;
    int m_nError = 0;
};
