#include "CustomColors.h"

#include "FormatText.h"
#include "NumberText.h"
#include "Profile.h"

#include <algorithm>

namespace
{
constexpr std::u16string_view kSection = u"Custom.Colors";
constexpr std::u16string_view kColorKey = u"Color%.2d";
constexpr std::u16string_view kDescriptionKey = u"Description.Color%.2d";

int TakePart(std::u16string_view& text)
{
    std::int32_t value = 255;
    if (!TakeInteger(text, value))
        return 255;
    const std::size_t comma = text.find(u',');
    text.remove_prefix(comma == std::u16string_view::npos ? text.size() : comma + 1);
    return std::clamp(value, 0, 255);
}
} // namespace

QColor CCustomColors::GetColor(int index) const
{
    const std::u16string stored = m_Profile.GetString(kSection, FormatText(kColorKey, index), u"");
    std::u16string_view text = stored;
    const int alpha = TakePart(text);
    const int red = TakePart(text);
    const int green = TakePart(text);
    const int blue = TakePart(text);
    return {red, green, blue, alpha};
}

void CCustomColors::SetColor(int index, const QColor& color)
{
    m_Profile.SetString(
        kSection, FormatText(kColorKey, index),
        FormatText(u"%3d, %3d, %3d, %3d", color.alpha(), color.red(), color.green(), color.blue()));
}

std::u16string CCustomColors::GetDescription(int index) const
{
    return m_Profile.GetString(kSection, FormatText(kDescriptionKey, index), u"");
}

void CCustomColors::SetDescription(int index, std::u16string description)
{
    for (char16_t& unit : description)
    {
        if (unit == u'\r' || unit == u'\n' || unit == 0xFFFF)
            unit = u' ';
    }
    m_Profile.SetString(kSection, FormatText(kDescriptionKey, index), description);
}
