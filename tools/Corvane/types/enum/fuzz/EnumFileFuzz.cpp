// Feeds arbitrary bytes to the reader of enum files. A file with a mark is always read; what was read and is
// written with one value a line must read again as the same, in both byte orders.
#include "MemoryFileSystem.h"
#include "enum/EnumFileReader.h"
#include "enum/EnumValueList.h"

#include <algorithm>
#include <cstdlib>

namespace
{
constexpr std::u16string_view kFile = u"/fuzz.enum";

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

SEnumFile Read(IFileSystem& files, std::span<const std::byte> bytes)
{
    SEnumFile file;
    Require(files.WriteFile(kFile, bytes).IsOk());
    const CFileError error = CEnumFileReader(files).Read(kFile, file);
    Require(error.IsOk() == (file.m_pValues != nullptr));
    Require(error.IsOk() || error.m_Code == EFileError::InvalidData);
    return file;
}

void AddUnit(std::vector<std::byte>& bytes, char16_t unit, bool bigEndian)
{
    bytes.push_back(static_cast<std::byte>(bigEndian ? unit >> 8U : unit & 0xFFU));
    bytes.push_back(static_cast<std::byte>(bigEndian ? unit & 0xFFU : unit >> 8U));
}

std::vector<std::byte> Format(const CEnumValueList& list, bool bigEndian)
{
    std::vector<std::byte> bytes;
    AddUnit(bytes, 0xFEFF, bigEndian);
    for (const std::u16string_view value : list.GetValues())
    {
        Require(value.size() <= 1023 && value.find_first_of(u"\r\n") == value.npos);
        Require(list.Contains(value));
        for (const char16_t unit : value)
            AddUnit(bytes, unit, bigEndian);
        AddUnit(bytes, u'\n', bigEndian);
    }
    return bytes;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CMemoryFileSystem files;
    const SEnumFile first = Read(files, std::as_bytes(std::span(data, size)));
    if (!first.m_pValues)
        return 0;
    const auto values = first.m_pValues->GetValues();
    for (const bool bigEndian : {false, true})
    {
        const SEnumFile second = Read(files, Format(*first.m_pValues, bigEndian));
        Require(second.m_pValues != nullptr);
        const auto again = second.m_pValues->GetValues();
        Require(std::equal(values.begin(), values.end(), again.begin(), again.end()));
    }
    return 0;
}
