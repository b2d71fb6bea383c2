#include "UnicodeFileParse.h"

namespace
{
void ReplaceAll(std::u16string& text, std::u16string_view from, std::u16string_view to)
{
    std::size_t found = text.find(from);
    if (found == std::u16string::npos)
        return;
    std::u16string out;
    out.reserve(text.size() + to.size());
    std::size_t start = 0;
    for (; found != std::u16string::npos; found = text.find(from, start))
    {
        out.append(text, start, found - start).append(to);
        start = found + from.size();
    }
    text = out.append(text, start);
}
} // namespace

std::u16string EncodeMultiLine(std::u16string_view text)
{
    std::u16string out(text);
    ReplaceAll(out, u"\\", u"\\\\");
    ReplaceAll(out, u"\r\n", u"\\n");
    ReplaceAll(out, u"\n", u"\\n");
    ReplaceAll(out, u"\r", u"\\n");
    return out;
}

std::u16string DecodeMultiLine(std::u16string_view text)
{
    std::u16string out(text);
    if (text.find(u'\\') == std::u16string_view::npos)
        return out; // The usual text has nothing to decode.
    ReplaceAll(out, u"\\r\\n", u"\r\n");
    ReplaceAll(out, u"\\r", u"\r\n");
    ReplaceAll(out, u"\\n", u"\r\n");
    ReplaceAll(out, u"\\\\", u"\\");
    return out;
}
