// Feeds arbitrary bytes to both section parsers. What the read-write parser has read and formats must read
// again as the same, in both byte orders, and the read-only parser's index must agree with a scan.
#include "MemoryFileSystem.h"
#include "NameCompare.h"
#include "UnicodeFileParse_ReadOnly.h"
#include "UnicodeFileParse_ReadWrite.h"

#include <cstdlib>

namespace
{
constexpr std::u16string_view kFile = u"/fuzz.rec";

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

void CheckRoundTrip(IFileSystem& files)
{
    CUnicodeFileParse_ReadWrite first(files);
    if (!first.Import(kFile, 0))
        return;
    const std::vector<std::byte> once = first.Format(EXPORT_UTF16LE);
    for (const std::uint32_t format : {EXPORT_UTF16BE, EXPORT_UTF16LE})
    {
        Require(first.Export(kFile, format));
        CUnicodeFileParse_ReadWrite second(files);
        Require(second.Import(kFile, 0) && second.Format(EXPORT_UTF16LE) == once);
    }
}

void CheckIndex(const CUnicodeFileParse_ReadOnly& parser)
{
    for (std::size_t section = 0; section < parser.GetSectionCount(); ++section)
    {
        const std::u16string_view name = parser.GetSectionName(section);
        std::size_t first = 0;
        while (!EqualNames(parser.GetSectionName(first), name))
            ++first;
        Require(parser.FindSection(name) == static_cast<std::ptrdiff_t>(first));
        const CSectionTree& tree = parser.GetTree();
        Require(tree.GetSection(tree.Find(name)) == static_cast<std::ptrdiff_t>(first));
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CMemoryFileSystem files;
    Require(files.WriteFile(kFile, std::as_bytes(std::span(data, size))).IsOk());
    CUnicodeFileParse_ReadOnly readOnly(files);
    if (readOnly.Import(kFile, 0))
        CheckIndex(readOnly);
    CheckRoundTrip(files);
    return 0;
}
