// The sections below a Struct attribute's own in a record file, kept as they stand while the struct file that
// tells what they mean is missing: a save of the record must not lose them.
#pragma once

#include "SectionTree.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

class CUnicodeFileParse_ReadOnly;
class IUnicodeFileParse;

class CKeptSections
{
public:
    // Takes everything below `node`.
    CKeptSections(const CUnicodeFileParse_ReadOnly& parser, CSectionTree::Node node);
    // `section` is the attribute's own.
    [[nodiscard]] bool Write(IUnicodeFileParse& writer, std::u16string_view section) const;

private:
    struct SSection
    {
        std::u16string m_sTail; // What stands behind the attribute's name, with its point.
        std::vector<std::pair<std::u16string, std::u16string>> m_Keys;
    };

    std::vector<SSection> m_Sections;
};
