#include "Catalogue.h"

#include <cstring>

namespace
{
constexpr std::uint32_t kMark = 0x950412DE;
constexpr std::uint32_t kMarkSwapped = 0xDE120495;
constexpr std::size_t kHeaderSize = 28;
constexpr std::size_t kEntrySize = 8;   // Length and offset of a text.
constexpr std::uint32_t kLastMajor = 1; // The form of what is read here is the same in both.
constexpr char kContextEnd = '\x04';
} // namespace

std::optional<CCatalogue> CCatalogue::Open(std::span<const std::byte> bytes)
{
    CCatalogue catalogue(bytes);
    if (!catalogue.ReadHeader())
        return std::nullopt;
    return catalogue;
}

bool CCatalogue::ReadHeader()
{
    if (m_Bytes.size() < kHeaderSize)
        return false;
    const std::uint32_t mark = ReadNumber(0);
    m_bSwapped = mark == kMarkSwapped;
    if (mark != kMark && !m_bSwapped)
        return false;
    const std::uint32_t revision = ReadNumber(4);
    m_nCount = ReadNumber(8);
    m_nOriginals = ReadNumber(12);
    const std::uint32_t translations = ReadNumber(16);
    return revision >> 16U <= kLastMajor && CheckTable(m_nOriginals, true) && CheckTable(translations, false);
}

bool CCatalogue::CheckTable(std::uint32_t table, bool isSorted) const
{
    if (table > m_Bytes.size() || m_nCount > (m_Bytes.size() - table) / kEntrySize)
        return false;
    // Each text of a real catalogue has bytes of its own. Texts that overlap could make the comparisons
    // below quadratic in the size of the file.
    std::size_t left = m_Bytes.size();
    for (std::uint32_t i = 0; i < m_nCount; ++i)
    {
        const std::size_t entry = table + kEntrySize * i;
        const std::uint32_t length = ReadNumber(entry);
        if (length >= left || !CheckText(length, ReadNumber(entry + 4)))
            return false;
        left -= length + std::size_t{1};
        if (isSorted && i > 0 && GetKey(i) <= GetKey(i - 1))
            return false;
    }
    return true;
}

bool CCatalogue::CheckText(std::uint32_t length, std::uint32_t offset) const
{
    return offset < m_Bytes.size() && length < m_Bytes.size() - offset &&
           m_Bytes[std::size_t{offset} + length] == std::byte{0};
}

std::uint32_t CCatalogue::ReadNumber(std::size_t offset) const
{
    std::uint32_t number = 0;
    std::memcpy(&number, m_Bytes.data() + offset, sizeof number);
    return m_bSwapped ? __builtin_bswap32(number) : number;
}

std::string_view CCatalogue::GetKey(std::uint32_t index) const
{
    const std::uint32_t offset = ReadNumber(m_nOriginals + kEntrySize * index + 4);
    return reinterpret_cast<const char*>(m_Bytes.data()) + offset;
}

std::uint32_t CCatalogue::FindFirst(std::string_view key) const
{
    std::uint32_t first = 0;
    for (std::uint32_t last = m_nCount; first < last;)
    {
        const std::uint32_t middle = first + (last - first) / 2;
        if (GetKey(middle) < key)
            first = middle + 1;
        else
            last = middle;
    }
    return first;
}

bool CCatalogue::IsIdentifier(std::string_view key)
{
    return !key.empty() && key.find(kContextEnd) == std::string_view::npos;
}

bool CCatalogue::HasIdentifier(std::string_view identifier) const
{
    const std::uint32_t index = FindFirst(identifier);
    return IsIdentifier(identifier) && index < m_nCount && GetKey(index) == identifier;
}
