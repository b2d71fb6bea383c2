// The tags that a help text may use, and the reader of one tag.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

enum class EHelpTag
{
    Inline,
    Block,
    List,
    Item,
    Table,
    Row,
    Cell,
    Void, // Has no closing tag.
};

enum EHelpAttribute : unsigned
{
    HELP_ATTRIBUTE_LINK = 0x1,
    HELP_ATTRIBUTE_COLOR = 0x2,
    HELP_ATTRIBUTE_ALIGN = 0x4,
    HELP_ATTRIBUTE_ICON = 0x8,
};

struct SHelpTag
{
    std::u16string_view m_sName; // In small letters.
    EHelpTag m_Kind;
    unsigned m_Attributes = 0;
    bool m_bNeedsAttribute = false; // Says nothing without one.
};

struct SHelpAttribute
{
    std::u16string_view m_sName;
    std::u16string_view m_sValue; // As written, without its quotes.
};

// A tag as it stands in a text. Views point into that.
struct SHelpTagText
{
    const SHelpTag* m_pTag = nullptr; // Null: this is no tag that a help text may use.
    bool m_bClosing = false;
    std::size_t m_nLength = 0; // From '<' to behind '>'.
    std::vector<SHelpAttribute> m_Attributes;
};

// Names are compared without regard to case. Null for an unknown one.
[[nodiscard]] const SHelpTag* FindHelpTag(std::u16string_view name);
// `text` begins with '<'.
[[nodiscard]] SHelpTagText ReadHelpTag(std::u16string_view text);
// "#rgb", "#rrggbb" or a name of letters.
[[nodiscard]] bool IsHelpColor(std::u16string_view value);
[[nodiscard]] bool IsHelpAlignment(std::u16string_view value);
