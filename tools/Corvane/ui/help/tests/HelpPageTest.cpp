#include "HelpPage.h"
#include "HelpMarkup.h"
#include "Unicode.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace
{
std::string Sanitize(std::u16string_view text)
{
    return ToNarrow(SanitizeHelp(text));
}

std::string Between(const std::u16string& page, std::u16string_view begin, std::u16string_view end)
{
    const std::size_t from = page.find(begin);
    const std::size_t to = page.find(end, from);
    return from == page.npos || to == page.npos ? std::string()
                                                : ToNarrow(page.substr(from, to + end.size() - from));
}
} // namespace

TEST(HelpMarkup, OnlyHarmlessTagsStayTags)
{
    const struct
    {
        std::u16string_view m_sText;
        const char* m_sMarkup;
    } rows[] = {
        {u"a < b & c > \"d\"", "a &lt; b &amp; c &gt; &quot;d&quot;"},
        {u"one\r\ntwo\nthree", "one<br>two<br>three"},
        {u"one\r\n<B>two</b>", "one\n<b>two</b>"},
        {u"<b>a<i>b</b>c", "<b>a<i>b</i></b>c"},
        {u"a</b></table>c", "ac"},
        {u"<script>x</script>", "&lt;script&gt;x&lt;/script&gt;"},
        {u"<b onclick=\"x()\" style='y'>a", "<b>a</b>"},
        {u"<b/onclick=x>", "&lt;b/onclick=x&gt;"},
        {u"<a href='https://h.org/?a=1&b'>x</a>", "<a href=\"https://h.org/?a=1&amp;b\">x</a>"},
        {u"<a href='javascript:x()'>x</a>", "x"},
        {u"<a href=file:///etc/passwd>x</a>", "x"},
        {u"<a HREF=\"http://a\" onmouseover=x", "&lt;a HREF=&quot;http://a&quot; onmouseover=x"},
        {u"<img src=\"file:///x.png\">", "&lt;img src=&quot;file:///x.png&quot;&gt;"},
        {u"<img src=\"<%ICONERROR%>\" onerror=x>", "<img src=\"<%ICONERROR%>\">"},
        {u"<%PUTICONERROR%><%COLORITEM%>", "<%PUTICONERROR%>&lt;%COLORITEM%&gt;"},
        {u"<font color=#12g456>x</font><font color=red>y</font>", "x<font color=\"red\">y</font>"},
        {u"<table>x<tr><td>1<td>2<tr><th align=right>3</table>4",
         "<table><tr><td>x</td></tr><tr><td>1</td><td>2</td></tr><tr><th "
         "align=\"right\">3</th></tr></table>4"},
        {u"<td>x</td><li>y", "&lt;td&gt;x&lt;li&gt;y"},
        {u"<ul><li>a<li>b<ul><li>c</ul></ul>", "<ul><li>a</li><li>b<ul><li>c</li></ul></li></ul>"},
        {u"<p>a<p>b<h1>c", "<p>a</p><p>b</p><h1>c</h1>"},
        {u"&lt;b&gt; &#60; &#x3C; &nope; &#xFDD0; &#xD800; &",
         "&lt;b&gt; &lt; &lt; &amp;nope; \xEF\xBF\xBD \xEF\xBF\xBD &amp;"},
        {u"<!-- c --><b", "&lt;!-- c --&gt;&lt;b"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Sanitize(row.m_sText), row.m_sMarkup) << ToNarrow(row.m_sText);
    EXPECT_EQ(ToNarrow(EscapeHelp(u"<b>\n<%ICONERROR%>\x01")),
              "&lt;b&gt;<br>&lt;%ICONERROR%&gt;\xEF\xBF\xBD");
}

// Whatever comes in: every tag that comes out is balanced, and what has passed once passes unchanged again.
TEST(HelpMarkup, StaysWellFormedWhateverComesIn)
{
    std::u16string all =
        u"<b>|</b>|<i|<table>|</table>|<tr>|<td>|</td>|<ul>|<li>|</ul>|<p>|<a href=\"http://a\">|"
        u"<a href=\"x\">|</a>|<br/>|<img src=|<%ICONERROR%>|<%|>|\"|'|=|&lt;|&#|&#x41;|x| |"
        u"<font color=red>|<h1 align=left>|\xD800|";
    std::vector<std::u16string> pieces;
    for (std::size_t end = all.find(u'|'); end != all.npos; end = all.find(u'|'))
    {
        pieces.push_back(all.substr(0, end));
        all.erase(0, end + 1);
    }
    std::mt19937 random(7);
    for (int round = 0; round < 3000; ++round)
    {
        std::u16string text;
        for (std::size_t i = random() % 60; i > 0; --i)
            text.append(pieces[random() % pieces.size()]);
        const std::u16string out = SanitizeHelp(text);
        int depth = 0;
        for (std::size_t at = out.find(u'<'); at != out.npos && depth >= 0; at = out.find(u'<', at + 1))
        {
            const std::u16string_view tag = std::u16string_view(out).substr(at, 4);
            if (tag != u"<br>" && tag != u"<img" && tag.substr(0, 2) != u"<%")
                depth += tag[1] == u'/' ? -1 : 1;
        }
        ASSERT_EQ(depth, 0) << ToNarrow(text) << "\n" << ToNarrow(out);
        ASSERT_EQ(ToNarrow(SanitizeHelp(out)), ToNarrow(out)) << ToNarrow(text);
    }
}

TEST(HelpMarkup, OnlyWebAddressesAreAddresses)
{
    for (const std::u16string_view good : {u"http://a", u"HTTPS://a.org/b?c=d#e"})
        EXPECT_TRUE(IsValidURL(good)) << ToNarrow(good);
    for (const std::u16string_view bad :
         {u"", u"http://", u"https:///etc", u"file:///a", u"javascript:a", u"http://a b", u"http://a\"b",
          u"http://a\n", u" http://a", u"see http://a", u"http://a\u202Eb", u"ftp://a"})
        EXPECT_FALSE(IsValidURL(bad)) << ToNarrow(bad);
    EXPECT_FALSE(IsValidURL(u"http://" + std::u16string(3000, u'a')));
}

TEST(HelpPage, EmptyTextsLeaveNoRow)
{
    const std::u16string bare = BuildHelpPage({u"Name", u"", u"", u"", u""});
    EXPECT_EQ(std::count(bare.begin(), bare.end(), u'\n') > 0 ? Between(bare, u"<table", u"</table>") : "",
              "<table width=\"100%\" cellspacing=\"0\" cellpadding=\"4\">\n"
              "<tr height=\"20\"><td colspan=\"2\" bgcolor=\"<%COLORHEADER%>\"><b>Name</b></td></tr>\n"
              "</table>");
    std::u16string full = BuildHelpPage({u"N", u"<b>help</b>", u"", u"<b>own</b>", u"of record"});
    EXPECT_EQ(full.find(u"BEGIN"), full.npos);
    EXPECT_EQ(Between(full, u">Help<", u"</tr>"), ">Help</td><td><b>help</b></td></tr>");
    EXPECT_EQ(Between(full, u">Comment<", u"</tr>"), ">Comment</td>\n<td>&lt;b&gt;own&lt;/b&gt;</td></tr>");
    EXPECT_EQ(Between(full, u">Record Comment<", u"</tr>"), ">Record Comment</td>\n<td>of record</td></tr>");
    ResolveColors(full, {0x0000AB, 0xFFEE00});
    EXPECT_EQ(full.find(u"<%"), full.npos);
    EXPECT_NE(full.find(u"bgcolor=\"#0000AB\""), full.npos);
    EXPECT_NE(full.find(u"bgcolor=\"#FFEE00\""), full.npos);
}

TEST(HelpPage, IconsHaveNames)
{
    std::u16string warning(u"<%PUTICONWARNING%>");
    std::u16string exclamation(u"<%PUTICONEXCLAMATION%>");
    ResolveIcons(warning);
    ResolveIcons(exclamation);
    EXPECT_EQ(warning, exclamation);
    EXPECT_EQ(ToNarrow(warning), "<IMG SRC=\"icon:exclamation\" ALIGN=\"left\">");
    EXPECT_STREQ(GetHelpIconName(u"icon:exclamation"), "warning");
    EXPECT_EQ(GetHelpIconName(u"icon:open"), nullptr);
    EXPECT_EQ(ToNarrow(WrapHelpParagraph(u"a")), "<P STYLE=\"padding:3\">a</P>");
    EXPECT_EQ(ToNarrow(WrapHelpParagraph(u"http://a")), "http://a");
}
