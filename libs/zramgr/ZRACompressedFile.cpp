#include "ZRACompressedFile.h"

#include "zrassert.h"

#include <cerrno>

namespace
{
constexpr unsigned kHeaderBits = 32;
constexpr unsigned kPositionBits = 12;
constexpr unsigned kLengthBits = 4;
// A writer leaves out a last byte that is not full, so that this many bits of the end token may be missing.
constexpr unsigned kMostBitsCut = 7;
constexpr std::uint32_t kRingMask = CLZSSWindow::WINDOW_SIZE - 1;
} // namespace

CZRACompressedFile::~CZRACompressedFile()
{
    static_cast<void>(Close());
}

bool CZRACompressedFile::Open(const char* pszFilename, CZRAFileBuffer::EMode eMode, std::uint32_t nCacheSize,
                              bool bAppend)
{
    ZRASSERT(!bAppend);
    return !bAppend && m_File.Open(pszFilename, eMode, nCacheSize, false) && StartStream();
}

bool CZRACompressedFile::Attach(std::FILE* pStream, CZRAFileBuffer::EMode eMode, std::uint32_t nCacheSize)
{
    return m_File.Attach(pStream, eMode, nCacheSize) && StartStream();
}

bool CZRACompressedFile::StartStream()
{
    m_Window.Reset();
    m_DecWindow.fill(0); // A bad stream must not bring bytes of the file before to light.
    m_nDecPos = 1;
    m_nDecSpanLen = 0;
    m_bEnded = false;
    m_bComplete = false;
    const bool bReading = m_File.GetMode() == CZRAFileBuffer::OPEN_READ;
    if (bReading ? ReadHeader() : m_File.SetBits(0, kHeaderBits))
        return true;
    static_cast<void>(m_File.Close());
    return false;
}

bool CZRACompressedFile::ReadHeader()
{
    std::uint32_t nHeader = 0;
    return m_File.GetBits(nHeader, kHeaderBits) == kHeaderBits && nHeader == 0;
}

bool CZRACompressedFile::WriteByte(std::uint8_t nValue)
{
    return WriteBlock(&nValue, 1);
}

bool CZRACompressedFile::WriteBlock(const void* pData, std::size_t nLength)
{
    ZRASSERT(m_File.GetMode() == CZRAFileBuffer::OPEN_WRITE);
    if (m_File.GetMode() != CZRAFileBuffer::OPEN_WRITE)
        return false;
    const auto* pFrom = static_cast<const std::uint8_t*>(pData);
    bool bWritten = true;
    for (std::size_t i = 0; i < nLength; ++i)
        bWritten = m_Window.AddByte(pFrom[i], m_File) && bWritten;
    return bWritten;
}

bool CZRACompressedFile::ReadByte(std::uint8_t& nOut)
{
    ZRASSERT(m_File.GetMode() == CZRAFileBuffer::OPEN_READ);
    if (m_bEnded || m_File.GetMode() != CZRAFileBuffer::OPEN_READ)
        return false;
    if (m_nDecSpanLen == 0)
        return ReadToken(nOut);
    CopySpanByte(nOut);
    return true;
}

bool CZRACompressedFile::ReadToken(std::uint8_t& nOut)
{
    bool bLiteral = false;
    if (!m_File.GetBit(bLiteral))
        return EndReading();
    if (!bLiteral)
    {
        if (!ReadSpan())
            return EndReading();
        CopySpanByte(nOut);
        return true;
    }
    std::uint32_t nValue = 0;
    if (m_File.GetBits(nValue, 8) != 8)
        return EndReading();
    nOut = static_cast<std::uint8_t>(nValue);
    Store(nOut);
    return true;
}

// False at the end token. A token with bits missing is taken for the end as well: whatever stood there, no
// byte is made up.
bool CZRACompressedFile::ReadSpan()
{
    std::uint32_t nSpan = 0;
    const unsigned nRead = m_File.GetBits(nSpan, kPositionBits + kLengthBits);
    m_nDecSpanPos = nSpan >> kLengthBits;
    if (m_nDecSpanPos == 0)
        m_bComplete = nRead + kMostBitsCut >= kPositionBits + kLengthBits && m_File.GetError() == 0;
    if (m_nDecSpanPos == 0 || nRead < kPositionBits + kLengthBits)
        return false;
    m_nDecSpanLen = (nSpan & ((1U << kLengthBits) - 1)) + CLZSSWindow::SHORTEST_SPAN;
    return true;
}

bool CZRACompressedFile::EndReading()
{
    m_bEnded = true;
    return false;
}

void CZRACompressedFile::CopySpanByte(std::uint8_t& nOut)
{
    ZRASSERT(m_nDecSpanLen > 0);
    nOut = m_DecWindow[m_nDecSpanPos];
    Store(nOut);
    m_nDecSpanPos = (m_nDecSpanPos + 1) & kRingMask;
    --m_nDecSpanLen;
}

void CZRACompressedFile::Store(std::uint8_t nValue)
{
    m_DecWindow[m_nDecPos] = nValue;
    m_nDecPos = (m_nDecPos + 1) & kRingMask;
}

bool CZRACompressedFile::Close()
{
    bool bFinished = true;
    if (m_File.GetMode() == CZRAFileBuffer::OPEN_WRITE)
        bFinished = m_Window.Finish(m_File);
    return m_File.Close() && bFinished;
}
