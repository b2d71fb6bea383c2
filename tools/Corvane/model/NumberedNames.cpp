#include "NumberedNames.h"

#include "FormatText.h"
#include "NumberText.h"

#include <algorithm>

std::u16string MakeNumberedName(std::u16string_view name, int number)
{
    return FormatText(u"%s (%d)", name, number);
}

int CNumberedNames::GetNumber(std::u16string_view text, std::u16string_view name)
{
    constexpr std::size_t kBracket = 2; // The blank and the bracket ahead of the number.
    if (text.size() <= name.size() + kBracket || !BeginsWithName(text, name))
        return 0;
    const int number = ParseInteger(text.substr(name.size() + kBracket));
    // Writing the number again tells a name of the row from others that merely hold a number.
    return number >= kFirst && EqualNames(text, MakeNumberedName(name, number)) ? number : 0;
}

void CNumberedNames::OnFreed(std::u16string_view name)
{
    const std::size_t bracket = m_FirstFree.empty() ? std::u16string_view::npos : name.rfind(u" (");
    if (bracket == std::u16string_view::npos)
        return;
    const auto row = m_FirstFree.find(name.substr(0, bracket));
    if (row == m_FirstFree.end())
        return;
    if (const int number = GetNumber(name, row->first); number != 0)
        row->second = std::min(row->second, number);
}
