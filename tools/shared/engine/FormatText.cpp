#include "FormatText.h"

#include "zrassert.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <span>
#include <utility>

namespace
{
// A width beyond this is a mistake in a format text and not a wish for so many blanks.
constexpr int kLargestField = 1000;
constexpr int kNoPrecision = -1;

struct SDirective
{
    char16_t type = 0;
    bool left = false;
    bool zeros = false;
    bool plus = false;
    int width = 0;
    int precision = kNoPrecision;
};

char16_t ToUpperHex(char16_t unit)
{
    return unit >= u'a' ? static_cast<char16_t>(unit - 0x20) : unit;
}

class CFormatter
{
public:
    CFormatter(std::u16string_view format, std::span<const CFormatArg> arguments)
        : m_sFormat(format), m_Arguments(arguments)
    {
    }

    std::u16string Run()
    {
        while (!m_sFormat.empty())
        {
            const std::size_t percent = std::min(m_sFormat.find(u'%'), m_sFormat.size());
            m_sOut += m_sFormat.substr(0, percent);
            m_sFormat.remove_prefix(percent);
            if (!m_sFormat.empty())
                WriteDirective();
        }
        return std::move(m_sOut);
    }

private:
    bool Take(char16_t unit)
    {
        if (m_sFormat.empty() || m_sFormat.front() != unit)
            return false;
        m_sFormat.remove_prefix(1);
        return true;
    }

    int TakeNumber()
    {
        int number = 0;
        while (!m_sFormat.empty() && m_sFormat.front() >= u'0' && m_sFormat.front() <= u'9')
        {
            number = std::min(number * 10 + (m_sFormat.front() - u'0'), kLargestField);
            m_sFormat.remove_prefix(1);
        }
        return number;
    }

    SDirective TakeDirective()
    {
        SDirective directive;
        for (bool more = true; more;)
        {
            more = false;
            for (const auto& [unit, flag] :
                 {std::pair{u'-', &directive.left}, {u'0', &directive.zeros}, {u'+', &directive.plus}})
            {
                if (Take(unit))
                    *flag = more = true;
            }
        }
        directive.width = TakeNumber();
        if (Take(u'.'))
            directive.precision = TakeNumber();
        if (!m_sFormat.empty())
        {
            directive.type = m_sFormat.front();
            m_sFormat.remove_prefix(1);
        }
        return directive;
    }

    void WriteDirective()
    {
        m_sFormat.remove_prefix(1);
        if (Take(u'%'))
        {
            m_sOut += u'%';
            return;
        }
        const bool numbered =
            m_sFormat.size() > 1 && m_sFormat[0] >= u'1' && m_sFormat[0] <= u'9' && m_sFormat[1] == u'!';
        std::size_t argument = m_nNext;
        if (numbered)
        {
            argument = static_cast<std::size_t>(m_sFormat[0] - u'1');
            m_sFormat.remove_prefix(2);
        }
        else
        {
            ++m_nNext;
        }
        const SDirective directive = TakeDirective();
        if (numbered && !Take(u'!'))
            ZRASSERT_FORCED("FormatText : A numbered directive is not closed");
        if (argument >= m_Arguments.size() || !WriteArgument(directive, m_Arguments[argument]))
            ZRASSERT_FORCED("FormatText : A directive has no argument of its kind");
    }

    bool WriteArgument(const SDirective& directive, const CFormatArg& argument)
    {
        switch (argument.GetKind())
        {
        case CFormatArg::EKind::Text:
            return WriteString(directive, argument.GetText());
        case CFormatArg::EKind::Integer:
            return WriteInteger(directive, argument.GetInteger());
        case CFormatArg::EKind::Float:
            return WriteFloat(directive, argument.GetFloat());
        }
        return false;
    }

    bool WriteString(const SDirective& directive, std::u16string_view text)
    {
        if (directive.type != u's')
            return false;
        if (directive.precision != kNoPrecision)
            text = text.substr(0, static_cast<std::size_t>(directive.precision));
        Pad(directive, u"", std::u16string(text), false);
        return true;
    }

    // A negative number in an unsigned directive shows as the 32-bit pattern that printf shows for an int.
    static std::uint64_t ToUnsigned(std::int64_t value)
    {
        if (value < 0 && value >= std::numeric_limits<std::int32_t>::min())
            return static_cast<std::uint32_t>(value);
        return static_cast<std::uint64_t>(value);
    }

    bool WriteInteger(const SDirective& directive, std::int64_t value)
    {
        const bool isSigned = directive.type == u'd' || directive.type == u'i';
        const bool hex = directive.type == u'x' || directive.type == u'X';
        if (!isSigned && !hex && directive.type != u'u')
            return false;
        const bool negative = isSigned && value < 0;
        const std::uint64_t amount = !isSigned  ? ToUnsigned(value)
                                     : negative ? std::uint64_t{0} - static_cast<std::uint64_t>(value)
                                                : static_cast<std::uint64_t>(value);
        char buffer[24];
        const auto result = std::to_chars(buffer, std::end(buffer), amount, hex ? 16 : 10);
        std::u16string digits(buffer, result.ptr);
        if (directive.type == u'X')
            std::transform(digits.begin(), digits.end(), digits.begin(), ToUpperHex);
        if (directive.precision != kNoPrecision &&
            digits.size() < static_cast<std::size_t>(directive.precision))
            digits.insert(0, static_cast<std::size_t>(directive.precision) - digits.size(), u'0');
        const std::u16string_view sign = negative ? u"-" : isSigned && directive.plus ? u"+" : u"";
        Pad(directive, sign, digits, directive.precision == kNoPrecision);
        return true;
    }

    bool WriteFloat(const SDirective& directive, double value)
    {
        if (directive.type != u'f')
            return false;
        const int precision = directive.precision == kNoPrecision ? 6 : directive.precision;
        // The largest double has 309 digits in front of the point.
        std::string buffer(static_cast<std::size_t>(precision) + 320, '\0');
        const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                          std::chars_format::fixed, precision);
        std::u16string digits(buffer.data(), result.ptr);
        const bool negative = digits.front() == u'-';
        if (negative)
            digits.erase(0, 1);
        Pad(directive, negative ? u"-" : directive.plus ? u"+" : u"", digits, true);
        return true;
    }

    void Pad(const SDirective& directive, std::u16string_view sign, const std::u16string& body,
             bool mayPadZeros)
    {
        const std::size_t length = sign.size() + body.size();
        const std::size_t width = std::max(length, static_cast<std::size_t>(directive.width));
        const std::size_t fill = width - length;
        const bool zeros = directive.zeros && mayPadZeros && !directive.left;
        if (!directive.left && !zeros)
            m_sOut.append(fill, u' ');
        m_sOut += sign;
        if (zeros)
            m_sOut.append(fill, u'0');
        m_sOut += body;
        if (directive.left)
            m_sOut.append(fill, u' ');
    }

    std::u16string_view m_sFormat;
    std::span<const CFormatArg> m_Arguments;
    std::size_t m_nNext = 0;
    std::u16string m_sOut;
};
} // namespace

std::u16string FormatTextList(std::u16string_view format, std::initializer_list<CFormatArg> arguments)
{
    return CFormatter(format, {arguments.begin(), arguments.size()}).Run();
}
