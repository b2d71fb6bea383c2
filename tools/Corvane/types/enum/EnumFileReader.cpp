#include "enum/EnumFileReader.h"

#include "UnicodeFileParseIO.h"
#include "enum/EnumValueList.h"

namespace
{
// The units behind the mark; a last odd byte is none.
template <bool bigEndian> std::u16string ReadUnits(std::span<const std::byte> bytes)
{
    CUnicodeFileIO<bigEndian> in(bytes);
    std::u16string text;
    text.reserve(bytes.size() / sizeof(char16_t));
    while (!in.IsAtEnd())
        text += in.get();
    return text;
}

bool BeginsWith(std::span<const std::byte> bytes, unsigned char first, unsigned char second)
{
    return bytes.size() >= 2 && bytes[0] == std::byte{first} && bytes[1] == std::byte{second};
}
} // namespace

CFileError CEnumFileReader::Read(std::u16string_view path, SEnumFile& file)
{
    CFileBuffer content;
    SFileInfo info;
    if (const CFileError error = m_Files.ReadFile(path, content, &info); !error.IsOk())
        return error;
    const std::span<const std::byte> bytes = content.GetBytes();
    if (BeginsWith(bytes, 0xFF, 0xFE))
        file.m_pValues = CEnumValueList::FromLines(ReadUnits<false>(bytes));
    else if (BeginsWith(bytes, 0xFE, 0xFF))
        file.m_pValues = CEnumValueList::FromLines(ReadUnits<true>(bytes));
    else
        return CFileError{EFileError::InvalidData, 0};
    file.m_Stamp = info.m_Stamp;
    return {};
}
