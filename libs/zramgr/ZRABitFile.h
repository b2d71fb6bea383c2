// A file of single bits. Bits fill each byte from its lowest to its highest; numbers of several bits are sent
// with their highest bit first. A last byte that is not full when a writer closes is not in the file.
#pragma once

#include "ZRAFileBuffer.h"

#include <cstdint>
#include <cstdio>

class CZRABitFile : public CZRAFileBuffer
{
public:
    // As the base's, and starts at the first bit of a byte.
    [[nodiscard]] bool Open(const char* pszFilename, EMode eMode, std::uint32_t nCacheSize, bool bAppend);
    [[nodiscard]] bool Attach(std::FILE* pStream, EMode eMode, std::uint32_t nCacheSize);

    [[nodiscard]] bool SetBit(bool bValue);
    // False, with `bOut` as it was, when there are no more bits.
    [[nodiscard]] bool GetBit(bool& bOut);
    // The low `nCount` (1 to 32) bits of `nValue`. When a write fails, the other bits are still tried.
    [[nodiscard]] bool SetBits(std::uint32_t nValue, unsigned nCount);
    // Reads `nCount` (1 to 32) bits and returns how many there were; those that the file lacks read as 0.
    [[nodiscard]] unsigned GetBits(std::uint32_t& nOut, unsigned nCount);

private:
    void StartByte(EMode eMode);

    std::uint8_t m_nByte = 0;
    std::uint8_t m_nMask = 0; // Place of the next bit; 0 while reading: in the next byte.
};
