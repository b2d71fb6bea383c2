#include "HelpMarkup.h"

#include "FormatText.h"
#include "HelpTags.h"
#include "NameCompare.h"

#include <algorithm>
#include <vector>

namespace
{
constexpr std::size_t kMaxName = 200;
constexpr std::size_t kMaxAddress = 2048;
// Deeper markup would cost the layout more than it says.
constexpr std::size_t kMaxDepth = 24;
constexpr int kMaxTables = 3;
constexpr int kMaxCells = 20;
constexpr int kMaxImages = 20;
constexpr int kMaxAccents = 8;

constexpr std::u16string_view kIcons[] = {
    u"<%PUTICONERROR%>",       u"<%PUTICONEXCLAMATION%>", u"<%PUTICONWARNING%>",  u"<%PUTICONQUESTION%>",
    u"<%PUTICONINFORMATION%>", u"<%ICONERROR%>",          u"<%ICONEXCLAMATION%>", u"<%ICONWARNING%>",
    u"<%ICONQUESTION%>",       u"<%ICONINFORMATION%>",
};

struct SReference
{
    std::u16string_view m_sName;
    char16_t m_nUnit;
};
constexpr SReference kReferences[] = {
    {u"amp", u'&'},        {u"lt", u'<'},          {u"gt", u'>'},          {u"quot", u'"'},
    {u"apos", u'\''},      {u"nbsp", u'\u00A0'},   {u"copy", u'\u00A9'},   {u"reg", u'\u00AE'},
    {u"deg", u'\u00B0'},   {u"plusmn", u'\u00B1'}, {u"micro", u'\u00B5'},  {u"middot", u'\u00B7'},
    {u"times", u'\u00D7'}, {u"divide", u'\u00F7'}, {u"ndash", u'\u2013'},  {u"mdash", u'\u2014'},
    {u"bull", u'\u2022'},  {u"hellip", u'\u2026'}, {u"euro", u'\u20AC'},   {u"trade", u'\u2122'},
    {u"larr", u'\u2190'},  {u"rarr", u'\u2192'},   {u"le", u'\u2264'},     {u"ge", u'\u2265'},
    {u"laquo", u'\u00AB'}, {u"raquo", u'\u00BB'},  {u"frac12", u'\u00BD'}, {u"infin", u'\u221E'},
};

constexpr bool IsHighSurrogate(char32_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}
constexpr bool IsLowSurrogate(char32_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}
constexpr bool IsBlank(char16_t unit)
{
    return unit == u' ' || unit == u'\t' || unit == u'\n' || unit == u'\r';
}

// The toolkit's documents mark frames and objects with units that no text should hold.
constexpr bool IsUsable(char32_t point)
{
    return point >= 0x20 && (point < 0x7F || point > 0x9F) && (point < 0xD800 || point > 0xDFFF) &&
           (point < 0xFDD0 || point > 0xFDEF) && point != 0xFFFC && (point & 0xFFFE) != 0xFFFE &&
           point <= 0x10FFFF && point != 0x2028 && point != 0x2029;
}

void AppendPoint(std::u16string& out, char32_t point)
{
    switch (point)
    {
    case U'<':
        out.append(u"&lt;");
        return;
    case U'>':
        out.append(u"&gt;");
        return;
    case U'&':
        out.append(u"&amp;");
        return;
    case U'"':
        out.append(u"&quot;");
        return;
    case U'\t':
        out.push_back(u' ');
        return;
    default:
        break;
    }
    if (!IsUsable(point))
        point = 0xFFFD;
    if (point < 0x10000)
    {
        out.push_back(static_cast<char16_t>(point));
        return;
    }
    out.push_back(static_cast<char16_t>(0xD7C0 + (point >> 10)));
    out.push_back(static_cast<char16_t>(0xDC00 + (point & 0x3FF)));
}

// Reads one code point and moves on; a lone surrogate is returned as it is.
char32_t TakePoint(std::u16string_view text, std::size_t& at)
{
    const char32_t first = text[at++];
    if (!IsHighSurrogate(first) || at == text.size() || !IsLowSurrogate(text[at]))
        return first;
    return ((first - 0xD7C0) << 10) + (text[at++] - 0xDC00u);
}

// Steps over a line end, whichever form it has. False when there is none.
bool TakeLineEnd(std::u16string_view text, std::size_t& at)
{
    if (text[at] != u'\n' && text[at] != u'\r')
        return false;
    at += text.substr(at, 2) == u"\r\n" ? 2 : 1;
    return true;
}

// Cuts in front of a whole character; `out` tells later how much is missing.
std::u16string_view Cut(std::u16string_view text, std::size_t limit)
{
    if (text.size() <= limit)
        return text;
    return text.substr(0, IsLowSurrogate(text[limit]) ? limit - 1 : limit);
}

// The accents that lie on one letter cost the layout more than their count; nobody reads a heap of them.
std::u16string LimitAccents(std::u16string_view text)
{
    const auto isAccent = [](char16_t unit)
    {
        return (unit >= 0x300 && unit <= 0x36F) || (unit >= 0x1AB0 && unit <= 0x1AFF) ||
               (unit >= 0x1DC0 && unit <= 0x1DFF) || (unit >= 0x20D0 && unit <= 0x20FF) ||
               (unit >= 0xFE20 && unit <= 0xFE2F);
    };
    std::u16string out;
    out.reserve(text.size());
    int accents = 0;
    for (const char16_t unit : text)
    {
        accents = isAccent(unit) ? accents + 1 : 0;
        if (accents <= kMaxAccents)
            out.push_back(unit);
    }
    return out;
}

void AppendCutNote(std::u16string& out, std::size_t missing)
{
    if (missing != 0)
        out.append(FormatText(u"<br><i>\u2026 and %u more characters.</i>", missing));
}

std::u16string_view FindIcon(std::u16string_view text)
{
    for (const std::u16string_view icon : kIcons)
        if (text.substr(0, icon.size()) == icon)
            return icon;
    return {};
}

// Reads a help text once from its begin to its end and writes what of it is allowed.
class CSanitizer
{
public:
    explicit CSanitizer(std::u16string_view text) : m_sText(text), m_bPlain(!HasTag(text)) {}

