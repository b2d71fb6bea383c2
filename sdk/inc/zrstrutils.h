// Bounded string helpers for fixed buffers. Sizes count characters of the buffer, the terminator included.
// A text that does not fit is cut, terminated and reported through the assertion entry.
#pragma once

#include "zrassert.h"

#include <cstdarg>
#include <cstddef>
#include <cstdio>

namespace zrstr
{
// Copies until the buffer is full or the source ends; returns false when the source was cut.
template <class Char> bool CopyCut(Char* dest, std::size_t size, const Char* source)
{
    std::size_t i = 0;
    for (; i + 1 < size && source[i] != 0; ++i)
        dest[i] = source[i];
    if (size != 0)
        dest[i] = 0;
    return source[i] == 0 && size != 0;
}
} // namespace zrstr

// Copies `source` into `dest`. Returns false when it was cut.
template <class Char> bool ZRStrCpy(Char* dest, std::size_t size, const Char* source)
{
    ZRASSERT(dest);
    ZRASSERT(source);
    if (dest == nullptr || source == nullptr)
        return false;
    const bool whole = zrstr::CopyCut(dest, size, source);
    if (!whole)
        ZRASSERT_FORCED("ZRStrCpy : Copy source is truncated");
    return whole;
}

// Appends `source` to the terminated text in `dest`. Returns false when it was cut.
template <class Char> bool ZRStrCat(Char* dest, std::size_t size, const Char* source)
{
    ZRASSERT(dest);
    ZRASSERT(source);
    if (dest == nullptr || source == nullptr)
        return false;
    std::size_t length = 0;
    while (length < size && dest[length] != 0)
        ++length;
    const bool whole = length < size && zrstr::CopyCut(dest + length, size - length, source);
    if (!whole)
        ZRASSERT_FORCED("ZRStrCat : Concatenation source is truncated");
    return whole;
}

// Formats into `dest` as vsnprintf does. Returns the length written without the terminator; a cut text fires
// an assertion.
inline int ZRVSNPrintF(char* dest, std::size_t size, const char* format, std::va_list arguments)
{
    ZRASSERT(dest);
    ZRASSERT(format);
    if (dest == nullptr || format == nullptr || size == 0)
        return 0;
    const int needed = std::vsnprintf(dest, size, format, arguments);
    if (needed < 0)
    {
        dest[0] = 0;
        return 0;
    }
    if (static_cast<std::size_t>(needed) < size)
        return needed;
    ZRASSERT_FORCED("ZRVSNPrintF : Formatted text is truncated");
    return static_cast<int>(size - 1);
}
