#include "FlagsForm.h"

#include "DataTokens.h"
#include "OverrideCursor.h"
#include "OverrideError.h"
#include "OverrideNumbers.h"

#include <algorithm>
#include <charconv>

namespace
{
constexpr std::string_view kNone = "none";
constexpr std::uint32_t kMaxFlag = 32;

std::string FormatMask(std::uint32_t mask)
{
    char digits[9];
    char* const end = std::to_chars(digits, digits + sizeof(digits), mask, 16).ptr;
    std::string text(digits, end);
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c; });
    return "0x" + std::string(8 - text.size(), '0') + text;
}

// False when `digits` is no hexadecimal number of 32 bits.
bool ParseMask(std::string_view digits, std::uint32_t& mask)
{
    const char* const last = digits.data() + digits.size();
    const auto [end, failure] = std::from_chars(digits.data(), last, mask, 16);
    return failure == std::errc() && end == last;
}

// A description has its line breaks as \\r and \\n in two characters each; here they are blanks.
std::string WithoutBreaks(std::string_view description)
{
    std::string text(description);
    for (const char* const escape : {"\\r", "\\n"})
    {
        for (std::size_t at = text.find(escape); at != std::string::npos; at = text.find(escape, at))
            text.replace(at, 2, " ");
    }
    return text;
}

// A bare word of this kind is never the name of a flag.
bool IsReserved(std::string_view text)
{
    return EqualAscii(text, kNone) || TakePrefix(text, "0x");
}
} // namespace

CFlagsForm::CFlagsForm(const SOverrideAttribute& attribute)
{
    for (const std::string_view token : SplitData(attribute.data))
    {
        SFlag flag;
        if (!ParseFlag(token, flag) || (m_nAllowed & flag.bit) != 0)
            continue;
        m_Flags.push_back(flag);
        m_nAllowed |= flag.bit;
    }
    for (const SOverrideValue& value : attribute.values)
        m_nAllowed |= value.words[0];
}

bool CFlagsForm::ParseFlag(std::string_view token, SFlag& flag)
{
    constexpr std::string_view kPrefix = "Flag";
    if (!token.starts_with(kPrefix))
        return false;
    token.remove_prefix(kPrefix.size());
    token.remove_prefix(std::min(token.find_first_not_of(" \t"), token.size()));
    std::uint32_t number = 0;
    const auto [end, failure] = std::from_chars(token.data(), token.data() + token.size(), number);
    token.remove_prefix(static_cast<std::size_t>(end - token.data()));
    if (failure != std::errc() || number < 1 || number > kMaxFlag || !token.starts_with('='))
        return false;
    const std::size_t bar = token.find('|');
    flag.bit = 1U << (number - 1);
    flag.name = token.substr(1, bar == std::string_view::npos ? bar : bar - 1);
    flag.description = bar == std::string_view::npos ? std::string_view() : token.substr(bar + 1);
    return !flag.name.empty();
}

const CFlagsForm::SFlag* CFlagsForm::FindFlag(std::string_view name) const
{
    const auto find = [&](const auto& isName)
    {
        const auto found = std::find_if(m_Flags.begin(), m_Flags.end(), isName);
        return found == m_Flags.end() ? nullptr : &*found;
    };
    const SFlag* const exact = find([&](const SFlag& flag) { return flag.name == name; });
    return exact ? exact : find([&](const SFlag& flag) { return EqualAscii(flag.name, name); });
}

void CFlagsForm::Write(const SOverrideValue& value, std::string& out) const
{
    std::uint32_t rest = value.words[0];
    const char* separator = "";
    for (const SFlag& flag : m_Flags)
    {
        // Of two flags with one name, the second stands by its number.
        if ((rest & flag.bit) == 0 || FindFlag(flag.name) != &flag)
            continue;
        out += separator;
        if (IsReserved(flag.name))
            AppendQuoted(out, flag.name);
        else
            AppendText(out, flag.name);
        rest &= ~flag.bit;
        separator = " | ";
    }
    if (rest != 0)
        (out += separator) += FormatMask(rest);
    else if (value.words[0] == 0)
        out += kNone;
}

bool CFlagsForm::Read(COverrideCursor& cursor, SOverrideValue& value, SOverrideError& error) const
{
    do
    {
        if (!ReadPiece(cursor, value.words[0], error))
            return false;
    } while (cursor.Take('|'));
    return true;
}

bool CFlagsForm::ReadPiece(COverrideCursor& cursor, std::uint32_t& mask, SOverrideError& error) const
{
    const bool isQuoted = cursor.IsAtQuote();
    std::string text;
    if (!cursor.TakeText("|,", text, error))
        return false;
    if (!isQuoted && EqualAscii(text, kNone))
        return true;
    std::string_view digits = text;
    std::uint32_t bits = 0;
    if (!isQuoted && TakePrefix(digits, "0x"))
    {
        if (!ParseMask(digits, bits))
            return error.Set(EOverrideCause::BadValue, QuoteForMessage(text) + " is not a number of 32 bits");
        mask |= bits;
        return true;
    }
    const SFlag* const flag = FindFlag(text);
    if (flag == nullptr)
        return error.Set(EOverrideCause::BadValue, QuoteForMessage(text) + " is not one of the flags");
    mask |= flag->bit;
    return true;
}

bool CFlagsForm::Check(const SOverrideValue& value, const IOverrideUse&, SOverrideError& error) const
{
    const std::uint32_t surplus = value.words[0] & ~m_nAllowed;
    if (surplus != 0)
        return error.Set(EOverrideCause::OutOfLimits, FormatMask(surplus) + " is not one of the flags");
    return true;
}

std::vector<std::string> CFlagsForm::Describe() const
{
    std::vector<std::string> lines = {"Flags: names with '|' between, or none"};
    for (const SFlag& flag : m_Flags)
    {
        SOverrideValue value;
        value.words[0] = flag.bit;
        std::string line = "  ";
        Write(value, line);
        if (!flag.description.empty())
            (line += ": ") += WithoutBreaks(flag.description);
        lines.push_back(std::move(line));
    }
    return lines;
}
