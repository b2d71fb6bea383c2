#include "OverrideCursor.h"

#include "OverrideError.h"
#include "Utf8.h"

#include <algorithm>
#include <charconv>

namespace
{
constexpr std::size_t kMessageBytes = 60;

struct SEscape
{
    char character;
    char letter;
};
constexpr SEscape kEscapes[] = {{'"', '"'}, {'\\', '\\'}, {'\n', 'n'}, {'\r', 'r'}, {'\t', 't'}};

bool IsControl(char c)
{
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

bool IsPlain(std::string_view text)
{
    if (text.empty() || text.front() == ' ' || text.back() == ' ')
        return false;
    return std::none_of(text.begin(), text.end(),
                        [](char c) {
                            return IsControl(c) ||
                                   std::string_view("\"\\,#=|()").find(c) != std::string_view::npos;
                        });
}
} // namespace

void COverrideCursor::SkipBlanks()
{
    m_sRest.remove_prefix(std::min(m_sRest.find_first_not_of(" \t"), m_sRest.size()));
}

bool COverrideCursor::IsAtEnd()
{
    SkipBlanks();
    return m_sRest.empty() || m_sRest.front() == '#';
}

bool COverrideCursor::IsAtQuote()
{
    SkipBlanks();
    return m_sRest.starts_with('"');
}

bool COverrideCursor::Take(char c)
{
    SkipBlanks();
    if (!m_sRest.starts_with(c))
        return false;
    m_sRest.remove_prefix(1);
    return true;
}

std::string_view COverrideCursor::TakeBare(std::string_view stops)
{
    SkipBlanks();
    const std::size_t end = std::min(m_sRest.find_first_of(stops), m_sRest.find('#'));
    std::string_view bare = m_sRest.substr(0, end);
    m_sRest.remove_prefix(bare.size());
    bare.remove_suffix(bare.size() - (bare.find_last_not_of(" \t") + 1));
    return bare;
}

bool COverrideCursor::TakeText(std::string_view stops, std::string& text, SOverrideError& error)
{
    if (IsAtQuote())
        return TakeQuoted(text, error);
    text = TakeBare(stops);
    if (text.empty())
        return error.Set(EOverrideCause::BadValue, "a value is missing (an empty text is written \"\")");
    return true;
}

bool COverrideCursor::TakeQuoted(std::string& text, SOverrideError& error)
{
    m_sRest.remove_prefix(1);
    text.clear();
    while (!m_sRest.empty())
    {
        const std::string_view run = m_sRest.substr(0, m_sRest.find_first_of("\"\\"));
        text += run;
        m_sRest.remove_prefix(run.size());
        if (Take('"'))
            return true;
        if (!m_sRest.empty() && !TakeEscape(text, error))
            return false;
    }
    return error.Set(EOverrideCause::BrokenLine, "a quote is not closed");
}

bool COverrideCursor::TakeEscape(std::string& text, SOverrideError& error)
{
    const std::string_view escape = m_sRest.substr(0, 2);
    m_sRest.remove_prefix(escape.size());
    if (escape == "\\u")
        return TakeCodeUnit(text, error);
    for (const auto& [character, letter] : kEscapes)
    {
        if (escape.size() == 2 && escape[1] == letter)
        {
            text += character;
            return true;
        }
    }
    return error.Set(EOverrideCause::BrokenLine,
                     "a backslash inside quotes is written \\\\, a quote \\\", a line break \\n");
}

bool COverrideCursor::TakeCodeUnit(std::string& text, SOverrideError& error)
{
    const std::string_view digits = m_sRest.substr(0, 4);
    unsigned int unit = 0;
    const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), unit, 16);
    const bool isWhole = failure == std::errc() && end == digits.data() + 4;
    // A game's texts end at the first 0, and a surrogate is no character.
    if (!isWhole || unit == 0 || (unit & 0xF800) == 0xD800)
        return error.Set(EOverrideCause::BrokenLine,
                         "\\u wants four hexadecimal digits of a character other than 0");
    m_sRest.remove_prefix(4);
    AppendUtf8(text, unit);
    return true;
}

std::string COverrideCursor::GetRest() const
{
    return QuoteForMessage(m_sRest);
}

void AppendQuoted(std::string& out, std::string_view text)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    out += '"';
    for (const char c : text)
    {
        const auto* const escape = std::find_if(std::begin(kEscapes), std::end(kEscapes),
                                                [c](const SEscape& e) { return e.character == c; });
        if (escape != std::end(kEscapes))
            (out += '\\') += escape->letter;
        else if (IsControl(c))
            ((out += "\\u00") += kDigits[static_cast<unsigned char>(c) >> 4]) += kDigits[c & 0xF];
        else
            out += c;
    }
    out += '"';
}

void AppendText(std::string& out, std::string_view text)
{
    if (IsPlain(text))
        out += text;
    else
        AppendQuoted(out, text);
}

std::string QuoteForMessage(std::string_view text)
{
    const bool isCut = text.size() > kMessageBytes;
    std::string quoted = CleanUtf8(text.substr(0, kMessageBytes));
    std::replace_if(quoted.begin(), quoted.end(), IsControl, ' ');
    return "'" + quoted + (isCut ? "...'" : "'");
}
