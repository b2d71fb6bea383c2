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

// One entry of an attribute or of a struct's member: from `build` on, of this type.
struct SEntry
{
    std::uint32_t m_nBuild = 0;
    std::u16string m_sType;
    std::u16string m_sData;
    bool m_bUnicode = false;
    bool m_bDeleted = false;
    std::filesystem::path m_Directory; // Of the file that declares it; `m_sData` of a struct begins there.
};
using Entries = std::map<std::u16string, SEntry>;

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

        [[nodiscard]] std::string GetPath() const;
    };
    [[nodiscard]] const std::vector<SRecord>& GetRecords() const { return m_Records; }
    // The path of the record that a link's text names: by its last element, since no two records of the
    // sample share a name. Empty when there is none.
    [[nodiscard]] std::string FindPath(const std::u16string& link) const;

    // Attribute name -> entry in force for a build, for a record of this schema and its parents.
    [[nodiscard]] Entries GetEntries(const std::u16string& schema, std::uint32_t build) const;
    // The same for the members of a struct entry.
    [[nodiscard]] Entries GetMembers(const SEntry& entry, std::uint32_t build) const;

    // The section of an entry; `prefix` is "Attrib", or the section of a struct with a point and the row.
    [[nodiscard]] static std::u16string GetSection(const std::u16string& prefix, const std::u16string& name,
                                                   const SEntry& entry);
    // The values of a section, or the number of rows of a struct's.
    [[nodiscard]] static std::vector<std::u16string> GetValues(const SRecord& record,
                                                               const std::u16string& section);
    [[nodiscard]] static std::size_t GetRowCount(const SRecord& record, const std::u16string& section);

private:
    // Schemas by name and struct files by path, each with the directory that holds it.
    struct SDeclarations
    {
        SectionFile m_File;
        std::filesystem::path m_Directory;
    };
    static void AddEntries(const SDeclarations& declarations, std::uint32_t build, Entries& entries);
    static Entries RemoveDeleted(Entries entries);

    std::map<std::u16string, SDeclarations> m_Schemas;
    std::map<std::filesystem::path, SDeclarations> m_Structs;
    std::vector<SRecord> m_Records;
    std::map<std::u16string, std::string> m_Paths;
};
