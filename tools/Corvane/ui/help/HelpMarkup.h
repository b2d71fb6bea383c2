// Texts of the database as markup for a help page. A help text may use a few tags; everything else in it, and
// everything in a name, a comment or a value, is data that shows as it is written.
//
// Whatever comes in, the result is well-formed, names nothing outside the page but links that begin with http
// or https, and is of a size that can be laid out at once: a text is cut at kMaxHelpText units with a note
// that says so, and its tags count up to kMaxHelpTags; further ones show as they are written. Line ends are
// CR LF or LF.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

inline constexpr std::size_t kMaxHelpText = 8000;
inline constexpr int kMaxHelpTags = 500;

// Keeps well-placed <b> <i> <u> <p> <br> <hr> <ul> <ol> <li> <table> <tr> <td> <th> <h1> to <h4> <code>
// <pre>, <a href> and <font color>, the character references, the icon tokens, and an <img> whose source is
// one of them. A text without any tag keeps its line ends.
[[nodiscard]] std::u16string SanitizeHelp(std::u16string_view text);
// No tag and no token; line ends become breaks.
[[nodiscard]] std::u16string EscapeHelp(std::u16string_view text);
// A name on one line, of at most 200 units; letters that run from right to left stay inside of it.
[[nodiscard]] std::u16string EscapeHelpName(std::u16string_view name);

// True for a text that is one address beginning with http:// or https://. Only such a one is ever opened.
[[nodiscard]] bool IsValidURL(std::u16string_view text);
