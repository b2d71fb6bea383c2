// The parser that keeps a whole section file as objects, changes it and writes it back. Reads both byte
// orders; the big-endian reader loses a last line that has no line end, as it always has.
#pragma once

#include "SectionIndex.h"
#include "UnicodeFileParseBase.h"

#include <vector>

class CUnicodeFileParse_ReadWrite final : public CUnicodeFileParseBase
{
public:
    // `files` is not owned and must outlive the parser.
    explicit CUnicodeFileParse_ReadWrite(IFileSystem& files) : m_Files(files) {}

    // Adds to what the object holds; duplicates stay.
    [[nodiscard]] bool Import(std::u16string_view file, std::uint32_t flags) override;
    // Creates missing directories, then replaces the file whole. False for every failure, so that a caller's
    // retry question comes; the old file then stands as it was. Flags without a format fail.
    [[nodiscard]] bool Export(std::u16string_view file, std::uint32_t flags) override;
    void Clear() override;
    [[nodiscard]] bool IsEmpty() const override;
    // Always true. An existing key takes the new spelling of its name.
    using CUnicodeFileParseBase::WriteString;
    bool WriteString(std::u16string_view section, std::u16string_view name,
                     std::u16string_view value) override;
    using CUnicodeFileParseBase::IsSection;
    [[nodiscard]] bool IsSection(std::u16string_view section, bool partial) const override;
    // False when there is nothing of that name; removes the first match only.
    using CUnicodeFileParseBase::DeleteKey;
    bool DeleteKey(std::u16string_view section, std::u16string_view name) override;
    using CUnicodeFileParseBase::DeleteSection;
    bool DeleteSection(std::u16string_view section) override;

    // Formats the content as Export writes it, in the byte order of `flags`; the mark included.
    [[nodiscard]] std::vector<std::byte> Format(std::uint32_t flags) const;

protected:
    [[nodiscard]] std::u16string_view FindText(std::u16string_view section,
                                               std::u16string_view name) const override;

private:
    struct SKey
    {
        std::u16string m_sName;
        std::u16string m_sValue;
    };
    struct SSection
    {
        std::u16string m_sName;
        std::vector<SKey> m_Keys;
    };

    template <class Reader> void ParseLines(Reader reader, bool keepsUnendedLine);
    void AddLine(std::u16string_view line);
    void AddSection(std::u16string_view name);
    [[nodiscard]] std::ptrdiff_t FindSection(std::u16string_view name) const;

    IFileSystem& m_Files;
    std::vector<SSection> m_Sections;
    // Keeps the save of an object with many sections linear; built when there are enough of them.
    mutable CSectionIndex m_Index;
};
