// Numbers as narrow text, whatever the locale is.
#pragma once

#include <cstddef>

class CZRAConverter
{
public:
    // Writes decimal digits, with a '-' ahead of a negative value, into a buffer of `nBufferLen` characters.
    // A text that does not fit is cut; the terminator is always there. The number of characters before it.
    static std::size_t IntToStr(int nValue, char* pszBuffer, std::size_t nBufferLen);
};
