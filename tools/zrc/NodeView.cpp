#include "NodeView.h"

#include "Unicode.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace
{
constexpr std::size_t kPieceSize = 64 * 1024;
constexpr std::string_view kBlanks = " \t\r\n";

bool IsControl(unsigned char byte)
{
    return byte < 0x20 || byte == 0x7F;
}

std::string EscapeControl(unsigned char byte)
{
    switch (byte)
    {
    case '\n':
        return "\\n";
    case '\r':
        return "\\r";
    case '\t':
        return "\\t";
    default:
        break;
    }
    std::array<char, 8> text;
    std::snprintf(text.data(), text.size(), "\\x%02x", static_cast<unsigned>(byte));
    return text.data();
}

// The number of bytes of a quoted atom at the head of `rest`. A quote inside of it, which nothing escapes, is
// told from its end by what follows: a writer puts a blank there.
std::size_t MeasureQuoted(std::string_view rest)
{
    for (std::size_t i = rest.find('"', 1); i != std::string_view::npos; i = rest.find('"', i + 1))
    {
        if (i + 1 == rest.size() || rest.find_first_of(" \t\r\n()", i + 1) == i + 1)
            return i + 1;
    }
    return rest.size();
}
} // namespace

std::string EscapeControls(std::string_view text)
{
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        const auto byte = static_cast<unsigned char>(text[i]);
        const auto next = static_cast<unsigned char>(i + 1 < text.size() ? text[i + 1] : 0);
        // U+0080 to U+009F are control characters of two bytes.
        if (byte == 0xC2 && next >= 0x80 && next < 0xA0)
        {
            out += EscapeControl(next);
            ++i;
        }
        else if (IsControl(byte))
            out += EscapeControl(byte);
        else
            out += text[i];
    }
    return out;
}

bool CNodeView::Show(std::string_view text)
{
    const std::string sound = ToNarrow(ToWide(text));
    std::string_view rest = sound;
    while (m_bOpen && !rest.empty())
    {
        std::size_t used = 1;
        if (rest.front() == '(')
            BeginList();
        else if (rest.front() == ')')
            EndList();
        else if (kBlanks.find(rest.front()) == std::string_view::npos)
            used = ShowAtom(rest);
        rest.remove_prefix(used);
    }
    if (m_bLineUsed)
        Put("\n");
    return m_bOpen && m_Sink(m_sPending);
}

void CNodeView::BeginList()
{
    BeginLine();
    Put("(");
    if (!m_HasLists.empty())
        m_HasLists.back() = true;
    m_HasLists.push_back(false);
    m_bBlankDue = false;
    m_bListEnded = false;
}

void CNodeView::EndList()
{
    const bool lone = m_HasLists.empty();
    const bool hadLists = !lone && m_HasLists.back();
    if (!lone)
        m_HasLists.pop_back();
    if (lone || hadLists)
        BeginLine();
    Put(")");
    m_bListEnded = true;
}

std::size_t CNodeView::ShowAtom(std::string_view rest)
{
    const bool quoted = rest.front() == '"';
    const std::size_t size =
        quoted ? MeasureQuoted(rest) : std::min(rest.find_first_of(" \t\r\n()\""), rest.size());
    if (m_bListEnded)
        BeginLine();
    else if (m_bBlankDue)
        Put(" ");
    m_bListEnded = false;
    m_bBlankDue = true;
    m_bLineUsed = true;
    Put(EscapeControls(rest.substr(0, size)));
    return size;
}

void CNodeView::BeginLine()
{
    if (m_bLineUsed)
        Put("\n");
    Put(std::string(2 * std::min(m_HasLists.size(), kDeepest), ' '));
    m_bLineUsed = true;
}

void CNodeView::Put(std::string_view text)
{
    m_sPending += text;
    if (m_sPending.size() < kPieceSize || !m_bOpen)
        return;
    m_bOpen = m_Sink(m_sPending);
    m_sPending.clear();
}
