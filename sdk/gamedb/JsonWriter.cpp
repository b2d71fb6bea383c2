#include "JsonWriter.h"

#include <charconv>
#include <cmath>
#include <string>

namespace
{
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

// The length of the well-formed UTF-8 sequence at the head of `text`, or 0.
std::size_t SequenceLength(std::string_view text)
{
    const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byteAt(0);
    if (lead < 0x80)
        return 1;
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length)
        return 0;
    // The second byte's range keeps out overlong forms, surrogates and what lies above U+10FFFF.
    const unsigned char low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const unsigned char high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    if (byteAt(1) < low || byteAt(1) > high)
        return 0;
    for (std::size_t i = 2; i < length; ++i)
    {
        if ((byteAt(i) & 0xC0) != 0x80)
            return 0;
    }
    return length;
}

void AppendUtf8(std::string& text, char32_t c)
{
    const auto add = [&](char32_t byte) { text += static_cast<char>(byte); };
    if (c < 0x80)
        return add(c);
    if (c < 0x800)
        add(0xC0 | c >> 6);
    else if (c < 0x10000)
        add(0xE0 | c >> 12);
    else
        add(0xF0 | c >> 18);
    if (c >= 0x10000)
        add(0x80 | (c >> 12 & 0x3F));
    if (c >= 0x800)
        add(0x80 | (c >> 6 & 0x3F));
    add(0x80 | (c & 0x3F));
}

std::string ToUtf8(std::u16string_view text)
{
    std::string utf8;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        char32_t c = text[i];
        const bool isPair =
            c >= 0xD800 && c < 0xDC00 && i + 1 < text.size() && (text[i + 1] & 0xFC00) == 0xDC00;
        if (isPair)
            c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - char32_t{0xDC00});
        else if ((c & 0xF800) == 0xD800)
            c = 0xFFFD;
        AppendUtf8(utf8, c);
    }
    return utf8;
}

void WriteControl(std::ostream& out, unsigned char c)
{
    constexpr std::string_view kDigits = "0123456789abcdef";
    switch (c)
    {
    case '\n':
        out << "\\n";
        break;
    case '\r':
        out << "\\r";
        break;
    case '\t':
        out << "\\t";
        break;
    default:
        out << "\\u00" << kDigits[c >> 4] << kDigits[c & 0xF];
        break;
    }
}
} // namespace

void CJsonWriter::Begin(char bracket, ELayout layout)
{
    Separate();
    m_Out.put(bracket);
    // Inside a line everything is on that line.
    const bool isInline = !m_Levels.empty() && m_Levels.back().layout == ELayout::Inline;
    m_Levels.push_back({isInline ? ELayout::Inline : layout, true});
}

void CJsonWriter::End(char bracket)
{
    const SLevel level = m_Levels.back();
    m_Levels.pop_back();
    if (level.layout == ELayout::Lines && !level.isEmpty)
        NewLine();
    m_Out.put(bracket);
    if (m_Levels.empty())
        m_Out.put('\n');
}

void CJsonWriter::Separate()
{
    if (m_bAfterKey || m_Levels.empty())
    {
        m_bAfterKey = false;
        return;
    }
    SLevel& level = m_Levels.back();
    if (!level.isEmpty)
        m_Out.put(',');
    if (level.layout == ELayout::Lines)
        NewLine();
    else if (!level.isEmpty)
        m_Out.put(' ');
    level.isEmpty = false;
}

void CJsonWriter::NewLine()
{
    m_Out.put('\n');
    for (std::size_t i = 0; i < m_Levels.size(); ++i)
        m_Out.write("  ", 2);
}

void CJsonWriter::Quoted(std::string_view utf8)
{
    m_Out.put('"');
    while (!utf8.empty())
    {
        const auto c = static_cast<unsigned char>(utf8.front());
        const std::size_t length = SequenceLength(utf8);
        if (length == 0)
            m_Out << kReplacement;
        else if (c < 0x20)
            WriteControl(m_Out, c);
        else if (c == '"' || c == '\\')
            m_Out << '\\' << utf8.front();
        else
            m_Out.write(utf8.data(), static_cast<std::streamsize>(length));
        utf8.remove_prefix(length == 0 ? 1 : length);
    }
    m_Out.put('"');
}

void CJsonWriter::Key(std::string_view name)
{
    Text(name);
    m_Out.write(": ", 2);
    m_bAfterKey = true;
}

void CJsonWriter::Text(std::string_view utf8)
{
    Separate();
    Quoted(utf8);
}

void CJsonWriter::Text(std::u16string_view utf16)
{
    Text(ToUtf8(utf16));
}

void CJsonWriter::Integer(std::int64_t value)
{
    Separate();
    char digits[24];
    const char* end = std::to_chars(digits, digits + sizeof(digits), value).ptr;
    m_Out.write(digits, end - digits);
}

void CJsonWriter::Float(float value)
{
    if (std::isnan(value))
        return Text("nan");
    if (std::isinf(value))
        return Text(value < 0 ? "-inf" : "inf");
    Separate();
    char digits[32];
    const char* end = std::to_chars(digits, digits + sizeof(digits), value).ptr;
    m_Out.write(digits, end - digits);
}

void CJsonWriter::Boolean(bool value)
{
    Separate();
    m_Out << (value ? "true" : "false");
}

void CJsonWriter::Null()
{
    Separate();
    m_Out << "null";
}
