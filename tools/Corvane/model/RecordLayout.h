// Where the sections of a record's attributes stand in a file that this program wrote: one after the other in
// the order of the schema, behind the record's own. Made once for the records of one directory, so that a
// load compares a name where it would look one up.
#pragma once

#include <cstddef>
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
    // then give the same section for each attribute: no name stands twice.
    [[nodiscard]] std::ptrdiff_t Match(const CUnicodeFileParse_ReadOnly& parser) const;

private:
    std::vector<std::u16string> m_Names;
    bool m_bUnique = true;
};

inline constexpr std::u16string_view kRecordSection = u"Record";
inline constexpr std::u16string_view kHierarchySection = u"Hierarchy";