    std::u16string Run()
    {
        while (m_nAt < m_sText.size())
            Step();
        while (!m_Open.empty())
            CloseTop();
        return std::move(m_sOut);
    }

private:
    static bool HasTag(std::u16string_view text)
    {
        for (std::size_t i = text.find(u'<'); i != text.npos; i = text.find(u'<', i + 1))
            if (ReadHelpTag(text.substr(i)).m_pTag != nullptr)
                return true;
        return false;
    }

    void Step()
    {
        const char16_t unit = m_sText[m_nAt];
        if (unit == u'<' && (TakeIcon() || TakeTag()))
            return;
        if (unit == u'&' && TakeReference())
            return;
        if (TakeLineEnd(m_sText, m_nAt))
        {
            m_sOut.append(m_bPlain ? u"<br>" : u"\n");
            return;
        }
        if (!IsBlank(unit))
            EnsureCell();
        AppendPoint(m_sOut, TakePoint(m_sText, m_nAt));
    }

    bool TakeIcon()
    {
        const std::u16string_view icon = FindIcon(m_sText.substr(m_nAt));
        if (icon.empty() || m_nImages++ >= kMaxImages)
            return false;
        EnsureCell();
        m_sOut.append(icon);
        m_nAt += icon.size();
        return true;
    }

    bool TakeTag()
    {
        const SHelpTagText tag = ReadHelpTag(m_sText.substr(m_nAt));
        if (tag.m_pTag == nullptr)
            return false;
        if (tag.m_bClosing ? !Close(*tag.m_pTag) : m_nTags == kMaxHelpTags || !Open(tag))
            return false;
        m_nTags += tag.m_bClosing ? 0 : 1;
        m_nAt += tag.m_nLength;
        return true;
    }

    // "&name;", "&#10;" or "&#xA;".
    bool TakeReference()
    {
        const std::u16string_view rest = m_sText.substr(m_nAt + 1, 10);
        const std::size_t end = rest.find(u';');
        if (end == rest.npos)
            return false;
        char32_t point = 0;
        if (!FindReference(rest.substr(0, end), point))
            return false;
        EnsureCell();
        AppendPoint(m_sOut, point);
        m_nAt += end + 2;
        return true;
    }

    static bool FindReference(std::u16string_view name, char32_t& point)
    {
        for (const SReference& reference : kReferences)
            if (reference.m_sName == name)
            {
                point = reference.m_nUnit;
                return true;
            }
        return name.size() > 1 && name[0] == u'#' && ReadNumber(name.substr(1), point);
    }

    static bool ReadNumber(std::u16string_view digits, char32_t& point)
    {
        const bool hex = digits[0] == u'x' || digits[0] == u'X';
        if (hex)
            digits.remove_prefix(1);
        if (digits.empty() || digits.size() > 7)
            return false;
        point = 0;
        for (const char16_t digit : digits)
        {
            const char32_t letter = digit | 0x20u;
            if (digit >= u'0' && digit <= u'9')
                point = point * (hex ? 16 : 10) + (digit - u'0');
            else if (hex && letter >= U'a' && letter <= U'f')
                point = point * 16 + (letter - U'a' + 10);
            else
                return false;
        }
        return true;
    }

