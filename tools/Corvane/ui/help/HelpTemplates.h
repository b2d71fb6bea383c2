// The templates of help pages: markup with tokens; HelpPage.h fills them. The rows between a BEGIN and an END
// token are one optional group.
#pragma once

#include <string_view>

// The page of an attribute or a record.
inline constexpr std::u16string_view kHelpPageTemplate =
    uR"(<html><head><meta http-equiv="Content-Type" content="text/html; charset=utf-16">
<style>body { margin: 0; font: 10pt sans-serif } a { text-decoration: none } a:hover { text-decoration: underline }
</style></head><body>
<table width="100%" cellspacing="0" cellpadding="4">
<tr height="20"><td colspan="2" bgcolor="<%COLORHEADER%>"><b><%ATTRIBNAME%></b></td></tr>
<%BEGINATTRIBHELP%><tr><td width="140" bgcolor="<%COLORITEM%>">Help</td><td><%ATTRIBHELP%></td></tr>
<%ENDATTRIBHELP%><%BEGINATTRIBCOMMENT%><tr><td width="140" bgcolor="<%COLORITEM%>">Comment</td>
<td><%ATTRIBCOMMENT%></td></tr>
<%ENDATTRIBCOMMENT%><%BEGINRECORDCOMMENT%><tr><td width="140" bgcolor="<%COLORITEM%>">Record Comment</td>
<td><%RECORDCOMMENT%></td></tr>
<%ENDRECORDCOMMENT%></table></body></html>)";

// One member of a struct, inside a page.
inline constexpr std::u16string_view kHelpMemberTemplate =
    uR"(<table width="100%" cellspacing="0" cellpadding="4" style="margin-top: 8px">
<tr height="20"><td colspan="2" bgcolor="<%COLORHEADER%>"><b><%ATTRIBNAME%></b></td></tr>
<%BEGINATTRIBHELP%><tr><td width="96" bgcolor="<%COLORITEM%>">Help</td><td><%ATTRIBHELP%></td></tr>
<%ENDATTRIBHELP%><%BEGINATTRIBCOMMENT%><tr><td width="96" bgcolor="<%COLORITEM%>">Comment</td>
<td><%ATTRIBCOMMENT%></td></tr>
<%ENDATTRIBCOMMENT%></table>
)";

// A help text alone, inside a dialog.
inline constexpr std::u16string_view kHelpStringTemplate =
    uR"(<html><head><meta http-equiv="Content-Type" content="text/html; charset=utf-16">
<style>body { margin: 0; font: 8pt sans-serif } a { text-decoration: none } a:hover { text-decoration: underline }
</style></head><body><%HELPSTRING%></body></html>)";

// Stands for the page behind an address. An image that shows nothing keeps the box at its height, which a
// table cannot be given by itself.
inline constexpr std::u16string_view kHelpLinkBox =
    uR"(<table width="100%" border="1" cellspacing="0" cellpadding="0"
 style="border-collapse: collapse; border-style: solid; border-color: <%COLORHEADER%>"><tr><td align="center"><img
 src="icon:strut" width="1" height="<%HEIGHT%>" style="vertical-align: middle"><a href="<%URL%>"><%URL%></a></td>
</tr></table>)";
inline constexpr std::u16string_view kHelpStrut = u"icon:strut";
