// What a reader of one attribute is told of its builds: whether a newer entry has taken over, and the range
// in which this one is in force. Text only; whoever shows it does so in dark red (RGB 128, 0, 0).
#pragma once

#include <string>
#include <string_view>

class CCorvaneAttrib;

enum class EDeferState
{
    None = 0,
    Deprecated = 1,  // A newer entry of the same name stands ahead of this one.
    ToBeDeleted = 2, // The newer entry says that the attribute is deleted from its build on.
};

// The entry before in the record's list when it has the same name; null for the newest one, for an attribute
// in no list and for a member of a struct value.
[[nodiscard]] const CCorvaneAttrib* FindNewerEntry(const CCorvaneAttrib& attrib);

// A member of a struct value is answered for by the attribute around it.
[[nodiscard]] EDeferState GetDeferState(const CCorvaneAttrib& attrib);
// Outside expert mode: "Deprecated", "To Be Deleted", or nothing.
[[nodiscard]] std::u16string_view GetDeferStateText(EDeferState state);

// In expert mode: "  0 -   9" or " 10 +", and the label beside it, which may be empty. Both are empty for an
// attribute that is in no list.
struct SBuildRangeText
{
    std::u16string m_sRange;
    std::u16string_view m_sLabel;
};
[[nodiscard]] SBuildRangeText GetBuildRangeText(const CCorvaneAttrib& attrib);
