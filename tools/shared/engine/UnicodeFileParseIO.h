// Readers of 16-bit units over a file's bytes, one for each byte order, with the same members. The mark is
// skipped without being looked at: the caller decided the byte order from it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

// The unit that get() answers at the end of the data. In the data it is read as an end as well.
inline constexpr char16_t kUnicodeEnd = 0xFFFF;
inline constexpr char16_t kByteOrderMark = 0xFEFF;

// Common part: an odd trailing byte is ignored, a content of under 3 bytes is an empty stream.
template <bool bigEndian> class CUnicodeFileIO
{
public:
    explicit CUnicodeFileIO(std::span<const std::byte> content)
    {
        if (content.size() < 3)
            return;
        m_pCursor = content.data() + 2;
        m_pEnd = content.data() + (content.size() & ~std::size_t{1});
    }

    // The next unit, or kUnicodeEnd without advancing at the end of the data.
    char16_t get()
    {
        if (m_pCursor == m_pEnd)
            return kUnicodeEnd;
        const auto first = std::to_integer<unsigned>(m_pCursor[0]);
        const auto second = std::to_integer<unsigned>(m_pCursor[1]);
        m_pCursor += 2;
        return static_cast<char16_t>(bigEndian ? (first << 8U | second) : (second << 8U | first));
    }

    // Tells a unit kUnicodeEnd of the data from the end.
    [[nodiscard]] bool IsAtEnd() const { return m_pCursor == m_pEnd; }

private:
    const std::byte* m_pCursor = nullptr;
    const std::byte* m_pEnd = nullptr;
};

using CUnicodeFileIO_UTF16LE = CUnicodeFileIO<false>;
using CUnicodeFileIO_UTF16BE = CUnicodeFileIO<true>;
