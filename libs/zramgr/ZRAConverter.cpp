#include "ZRAConverter.h"

#include "zrassert.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

std::size_t CZRAConverter::IntToStr(int nValue, char* pszBuffer, std::size_t nBufferLen)
{
    ZRASSERT(pszBuffer);
    ZRASSERT(nBufferLen > 0);
    if (pszBuffer == nullptr || nBufferLen == 0)
        return 0;
    // All digits, the one that digits10 does not count, and a sign.
    std::array<char, std::numeric_limits<int>::digits10 + 2> text;
    const char* const end = std::to_chars(text.data(), text.data() + text.size(), nValue).ptr;
    const std::size_t length = std::min(static_cast<std::size_t>(end - text.data()), nBufferLen - 1);
    std::copy_n(text.data(), length, pszBuffer);
    pszBuffer[length] = 0;
    return length;
}
