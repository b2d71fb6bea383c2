// The in-place parser for files that are only read, above all during load: names and values are views into
// the file's own buffer and live as long as the parser's content.
//
// Reads little-endian files only. One object may be used for file after file: Import replaces the content
// and keeps the buffers, so that a load of many files allocates only while they grow.
#pragma once

#include "SectionIndex.h"
#include "SectionTree.h"
#include "UnicodeFileParseBase.h"

#include <vector>

struct SScannedLine;

struct SSectionKey
{
    std::u16string_view m_sName;
    std::u16string_view m_sValue;
};

class CUnicodeFileParse_ReadOnly final : public CUnicodeFileParseBase
{
public:
    // `files` is not owned and must outlive the parser.
    explicit CUnicodeFileParse_ReadOnly(IFileSystem& files) : m_Files(files) {}

    [[nodiscard]] bool Import(std::u16string_view file, std::uint32_t flags) override;
    // The write operations fire an assertion and return false.
    [[nodiscard]] bool Export(std::u16string_view file, std::uint32_t flags) override;
    void Clear() override;
    [[nodiscard]] bool IsEmpty() const override;
    using CUnicodeFileParseBase::WriteString;
    bool WriteString(std::u16string_view section, std::u16string_view name,
                     std::u16string_view value) override;
    using CUnicodeFileParseBase::WriteInteger;
    bool WriteInteger(std::u16string_view section, std::u16string_view name, std::int32_t value) override;
    using CUnicodeFileParseBase::WriteFloat;
    bool WriteFloat(std::u16string_view section, std::u16string_view name, float value) override;
    using CUnicodeFileParseBase::WriteBoolean;
    bool WriteBoolean(std::u16string_view section, std::u16string_view name, bool value) override;
    using CUnicodeFileParseBase::IsSection;
    [[nodiscard]] bool IsSection(std::u16string_view section, bool partial) const override;
    using CUnicodeFileParseBase::DeleteKey;
    bool DeleteKey(std::u16string_view section, std::u16string_view name) override;
    using CUnicodeFileParseBase::DeleteSection;
    bool DeleteSection(std::u16string_view section) override;

    // Sections in file order, indices from 0. Views live until the next Import, Clear or the destructor.
    [[nodiscard]] std::size_t GetSectionCount() const { return m_Sections.size(); }
    [[nodiscard]] std::u16string_view GetSectionName(std::size_t section) const;
    [[nodiscard]] std::span<const SSectionKey> GetKeys(std::size_t section) const;
    // The first section of that name, or -1. Constant time on files with many sections. `hash` is
    // HashName(name), for callers that look the same name up in many files.
    [[nodiscard]] std::ptrdiff_t FindSection(std::u16string_view name) const;
    [[nodiscard]] std::ptrdiff_t FindSection(std::u16string_view name, std::size_t hash) const;
    // The first value of that name in a section, or a view without data.
    [[nodiscard]] std::u16string_view FindValue(std::size_t section, std::u16string_view name) const;
    // The sections by the elements of their names; built at the first call, and gone with the content.
    [[nodiscard]] const CSectionTree& GetTree() const;
    // Reorders what was read: removes one section, or takes `from` out and puts it in front of what stands
    // at `to` (both indices counted before the move).
    void RemoveSection(std::size_t section);
    void MoveSection(std::size_t from, std::size_t to);

    // Info of the file that the last good Import read.
    [[nodiscard]] const SFileInfo& GetFileInfo() const { return m_Info; }

protected:
    [[nodiscard]] std::u16string_view FindText(std::u16string_view section,
                                               std::u16string_view name) const override;

private:
    struct SSection
    {
        std::u16string_view m_sName;
        std::uint32_t m_nFirstKey = 0;
        std::uint32_t m_nKeyCount = 0;
    };

    void ParseLines(std::u16string_view text);
    void AddLine(std::u16string_view text, const SScannedLine& line);
    void AddSection(std::u16string_view name, bool mayHoldZero);
    void CloseSection();
    void DropIndexes();

    IFileSystem& m_Files;
    CFileBuffer m_Buffer;
    std::vector<SSection> m_Sections;
    std::vector<SSectionKey> m_Keys;
    SFileInfo m_Info;
    // Built at the first look-up in a file with many sections.
    mutable CSectionIndex m_Index;
    mutable CSectionTree m_Tree;
};