    // What stands in a table outside of a cell gets one, so that a table cannot swallow it.
    void EnsureCell()
    {
        if (IsTop(EHelpTag::Row) && m_Open.back().m_nCells == kMaxCells)
            CloseTop();
        if (IsTop(EHelpTag::Table))
            Push(*FindHelpTag(u"tr"), {});
        if (IsTop(EHelpTag::Row) && CountCell())
            Push(*FindHelpTag(u"td"), {});
    }

    [[nodiscard]] bool IsTop(EHelpTag kind) const
    {
        return !m_Open.empty() && m_Open.back().m_pTag->m_Kind == kind;
    }

    bool Open(const SHelpTagText& tag)
    {
        if (!MakeRoom(*tag.m_pTag))
            return false;
        if (tag.m_pTag->m_Kind == EHelpTag::Void)
        {
            const std::u16string attributes = MakeAttributes(tag);
            // An image shows one of our icons, or is a text.
            if (tag.m_pTag->m_Attributes == HELP_ATTRIBUTE_ICON && attributes.empty())
                return false;
            AppendTag(tag.m_pTag->m_sName, attributes);
            return true;
        }
        const std::u16string attributes = MakeAttributes(tag);
        Push(*tag.m_pTag, attributes, tag.m_pTag->m_bNeedsAttribute && attributes.empty());
        return true;
    }

    // Closes what a tag ends by its coming; false when it cannot stand here.
    bool MakeRoom(const SHelpTag& tag)
    {
        switch (tag.m_Kind)
        {
        case EHelpTag::Row:
            return CloseDownTo(EHelpTag::Table) && m_Open.size() < kMaxDepth;
        case EHelpTag::Cell:
            return CloseDownTo(EHelpTag::Row) && m_Open.size() < kMaxDepth && CountCell();
        case EHelpTag::Item:
            return CloseDownTo(EHelpTag::List) && m_Open.size() < kMaxDepth;
        case EHelpTag::Table:
        case EHelpTag::List:
        case EHelpTag::Block:
            EnsureCell();
            ClosePast(EHelpTag::Block);
            return m_Open.size() < kMaxDepth && (tag.m_Kind != EHelpTag::Table || m_nTables < kMaxTables);
        case EHelpTag::Inline:
            EnsureCell();
            return m_Open.size() < kMaxDepth;
        case EHelpTag::Void:
            EnsureCell();
            return true;
        }
        return false;
    }

    bool CountCell()
    {
        SOpen& row = m_Open.back();
        return row.m_nCells < kMaxCells && ++row.m_nCells > 0;
    }

    // How far a search upwards goes: a tag does not reach out of the cell or the item that it stands in.
    static bool IsBarrier(EHelpTag open, EHelpTag wanted)
    {
        switch (wanted)
        {
        case EHelpTag::Table:
            return false;
        case EHelpTag::Row:
        case EHelpTag::Cell:
            return open == EHelpTag::Table;
        case EHelpTag::Item:
        case EHelpTag::List:
            return open == EHelpTag::Cell || (wanted == EHelpTag::Item && open == EHelpTag::List);
        case EHelpTag::Block:
            return open == EHelpTag::Cell || open == EHelpTag::Item || open == EHelpTag::List;
        case EHelpTag::Inline:
        case EHelpTag::Void:
            return open != EHelpTag::Inline;
        }
        return true;
    }

    // The index of the innermost open tag of a kind, or of one tag; -1 for none that can be reached.
    std::ptrdiff_t FindOpen(EHelpTag kind, const SHelpTag* tag = nullptr) const
    {
        for (std::ptrdiff_t i = static_cast<std::ptrdiff_t>(m_Open.size()) - 1; i >= 0; --i)
        {
            const SHelpTag* open = m_Open[static_cast<std::size_t>(i)].m_pTag;
            if (open->m_Kind == kind && (tag == nullptr || open == tag))
                return i;
            if (IsBarrier(open->m_Kind, kind))
                return -1;
        }
        return -1;
    }

    // Makes the innermost open tag of a kind the top. False when there is none.
    bool CloseDownTo(EHelpTag kind)
    {
        const std::ptrdiff_t found = FindOpen(kind);
        CloseAbove(found);
        return found >= 0;
    }

    void ClosePast(EHelpTag kind)
    {
        const std::ptrdiff_t found = FindOpen(kind);
        if (found < 0)
            return;
        CloseAbove(found);
        CloseTop();
    }

    void CloseAbove(std::ptrdiff_t index)
    {
        while (index >= 0 && static_cast<std::ptrdiff_t>(m_Open.size()) > index + 1)
            CloseTop();
    }

    // True for a closing tag that is dealt with, also where it closes nothing.
    bool Close(const SHelpTag& tag)
    {
        const std::ptrdiff_t found = FindOpen(tag.m_Kind, &tag);
        CloseAbove(found);
        if (found >= 0)
            CloseTop();
        return true;
    }

