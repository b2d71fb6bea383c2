#include "OverrideTextFile.h"

#include "OverrideCursor.h"
#include "OverrideForm.h"
#include "Utf8.h"

#include <algorithm>

namespace
{
constexpr std::size_t kColumns = 100;

constexpr const char* kHead[] = {
    "Settings of this game that the administrator of a server may change.",
    "",
    "Change what stands behind the '=' of a setting, save this file and start the server again. Lines that "
    "begin with '#', and everything behind a '#' outside quotes, are notes that the game does not read.",
    "",
    "- A setting whose line is left as it is, or deleted, keeps the game's own value, also when an update of "
    "the game changes that value.",
    "- Numbers have a decimal point, not a comma: 1.5. Several values stand on one line with commas between.",
    "- A text stands in double quotes. Inside them a quote is written \\\", a backslash \\\\, a line break "
    "\\n.",
    "- A line with a mistake is reported by the server with its number, and that setting keeps the game's "
    "own "
    "value. If a setting stands in two lines, the first counts."};

std::size_t CountColumns(std::string_view text)
{
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

// A paragraph of notes: words with one blank between, broken at the column limit, with `first` between the
// '#' and the first word and `others` on every further line.
void AppendParagraph(std::string& out, std::string_view text, std::string_view first, std::string_view others)
{
    std::string line = "#";
    std::string_view margin = first;
    bool isEmpty = true;
    while (!text.empty())
    {
        const std::size_t end = std::min(text.find(' '), text.size());
        const std::string_view word = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (word.empty())
            continue;
        if (!isEmpty && CountColumns(line) + 1 + CountColumns(word) > kColumns)
        {
            (out += line) += '\n';
            line = "#";
            margin = others;
            isEmpty = true;
        }
        (line += isEmpty ? margin : " ") += word;
        isEmpty = false;
    }
    (out += line) += '\n';
}

void AppendHead(std::string& out, std::string_view limitsFile)
{
    for (const std::string_view text : kHead)
        AppendParagraph(out, text, " ", text.starts_with('-') ? "   " : " ");
    std::string limits = "- The game needs ";
    AppendQuoted(limits, CleanUtf8(limitsFile));
    limits += ", which was made together with this file, as it is.";
    AppendParagraph(out, limits, " ", "   ");
}

// A text of many lines, of which each becomes a paragraph.
void AppendNotes(std::string& out, std::string_view text)
{
    while (!text.empty())
    {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        std::string line(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        std::replace_if(
            line.begin(), line.end(),
            [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, ' ');
        if (line.find_first_not_of(' ') != std::string::npos)
            AppendParagraph(out, line, " ", " ");
    }
}

std::string DescribeCount(const SOverrideAttribute& attribute)
{
    if (attribute.IsList())
        return ". As many values as you like, with commas between.";
    if (attribute.values.size() == 1)
        return ".";
    return ". " + std::to_string(attribute.values.size()) + " values, with commas between.";
}

void AppendForm(std::string& out, const IOverrideForm& form, const SOverrideAttribute& attribute)
{
    std::vector<std::string> lines = form.Describe();
    lines.front() += DescribeCount(attribute);
    AppendNotes(out, lines.front());
    for (std::size_t i = 1; i < lines.size(); ++i)
    {
        std::replace_if(
            lines[i].begin(), lines[i].end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; },
            ' ');
        AppendParagraph(out, lines[i], "   ", "     ");
    }
}

void AppendAttribute(std::string& out, const SOverrideAttribute& attribute)
{
    const std::unique_ptr<IOverrideForm> form = MakeOverrideForm(attribute);
    const std::string values = WriteOverrideValues(*form, attribute.values);
    out += '\n';
    AppendNotes(out, attribute.help);
    AppendForm(out, *form, attribute);
    (out += "# The game's own value: ") += values.empty() ? "no values" : values;
    out += '\n';
    AppendText(out, attribute.name);
    (out += values.empty() ? " =" : " = ") += values;
    out += '\n';
}

// The text behind a mark of UTF-16 as UTF-8.
std::string DecodeUtf16(std::span<const std::byte> bytes, bool isBigEndian)
{
    std::u16string units(bytes.size() / 2, u'\0');
    for (std::size_t i = 0; i < units.size(); ++i)
    {
        const auto first = std::to_integer<unsigned int>(bytes[2 * i]);
        const auto second = std::to_integer<unsigned int>(bytes[2 * i + 1]);
        units[i] = static_cast<char16_t>(isBigEndian ? first << 8 | second : second << 8 | first);
    }
    return ToUtf8(units);
}

// Name, '=' and values of a line.
[[nodiscard]] bool ParseLine(std::string_view text, SOverrideLine& line)
{
    if (!IsUtf8(text))
        return line.error.Set(EOverrideCause::BrokenLine,
                              "the line is not UTF-8 text; save the file as UTF-8 with your editor");
    COverrideCursor cursor(text);
    if (!cursor.IsAtQuote() && text.find('=') == std::string_view::npos)
        return line.error.Set(EOverrideCause::BrokenLine, "'=' is missing");
    if (!cursor.TakeText("=", line.name, line.error))
        return line.error.Set(EOverrideCause::BrokenLine, line.error.cause == EOverrideCause::BadValue
                                                              ? "there is no name ahead of '='"
                                                              : line.error.message);
    if (!cursor.Take('='))
        return line.error.Set(EOverrideCause::BrokenLine, "'=' is missing behind the name");
    line.values = cursor.GetAll();
    return true;
}
} // namespace

std::string WriteOverrideText(std::span<const SOverrideAttribute> attributes, std::string_view limitsFile)
{
    std::string out;
    AppendHead(out, limitsFile);
    for (const SOverrideAttribute& attribute : attributes)
        AppendAttribute(out, attribute);
    return out;
}

std::string COverrideLines::Open(std::span<const std::byte> bytes)
{
    const std::string_view raw(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    const bool isBigEndian = raw.starts_with("\xFE\xFF");
    if (isBigEndian || raw.starts_with("\xFF\xFE"))
    {
        if (raw.size() % 2 != 0)
            return "it ends in the middle of a character";
        m_sText = DecodeUtf16(bytes.subspan(2), isBigEndian);
    }
    else
        m_sText = raw.substr(raw.starts_with("\xEF\xBB\xBF") ? 3 : 0);
    if (m_sText.find('\0') != std::string::npos)
        return "it is not a text file";
    m_sRest = m_sText;
    m_nNumber = 0;
    return {};
}

bool COverrideLines::Next(SOverrideLine& line)
{
    while (!m_sRest.empty())
    {
        const std::size_t end = std::min(m_sRest.find_first_of("\r\n"), m_sRest.size());
        const std::string_view text = m_sRest.substr(0, end);
        m_sRest.remove_prefix(end);
        m_sRest.remove_prefix(m_sRest.starts_with("\r\n") ? 2 : std::min<std::size_t>(m_sRest.size(), 1));
        ++m_nNumber;
        if (COverrideCursor(text).IsAtEnd())
            continue;
        line = {};
        line.number = m_nNumber;
        static_cast<void>(ParseLine(text, line));
        return true;
    }
    return false;
}
