#include "enum/EnumValueList.h"

#include <algorithm>
#include <unicode/uchar.h>

namespace
{
constexpr std::size_t kLongestLine = 1023;

bool IsLineEnd(char16_t unit)
{
    return unit == u'\r' || unit == u'\n';
}

std::u16string_view TrimEnd(std::u16string_view text)
{
    while (!text.empty() && u_isUWhiteSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

// Takes a line of at most kLongestLine units off `rest`. The look-ahead ends there too, so that a long text
// without line ends is not searched again for each of its pieces.
std::u16string_view TakeLine(std::u16string_view& rest)
{
    const std::u16string_view reach = rest.substr(0, kLongestLine);
    const auto end = std::find_if(reach.begin(), reach.end(), IsLineEnd);
    const std::u16string_view line = reach.substr(0, static_cast<std::size_t>(end - reach.begin()));
    rest.remove_prefix(line.size());
    return line;
}

// Takes CR, LF or CR LF off `rest`; false when a line goes on there or the text ends.
bool TakeLineEnd(std::u16string_view& rest)
{
    if (rest.empty() || !IsLineEnd(rest.front()))
        return false;
    rest.remove_prefix(rest.starts_with(u"\r\n") ? 2 : 1);
    return true;
}
} // namespace

std::shared_ptr<const CEnumValueList> CEnumValueList::FromData(std::u16string data)
{
    const std::shared_ptr<CEnumValueList> list(new CEnumValueList(std::move(data)));
    list->SplitData();
    list->BuildIndex();
    return list;
}

std::shared_ptr<const CEnumValueList> CEnumValueList::FromLines(std::u16string text)
{
    const std::shared_ptr<CEnumValueList> list(new CEnumValueList(std::move(text)));
    list->SplitLines();
    list->BuildIndex();
    return list;
}

void CEnumValueList::SplitData()
{
    for (std::u16string_view rest = m_sText; !rest.empty();)
    {
        const std::size_t length = std::min(rest.find(u';'), rest.size());
        m_Values.push_back(TrimEnd(rest.substr(0, length)));
        rest.remove_prefix(std::min(length + 1, rest.size()));
    }
}

void CEnumValueList::SplitLines()
{
    m_Values.reserve(static_cast<std::size_t>(std::count_if(m_sText.begin(), m_sText.end(), IsLineEnd)) + 1);
    for (std::u16string_view rest = m_sText; !rest.empty();)
    {
        const std::u16string_view line = TrimEnd(TakeLine(rest));
        const bool isWhole = TakeLineEnd(rest);
        // What stands behind the last line end is a line only when there is something to read.
        if (isWhole || !rest.empty() || !line.empty())
            m_Values.push_back(line);
    }
}

void CEnumValueList::BuildIndex()
{
    m_Index.insert(m_Values.begin(), m_Values.end());
}
