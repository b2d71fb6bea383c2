// Where a finding lies, in the words that every form of the findings shows.
#pragma once

#include <string>
#include <string_view>

class CCorvaneAttrib;

// All empty for a finding that belongs to no attribute. The views live as long as the attribute.
struct SFindingPlace
{
    std::u16string_view m_sTypeName;
    std::u16string m_sRecord;         // The display path of the record, also for a member of a struct.
    std::u16string_view m_sFile;      // The record's file.
    std::u16string_view m_sAttribute; // A member's bare name.
};

// `attrib` may be null.
[[nodiscard]] SFindingPlace DescribePlace(const CCorvaneAttrib* attrib);
