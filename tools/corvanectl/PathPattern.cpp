#include "PathPattern.h"

#include "NameCompare.h"

namespace
{
// Whole characters, so that "?" takes a pair of units at once; case folded like every comparison of names.
std::u32string Fold(std::u16string_view text)
{
    std::u32string folded;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        const char16_t unit = text[i];
        const bool pair =
            (unit & 0xFC00) == 0xD800 && i + 1 < text.size() && (text[i + 1] & 0xFC00) == 0xDC00;
        if (pair)
            folded += 0x10000U + ((unit & 0x3FFU) << 10) + (text[++i] & 0x3FFU);
        else
            folded += FoldUnit(unit);
    }
    return folded;
}
} // namespace

CPathPattern::CPathPattern(std::u16string_view pattern) : m_bNameOnly(pattern.find(u'/') == pattern.npos)
{
    const std::u32string folded = Fold(pattern);
    for (std::size_t i = 0; i < folded.size(); ++i)
    {
        if (folded[i] == U'*')
            AddStars(folded, i);
        else
            m_Tokens.push_back({folded[i] == U'?' ? EToken::AnyInName : EToken::Unit, folded[i]});
    }
    if (folded.ends_with(U'/'))
        m_Tokens.push_back({EToken::LongRun});
}

void CPathPattern::AddStars(std::u32string_view pattern, std::size_t& at)
{
    const bool first = at == 0 || pattern[at - 1] == U'/';
    const std::size_t begin = at;
    while (at + 1 < pattern.size() && pattern[at + 1] == U'*')
        ++at;
    if (at == begin)
        m_Tokens.push_back({EToken::Run});
    else if (first && at + 2 < pattern.size() && pattern[at + 1] == U'/')
    {
        m_Tokens.push_back({EToken::Directories});
        m_Tokens.push_back({EToken::InDirectory});
        ++at;
    }
    else
        m_Tokens.push_back({EToken::LongRun});
}

bool CPathPattern::Matches(std::u16string_view displayPath) const
{
    if (m_bNameOnly)
        displayPath = displayPath.substr(displayPath.rfind(u'/') + 1);
    States states(m_Tokens.size() + 1);
    Enter(states, 0);
    for (const char32_t unit : Fold(displayPath))
        states = Step(states, unit);
    return states.back();
}

void CPathPattern::Enter(States& states, std::size_t place) const
{
    states[place] = true;
    if (place == m_Tokens.size())
        return;
    const EToken kind = m_Tokens[place].m_Kind;
    if (kind == EToken::Run || kind == EToken::LongRun)
        Enter(states, place + 1);
    else if (kind == EToken::Directories)
        Enter(states, place + 2);
}

CPathPattern::States CPathPattern::Step(const States& from, char32_t unit) const
{
    States next(from.size());
    const bool inName = unit != U'/';
    for (std::size_t i = 0; i < m_Tokens.size(); ++i)
    {
        if (!from[i])
            continue;
        switch (m_Tokens[i].m_Kind)
        {
        case EToken::Unit:
        case EToken::AnyInName:
            if (m_Tokens[i].m_Kind == EToken::Unit ? m_Tokens[i].m_nUnit == unit : inName)
                Enter(next, i + 1);
            break;
        case EToken::Run:
            if (inName)
                Enter(next, i);
            break;
        case EToken::LongRun:
            Enter(next, i);
            break;
        case EToken::Directories:
            next[i + 1] = true;
            break;
        case EToken::InDirectory:
            Enter(next, inName ? i : i - 1);
            break;
        }
    }
    return next;
}
