#include "JsonWriter.h"

#include "Utf8.h"

#include <charconv>
#include <cmath>
#include <string>

namespace
{
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

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
        const std::size_t length = Utf8Length(utf8);
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
