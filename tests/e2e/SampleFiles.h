// What the sample's source files say, read by a few lines of the tests' own, so that the packed database is
// held against the files and not against the loader.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

using Section = std::map<std::u16string, std::u16string>;
using SectionFile = std::map<std::u16string, Section>;

SectionFile ReadSectionFile(const std::filesystem::path& path);

// One entry of an attribute: from `build` on, of this type.
struct SEntry
{
    std::uint32_t m_nBuild = 0;
    std::u16string m_sType;
    bool m_bUnicode = false;
    bool m_bDeleted = false;
};

class CSampleFiles
{
public:
    explicit CSampleFiles(const std::filesystem::path& database);

    struct SRecord
    {
        std::u16string m_sName;
        std::string m_sCategory; // Directories joined by '/'.
        std::u16string m_sSchema;
        SectionFile m_File;
    };
    [[nodiscard]] const std::vector<SRecord>& GetRecords() const { return m_Records; }

    // Attribute name -> entry in force for a build, for a record of this schema and its parents.
    [[nodiscard]] std::map<std::u16string, SEntry> GetEntries(const std::u16string& schema,
                                                              std::uint32_t build) const;
    // The values that the record's file holds for an entry.
    [[nodiscard]] static std::vector<std::u16string>
    GetValues(const SRecord& record, const std::u16string& attribute, std::uint32_t build);

private:
    std::map<std::u16string, SectionFile> m_Schemas;
    std::vector<SRecord> m_Records;
};
