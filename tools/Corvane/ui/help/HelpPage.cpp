#include "HelpPage.h"

#include "FormatText.h"
#include "HelpMarkup.h"
#include "HelpTemplates.h"

#include <algorithm>
#include <array>

namespace
{
// Makes a box of 300 pixels with what the line that it stands on adds.
constexpr int kStrutHeight = 294;

struct SIconToken
{
    std::u16string_view m_sShorthand;
    std::u16string_view m_sToken;
    std::u16string_view m_sSource;
    const char* m_sIcon;
};
constexpr std::array<SIconToken, 5> kIcons{{
    {u"<%PUTICONERROR%>", u"<%ICONERROR%>", u"icon:error", "error"},
    {u"<%PUTICONEXCLAMATION%>", u"<%ICONEXCLAMATION%>", u"icon:exclamation", "warning"},
    {u"<%PUTICONWARNING%>", u"<%ICONWARNING%>", u"icon:exclamation", "warning"},
    {u"<%PUTICONQUESTION%>", u"<%ICONQUESTION%>", u"icon:question", "question"},
    {u"<%PUTICONINFORMATION%>", u"<%ICONINFORMATION%>", u"icon:information", "information"},
}};

void ReplaceAll(std::u16string& html, std::u16string_view token, std::u16string_view value)
{
    std::size_t at = html.find(token);
    if (at == html.npos)
        return;
    std::u16string out;
    std::size_t begin = 0;
    for (; at != html.npos; at = html.find(token, begin))
    {
        out.append(html, begin, at - begin).append(value);
        begin = at + token.size();
    }
    html = out.append(html, begin);
}

struct SRowTokens
{
    std::u16string_view m_sBegin;
    std::u16string_view m_sValue;
    std::u16string_view m_sEnd;
};
constexpr SRowTokens kHelpRow{u"<%BEGINATTRIBHELP%>", u"<%ATTRIBHELP%>", u"<%ENDATTRIBHELP%>"};
constexpr SRowTokens kCommentRow{u"<%BEGINATTRIBCOMMENT%>", u"<%ATTRIBCOMMENT%>", u"<%ENDATTRIBCOMMENT%>"};
constexpr SRowTokens kRecordRow{u"<%BEGINRECORDCOMMENT%>", u"<%RECORDCOMMENT%>", u"<%ENDRECORDCOMMENT%>"};

// The rows between the markers go when there is no value to show.
void FillRow(std::u16string& html, const SRowTokens& tokens, std::u16string_view value)
{
    if (value.empty())
    {
        const std::size_t begin = html.find(tokens.m_sBegin);
        const std::size_t end = begin == html.npos ? begin : html.find(tokens.m_sEnd, begin);
        if (end != html.npos)
            html.erase(begin, end + tokens.m_sEnd.size() - begin);
        return;
    }
    // The markers first: the value is data, and what looks like one in it is none.
    ReplaceAll(html, tokens.m_sBegin, {});
    ReplaceAll(html, tokens.m_sEnd, {});
    ReplaceAll(html, tokens.m_sValue, value);
}

std::u16string MakeLinkBox(std::u16string_view url)
{
    std::u16string box(kHelpLinkBox);
    ReplaceAll(box, u"<%HEIGHT%>", FormatText(u"%d", kStrutHeight));
    ReplaceAll(box, u"<%URL%>", EscapeHelp(url));
    return box;
}

std::u16string MakeMember(const SMemberHelp& member)
{
    std::u16string html(kHelpMemberTemplate);
    ReplaceAll(html, u"<%ATTRIBNAME%>", member.m_sName);
    FillRow(html, kCommentRow, FormatHelpComment(member.m_sComment));
    FillRow(html, kHelpRow, FormatHelpText(member.m_sHelp));
    return html;
}
} // namespace

std::u16string FormatHelpText(std::u16string_view text)
{
    return IsValidURL(text) ? MakeLinkBox(text) : SanitizeHelp(text);
}

std::u16string FormatHelpComment(std::u16string_view text)
{
    return IsValidURL(text) ? MakeLinkBox(text) : EscapeHelp(text);
}

std::u16string WrapHelpParagraph(std::u16string_view text)
{
    if (IsValidURL(text))
        return std::u16string(text);
    return std::u16string(u"<P STYLE=\"padding:3\">").append(text).append(u"</P>");
}

std::u16string BuildHelpPage(const SHelpPage& page)
{
    std::u16string html(kHelpPageTemplate);
    if (!page.m_sName.empty())
        ReplaceAll(html, u"<%ATTRIBNAME%>", page.m_sName);
    FillRow(html, kCommentRow, FormatHelpComment(page.m_sComment));
    FillRow(html, kRecordRow, FormatHelpComment(page.m_sRecordComment));
    FillRow(html, kHelpRow, FormatHelpText(page.m_sHelp) + page.m_sMembers);
    ResolveIcons(html);
    return html;
}

std::u16string BuildStructHelpPage(std::span<const SMemberHelp> members)
{
    std::u16string html;
    const std::size_t shown = std::min(members.size(), kMaxMembers);
    for (const SMemberHelp& member : members.first(shown))
        html.append(MakeMember(member));
    if (shown < members.size())
        html.append(FormatText(u"<i>\u2026 and %u more members.</i>", members.size() - shown));
    return html;
}

std::u16string BuildHelpStringPage(std::u16string_view help)
{
    if (help.empty())
        return {};
    const std::u16string text = FormatHelpText(help);
    std::u16string html(kHelpStringTemplate);
    ReplaceAll(html, u"<%HELPSTRING%>", IsValidURL(help) ? text : WrapHelpParagraph(text));
    ResolveIcons(html);
    return html;
}

void ResolveColors(std::u16string& html, const SHelpColors& colors)
{
    ReplaceAll(html, u"<%COLORHEADER%>", FormatText(u"#%.6X", colors.m_nHeader));
    ReplaceAll(html, u"<%COLORITEM%>", FormatText(u"#%.6X", colors.m_nItem));
}

void ResolveIcons(std::u16string& html)
{
    for (const SIconToken& icon : kIcons)
        ReplaceAll(html, icon.m_sShorthand,
                   std::u16string(u"<IMG SRC=\"").append(icon.m_sToken).append(u"\" ALIGN=\"left\">"));
    for (const SIconToken& icon : kIcons)
        ReplaceAll(html, icon.m_sToken, icon.m_sSource);
}

const char* GetHelpIconName(std::u16string_view source)
{
    const auto* found = std::find_if(kIcons.begin(), kIcons.end(),
                                     [source](const SIconToken& icon) { return icon.m_sSource == source; });
    return found == kIcons.end() ? nullptr : found->m_sIcon;
}
