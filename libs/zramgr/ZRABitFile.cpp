#include "ZRABitFile.h"

#include "zrassert.h"

#include <algorithm>
#include <bit>

namespace
{
// The bits of a number in the opposite order: the first that is sent becomes the lowest.
std::uint32_t Reverse(std::uint32_t nValue)
{
    nValue = (nValue & 0x55555555U) << 1 | (nValue >> 1 & 0x55555555U);
    nValue = (nValue & 0x33333333U) << 2 | (nValue >> 2 & 0x33333333U);
    nValue = (nValue & 0x0F0F0F0FU) << 4 | (nValue >> 4 & 0x0F0F0F0FU);
    return __builtin_bswap32(nValue);
}
} // namespace

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
    ZRASSERT(GetMode() == CZRAFileBuffer::OPEN_WRITE);
    if (GetMode() != OPEN_WRITE)
        return false;
    auto nUsed = static_cast<unsigned>(std::countr_zero(m_nMask));
    std::uint64_t nBits = m_nByte | std::uint64_t{Reverse(nValue) >> (32 - nCount)} << nUsed;
    bool bWritten = true;
    for (nUsed += nCount; nUsed >= 8; nUsed -= 8)
    {
        bWritten = WriteByte(static_cast<std::uint8_t>(nBits)) && bWritten;
        nBits >>= 8;
    }
    m_nByte = static_cast<std::uint8_t>(nBits);
    m_nMask = static_cast<std::uint8_t>(1U << nUsed);
    return bWritten;
}

unsigned CZRABitFile::GetBits(std::uint32_t& nOut, unsigned nCount)
{
    ZRASSERT(GetMode() == CZRAFileBuffer::OPEN_READ);
    nOut = 0;
    if (GetMode() != OPEN_READ)
        return 0;
    const auto nUsed = static_cast<unsigned>(std::countr_zero(m_nMask)); // All 8 of a mask of 0.
    std::uint64_t nBits = static_cast<std::uint64_t>(m_nByte) >> nUsed;
    unsigned nHave = 8 - nUsed;
    for (; nHave < nCount && ReadByte(m_nByte); nHave += 8)
        nBits |= static_cast<std::uint64_t>(m_nByte) << nHave;
    const unsigned nRead = std::min(nHave, nCount);
    m_nMask = static_cast<std::uint8_t>(1U << (8 - (nHave - nRead)));
    nOut = Reverse(static_cast<std::uint32_t>(nBits & ((std::uint64_t{1} << nRead) - 1))) >> (32 - nCount);
    return nRead;
}
