// The pages of the help pane as texts, without widgets and without the model; see HelpContent.h for the pages
// of records and attributes. The markup is what a text browser understands.
//
// A page names its colours by tokens until ResolveColors puts in those of the theme that it is shown in.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

struct SHelpPage
{
    std::u16string m_sName;         // Markup; see EscapeHelpName.
    std::u16string_view m_sHelp;    // A help text of the database.
    std::u16string m_sMembers;      // What BuildStructHelpPage gives; stands behind the help.
    std::u16string_view m_sComment; // Of the attribute.
    std::u16string_view m_sRecordComment;
};

// A member of a struct.
struct SMemberHelp
{
    std::u16string m_sName; // Markup.
    std::u16string_view m_sHelp;
    std::u16string_view m_sComment;
};

// As 0xRRGGBB.
struct SHelpColors
{
    std::uint32_t m_nHeader = 0;
    std::uint32_t m_nItem = 0;
};

// The page of an attribute or a record. What is empty has no row.
[[nodiscard]] std::u16string BuildHelpPage(const SHelpPage& page);
// One block a member, for the help row of a page. Only the first kMaxMembers are shown, with a note.
[[nodiscard]] std::u16string BuildStructHelpPage(std::span<const SMemberHelp> members);
inline constexpr std::size_t kMaxMembers = 64;
// A help text alone, for a dialog. Empty for an empty text.
[[nodiscard]] std::u16string BuildHelpStringPage(std::u16string_view help);

// A text that is an address becomes a box with a link, which opens on a click only; any other is made safe by
// SanitizeHelp.
[[nodiscard]] std::u16string FormatHelpText(std::u16string_view text);
// The same for a text that may not use tags.
[[nodiscard]] std::u16string FormatHelpComment(std::u16string_view text);
// Encloses markup in a padded paragraph; an address stays as it is.
[[nodiscard]] std::u16string WrapHelpParagraph(std::u16string_view text);

// Replace tokens of the page, all occurrences in place.
void ResolveColors(std::u16string& html, const SHelpColors& colors);
// Icons become the names that GetHelpIconName knows.
void ResolveIcons(std::u16string& html);
// The icon of the set behind a name that ResolveIcons wrote; null for any other text.
[[nodiscard]] const char* GetHelpIconName(std::u16string_view source);
