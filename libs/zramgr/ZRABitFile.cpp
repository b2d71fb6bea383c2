#include "ZRABitFile.h"

#include "zrassert.h"

bool CZRABitFile::Open(const char* pszFilename, EMode eMode, std::uint32_t nCacheSize, bool bAppend)
{
    if (!CZRAFileBuffer::Open(pszFilename, eMode, nCacheSize, bAppend))
        return false;
    StartByte(eMode);
    return true;
}

bool CZRABitFile::Attach(std::FILE* pStream, EMode eMode, std::uint32_t nCacheSize)
{
    if (!CZRAFileBuffer::Attach(pStream, eMode, nCacheSize))
        return false;
    StartByte(eMode);
    return true;
}

void CZRABitFile::StartByte(EMode eMode)
{
    m_nByte = 0;
    m_nMask = eMode == OPEN_WRITE ? 1 : 0;
}

bool CZRABitFile::SetBit(bool bValue)
{
    ZRASSERT(GetMode() == CZRAFileBuffer::OPEN_WRITE);
    if (GetMode() != OPEN_WRITE)
        return false;
    if (bValue)
        m_nByte = static_cast<std::uint8_t>(m_nByte | m_nMask);
    m_nMask = static_cast<std::uint8_t>(m_nMask << 1);
    if (m_nMask != 0)
        return true;
    const bool bWritten = WriteByte(m_nByte);
    StartByte(OPEN_WRITE);
    return bWritten;
}

bool CZRABitFile::GetBit(bool& bOut)
{
    ZRASSERT(GetMode() == CZRAFileBuffer::OPEN_READ);
    if (GetMode() != OPEN_READ)
        return false;
    if (m_nMask == 0)
    {
        if (!ReadByte(m_nByte))
            return false;
        m_nMask = 1;
    }
    bOut = (m_nByte & m_nMask) != 0;
    m_nMask = static_cast<std::uint8_t>(m_nMask << 1);
    return true;
}

bool CZRABitFile::SetBits(std::uint32_t nValue, unsigned nCount)
{
    bool bWritten = true;
    while (nCount > 0)
        bWritten = SetBit((nValue >> --nCount & 1) != 0) && bWritten;
    return bWritten;
}

unsigned CZRABitFile::GetBits(std::uint32_t& nOut, unsigned nCount)
{
    nOut = 0;
    bool bBit = false;
    for (unsigned nRead = 0; nRead < nCount; ++nRead)
    {
        if (!GetBit(bBit))
        {
            nOut <<= nCount - nRead;
            return nRead;
        }
        nOut = nOut << 1 | (bBit ? 1U : 0U);
    }
    return nCount;
}
