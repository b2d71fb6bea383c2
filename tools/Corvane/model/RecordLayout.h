// Where the sections of a record's attributes stand in a file that this program wrote: one after the other in
// the order of the schema, behind the record's own, each followed by those of its members when it is a
// struct. Made once for the records of one directory, so that a load compares a name where it would look one
// up.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class CCorvaneSchema;
class CUnicodeFileParse_ReadOnly;

class CRecordLayout
{
public:
    explicit CRecordLayout(const CCorvaneSchema& schema);

    // The section of the first attribute when the file has this very layout, else -1. A look-up by name would
    // then give the same section for each attribute: no name stands twice. `places` gets the section of each
    // attribute where members stand between them, and is empty where they simply follow one another.
    [[nodiscard]] std::ptrdiff_t Match(const CUnicodeFileParse_ReadOnly& parser,
                                       std::vector<std::uint32_t>& places) const;

private:
    struct SEntry
    {
        std::u16string m_sName;
        bool m_bMembers = false;
    };

    [[nodiscard]] bool MatchPlain(const CUnicodeFileParse_ReadOnly& parser, std::size_t first) const;
    [[nodiscard]] bool MatchMembers(const CUnicodeFileParse_ReadOnly& parser, std::size_t first,
                                    std::vector<std::uint32_t>& places) const;

    std::vector<SEntry> m_Entries;
    bool m_bUnique = true;
    bool m_bMembers = false; // Some attribute has members.
};

inline constexpr std::u16string_view kRecordSection = u"Record";
inline constexpr std::u16string_view kHierarchySection = u"Hierarchy";
