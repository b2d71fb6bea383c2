#include "UndoText.h"

#include "FormatText.h"

namespace
{
// A buffer of 35 characters with its end mark.
constexpr std::size_t kMaxValueText = 34;
} // namespace

std::u16string GetUndoText(std::u16string_view form, std::u16string_view name)
{
    return FormatText(form, name);
}

std::u16string GetValueUndoText(std::u16string_view action, std::u16string_view name,
                                std::u16string_view value)
{
    std::u16string text = FormatText(u"[%s]\t%s \"%s\"", action, name, value);
    if (text.size() < kMaxValueText)
        return text;
    text.resize(kMaxValueText);
    // Half a character shows as a replacement mark.
    if ((text.back() & 0xFC00) == 0xD800)
        text.pop_back();
    return text + u"...\"";
}