    void Push(const SHelpTag& tag, std::u16string_view attributes, bool silent = false)
    {
        m_Open.push_back({&tag, 0, silent});
        m_nTables += tag.m_Kind == EHelpTag::Table ? 1 : 0;
        if (!silent)
            AppendTag(tag.m_sName, attributes);
    }

    void CloseTop()
    {
        const SOpen top = m_Open.back();
        m_Open.pop_back();
        m_nTables -= top.m_pTag->m_Kind == EHelpTag::Table ? 1 : 0;
        if (!top.m_bSilent)
            m_sOut.append(u"</").append(top.m_pTag->m_sName).append(u">");
    }

    void AppendTag(std::u16string_view name, std::u16string_view attributes)
    {
        m_sOut.append(u"<").append(name).append(attributes).append(u">");
    }

    // The allowed ones of the tag, each behind a blank.
    static std::u16string MakeAttributes(const SHelpTagText& tag)
    {
        std::u16string out;
        for (const SHelpAttribute& attribute : tag.m_Attributes)
            AppendAttribute(out, attribute, tag.m_pTag->m_Attributes);
        return out;
    }

    static void AppendAttribute(std::u16string& out, const SHelpAttribute& attribute, unsigned allowed)
    {
        const bool good = ((allowed & HELP_ATTRIBUTE_LINK) != 0 && EqualNames(attribute.m_sName, u"href") &&
                           IsValidURL(attribute.m_sValue)) ||
                          ((allowed & HELP_ATTRIBUTE_COLOR) != 0 && EqualNames(attribute.m_sName, u"color") &&
                           IsHelpColor(attribute.m_sValue)) ||
                          ((allowed & HELP_ATTRIBUTE_ALIGN) != 0 && EqualNames(attribute.m_sName, u"align") &&
                           IsHelpAlignment(attribute.m_sValue));
        if (good)
            out.append(u" ")
                .append(attribute.m_sName)
                .append(u"=\"")
                .append(EscapeHelp(attribute.m_sValue))
                .append(u"\"");
        if ((allowed & HELP_ATTRIBUTE_ICON) != 0 && EqualNames(attribute.m_sName, u"src") &&
            FindIcon(attribute.m_sValue).size() == attribute.m_sValue.size())
            out.append(u" src=\"").append(attribute.m_sValue).append(u"\"");
    }

    struct SOpen
    {
        const SHelpTag* m_pTag;
        int m_nCells;   // Of a row.
        bool m_bSilent; // Stands for a tag that was left out.
    };

    std::u16string_view m_sText;
    std::size_t m_nAt = 0;
    bool m_bPlain;
    int m_nTables = 0;
    int m_nTags = 0;
    int m_nImages = 0;
    std::vector<SOpen> m_Open;
    std::u16string m_sOut;
};
} // namespace

std::u16string SanitizeHelp(std::u16string_view text)
{
    const std::u16string_view shown = Cut(text, kMaxHelpText);
    const std::u16string readable = LimitAccents(shown);
    std::u16string out = CSanitizer(readable).Run();
    AppendCutNote(out, text.size() - shown.size());
    return out;
}

std::u16string EscapeHelp(std::u16string_view text)
{
    const std::u16string_view shown = Cut(text, kMaxHelpText);
    const std::u16string readable = LimitAccents(shown);
    std::u16string out;
    for (std::size_t i = 0; i < readable.size();)
    {
        if (TakeLineEnd(readable, i))
            out.append(u"<br>");
        else
            AppendPoint(out, TakePoint(readable, i));
    }
    AppendCutNote(out, text.size() - shown.size());
    return out;
}

std::u16string EscapeHelpName(std::u16string_view name)
{
    const std::u16string_view shown = Cut(name, kMaxName);
    std::u16string out(u"\u2068");
    for (std::size_t i = 0; i < shown.size();)
    {
        if (TakeLineEnd(shown, i))
            out.push_back(u' ');
        else
            AppendPoint(out, TakePoint(shown, i));
    }
    if (shown.size() < name.size())
        out.push_back(u'\u2026');
    out.push_back(u'\u2069');
    return out;
}

bool IsValidURL(std::u16string_view text)
{
    const std::size_t prefix = BeginsWithName(text, u"https://")  ? 8
                               : BeginsWithName(text, u"http://") ? 7
                                                                  : 0;
    if (prefix == 0 || text.size() == prefix || text.size() > kMaxAddress || text[prefix] == u'/')
        return false;
    return std::all_of(text.begin(), text.end(),
                       [](char16_t unit)
                       {
                           return unit > u' ' && unit != u'"' && unit != u'<' && unit != u'>' &&
                                  unit != u'\\' && unit != u'`' && unit != 0x3000 && unit != 0xA0 &&
                                  !(unit >= 0x2000 && unit <= 0x206F) && !IsHighSurrogate(unit) &&
                                  !IsLowSurrogate(unit) && IsUsable(unit);
                       });
}
