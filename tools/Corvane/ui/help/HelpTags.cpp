#include "HelpTags.h"

#include "NameCompare.h"

#include <algorithm>

namespace
{
constexpr std::size_t kMaxAttributes = 8;

constexpr SHelpTag kTags[] = {
    {u"b", EHelpTag::Inline},
    {u"i", EHelpTag::Inline},
    {u"u", EHelpTag::Inline},
    {u"code", EHelpTag::Inline},
    {u"a", EHelpTag::Inline, HELP_ATTRIBUTE_LINK, true},
    {u"font", EHelpTag::Inline, HELP_ATTRIBUTE_COLOR, true},
    {u"p", EHelpTag::Block, HELP_ATTRIBUTE_ALIGN},
    {u"h1", EHelpTag::Block, HELP_ATTRIBUTE_ALIGN},
    {u"h2", EHelpTag::Block, HELP_ATTRIBUTE_ALIGN},
    {u"h3", EHelpTag::Block, HELP_ATTRIBUTE_ALIGN},
    {u"h4", EHelpTag::Block, HELP_ATTRIBUTE_ALIGN},
    {u"pre", EHelpTag::Block},
    {u"ul", EHelpTag::List},
    {u"ol", EHelpTag::List},
    {u"li", EHelpTag::Item},
    {u"table", EHelpTag::Table},
    {u"tr", EHelpTag::Row},
    {u"td", EHelpTag::Cell, HELP_ATTRIBUTE_ALIGN},
    {u"th", EHelpTag::Cell, HELP_ATTRIBUTE_ALIGN},
    {u"br", EHelpTag::Void},
    {u"hr", EHelpTag::Void},
    {u"img", EHelpTag::Void, HELP_ATTRIBUTE_ICON},
};

constexpr bool IsLetter(char16_t unit)
{
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}
constexpr bool IsDigit(char16_t unit)
{
    return unit >= u'0' && unit <= u'9';
}
constexpr bool IsHexDigit(char16_t unit)
{
    return IsDigit(unit) || (unit >= u'a' && unit <= u'f') || (unit >= u'A' && unit <= u'F');
}
constexpr bool IsBlank(char16_t unit)
{
    return unit == u' ' || unit == u'\t' || unit == u'\n' || unit == u'\r';
}

class CTagReader
{
public:
    explicit CTagReader(std::u16string_view text) : m_sText(text) {}

    SHelpTagText Read()
    {
        SHelpTagText tag;
        m_nAt = 1;
        tag.m_bClosing = Take(u'/');
        const SHelpTag* known = FindHelpTag(TakeName());
        if (known == nullptr || (tag.m_bClosing && known->m_Kind == EHelpTag::Void))
            return {};
        while (!IsAtEnd() && m_sText[m_nAt] != u'>')
            if (!TakeSlash() && !TakeAttribute(tag))
                return {};
        if (!Take(u'>'))
            return {};
        tag.m_pTag = known;
        tag.m_nLength = m_nAt;
        return tag;
    }

private:
    [[nodiscard]] bool IsAtEnd() const { return m_nAt >= m_sText.size(); }

    bool Take(char16_t unit)
    {
        if (IsAtEnd() || m_sText[m_nAt] != unit)
            return false;
        ++m_nAt;
        return true;
    }

    void SkipBlanks()
    {
        while (!IsAtEnd() && IsBlank(m_sText[m_nAt]))
            ++m_nAt;
    }

    std::u16string_view TakeName()
    {
        const std::size_t begin = m_nAt;
        while (!IsAtEnd() && (IsLetter(m_sText[m_nAt]) || IsDigit(m_sText[m_nAt]) || m_sText[m_nAt] == u'-'))
            ++m_nAt;
        return m_sText.substr(begin, m_nAt - begin);
    }

    // "/>", and blanks ahead of what follows.
    bool TakeSlash()
    {
        const std::size_t begin = m_nAt;
        SkipBlanks();
        if (!IsAtEnd() && m_sText[m_nAt] == u'>')
            return true;
        if (Take(u'/') && !IsAtEnd() && m_sText[m_nAt] == u'>')
            return true;
        m_nAt = begin;
        return false;
    }

    bool TakeAttribute(SHelpTagText& tag)
    {
        SkipBlanks();
        SHelpAttribute attribute{TakeName(), {}};
        if (attribute.m_sName.empty() || tag.m_Attributes.size() == kMaxAttributes)
            return false;
        SkipBlanks();
        if (Take(u'=') && !TakeValue(attribute.m_sValue))
            return false;
        tag.m_Attributes.push_back(attribute);
        return true;
    }

    bool TakeValue(std::u16string_view& value)
    {
        SkipBlanks();
        const char16_t quote =
            !IsAtEnd() && (m_sText[m_nAt] == u'"' || m_sText[m_nAt] == u'\'') ? m_sText[m_nAt] : u'\0';
        const std::size_t begin = quote != 0 ? m_nAt + 1 : m_nAt;
        const std::size_t end =
            quote != 0 ? m_sText.find(quote, begin) : m_sText.find_first_of(u" \t\r\n>\"'<", begin);
        if (end == m_sText.npos)
            return false;
        value = m_sText.substr(begin, end - begin);
        m_nAt = quote != 0 ? end + 1 : end;
        return true;
    }

    std::u16string_view m_sText;
    std::size_t m_nAt = 0;
};
} // namespace

const SHelpTag* FindHelpTag(std::u16string_view name)
{
    const auto* found = std::find_if(std::begin(kTags), std::end(kTags),
                                     [name](const SHelpTag& tag) { return EqualNames(tag.m_sName, name); });
    return found == std::end(kTags) ? nullptr : found;
}

SHelpTagText ReadHelpTag(std::u16string_view text)
{
    return CTagReader(text).Read();
}

bool IsHelpColor(std::u16string_view value)
{
    if (value.empty() || value.size() > 24)
        return false;
    if (value[0] != u'#')
        return std::all_of(value.begin(), value.end(), IsLetter);
    return (value.size() == 4 || value.size() == 7) &&
           std::all_of(value.begin() + 1, value.end(), IsHexDigit);
}

bool IsHelpAlignment(std::u16string_view value)
{
    return EqualNames(value, u"left") || EqualNames(value, u"center") || EqualNames(value, u"right");
}
