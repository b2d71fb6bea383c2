#include "ZRAFileBuffer.h"

#include "zrassert.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <new>

CZRAFileBuffer::~CZRAFileBuffer()
{
    static_cast<void>(Close());
}

bool CZRAFileBuffer::Open(const char* pszFilename, EMode eMode, std::uint32_t nCacheSize, bool bAppend)
{
    ZRASSERT(pszFilename);
    if (!Prepare(eMode, nCacheSize, bAppend))
        return false;
    if (pszFilename == nullptr)
        return Fail(EINVAL);
    const char* pszWrite = bAppend ? "ab+" : "wb";
    errno = 0;
    m_pFile = std::fopen(pszFilename, eMode == OPEN_READ ? "rb" : pszWrite);
    if (m_pFile == nullptr)
        return Fail(errno);
    m_bOwnFile = true;
    return Start(eMode, nCacheSize);
}

bool CZRAFileBuffer::Attach(std::FILE* pStream, EMode eMode, std::uint32_t nCacheSize)
{
    ZRASSERT(pStream);
    if (!Prepare(eMode, nCacheSize, false))
        return false;
    if (pStream == nullptr)
        return Fail(EINVAL);
    m_pFile = pStream;
    m_bOwnFile = false;
    return Start(eMode, nCacheSize);
}

// What both ways of opening refuse before they touch a file.
bool CZRAFileBuffer::Prepare(EMode eMode, std::uint32_t nCacheSize, bool bAppend)
{
    ZRASSERT(m_eMode == CLOSED);
    if (m_eMode != CLOSED)
        return false;
    m_nError = 0;
    ZRASSERT(eMode == OPEN_READ || eMode == OPEN_WRITE);
    ZRASSERT(!bAppend || eMode == OPEN_WRITE);
    ZRASSERT(nCacheSize > 0);
    const bool bKnownMode = eMode == OPEN_READ || eMode == OPEN_WRITE;
    if (!bKnownMode || (bAppend && eMode == OPEN_READ) || nCacheSize == 0)
        return Fail(EINVAL);
    return true;
}

bool CZRAFileBuffer::Start(EMode eMode, std::uint32_t nCacheSize)
{
    m_eMode = eMode;
    m_nCacheSize = nCacheSize;
    m_nCacheValid = 0;
    m_nCachePos = 0;
    m_pCache.reset(new (std::nothrow) std::uint8_t[nCacheSize]);
    if (!m_pCache)
    {
        ZRASSERT(false);
        Fail(ENOMEM);
    }
    else if (eMode == OPEN_READ)
        static_cast<void>(FillCache()); // An empty file opens; only an error counts here.
    if (m_nError == 0)
        return true;
    static_cast<void>(Close());
    return false;
}

bool CZRAFileBuffer::ReadByte(std::uint8_t& nOut)
{
    ZRASSERT(m_eMode == OPEN_READ);
    if (m_eMode != OPEN_READ || (m_nCachePos == m_nCacheValid && !FillCache()))
        return false;
    nOut = m_pCache[m_nCachePos++];
    return true;
}

bool CZRAFileBuffer::WriteByte(std::uint8_t nValue)
{
    ZRASSERT(m_eMode == OPEN_WRITE);
    if (m_eMode != OPEN_WRITE || m_nError != 0 || (m_nCachePos == m_nCacheSize && !FlushCache()))
        return false;
    m_pCache[m_nCachePos++] = nValue;
    return true;
}

bool CZRAFileBuffer::WriteBlock(const void* pData, std::size_t nLength)
{
    ZRASSERT(m_eMode == OPEN_WRITE);
    if (m_eMode != OPEN_WRITE || m_nError != 0)
        return false;
    const auto* pFrom = static_cast<const std::uint8_t*>(pData);
    while (nLength > 0)
    {
        if (m_nCachePos == m_nCacheSize && !FlushCache())
            return false;
        const std::size_t nPart = std::min<std::size_t>(nLength, m_nCacheSize - m_nCachePos);
        std::memcpy(&m_pCache[m_nCachePos], pFrom, nPart);
        m_nCachePos += static_cast<std::uint32_t>(nPart);
        pFrom += nPart;
        nLength -= nPart;
    }
    return true;
}

bool CZRAFileBuffer::FlushCache()
{
    ZRASSERT(m_eMode == OPEN_WRITE);
    if (m_eMode != OPEN_WRITE || m_nError != 0)
        return false;
    errno = 0;
    if (std::fwrite(m_pCache.get(), 1, m_nCachePos, m_pFile) != m_nCachePos)
        return Fail(errno);
    m_nCachePos = 0;
    return true;
}

// Replaces what has been read by the file's next bytes; false when there are none.
bool CZRAFileBuffer::FillCache()
{
    m_nCachePos = 0;
    m_nCacheValid = 0;
    if (m_nError != 0)
        return false;
    errno = 0;
    m_nCacheValid = static_cast<std::uint32_t>(std::fread(m_pCache.get(), 1, m_nCacheSize, m_pFile));
    if (m_nCacheValid < m_nCacheSize && std::ferror(m_pFile) != 0)
        Fail(errno); // What came before the error is still handed out.
    return m_nCacheValid > 0;
}

bool CZRAFileBuffer::Close()
{
    if (m_eMode == CLOSED)
        return true;
    if (m_eMode == OPEN_WRITE && m_nError == 0)
        static_cast<void>(FlushCache());
    m_pCache.reset();
    errno = 0;
    // A stream that stays open must hold the bytes too, or its owner would learn of a full disk alone.
    if (m_eMode == OPEN_WRITE && std::fflush(m_pFile) != 0)
        Fail(errno);
    if (m_bOwnFile && std::fclose(m_pFile) != 0)
        Fail(errno);
    m_pFile = nullptr;
    m_eMode = CLOSED;
    return m_nError == 0;
}

// Keeps the first cause; a stream that fails without one is an input or output error.
bool CZRAFileBuffer::Fail(int nError)
{
    if (m_nError == 0)
        m_nError = nError != 0 ? nError : EIO;
    return false;
}
