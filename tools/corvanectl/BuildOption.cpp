#include "BuildOption.h"

#include "Arguments.h"
#include "FormatText.h"

#include <limits>

namespace
{
std::optional<std::uint32_t> ParseBuild(std::u16string_view text)
{
    std::uint64_t value = 0;
    for (const char16_t unit : text)
    {
        if (unit < u'0' || unit > u'9' || value > std::numeric_limits<std::uint32_t>::max())
            return std::nullopt;
        value = 10 * value + (unit - u'0');
    }
    if (text.empty() || value > std::numeric_limits<std::uint32_t>::max())
        return std::nullopt;
    return static_cast<std::uint32_t>(value);
}
} // namespace

std::u16string TakeBuild(const CArguments& arguments, std::optional<std::uint32_t>& build)
{
    const std::optional<std::u16string_view> given = arguments.Find(u"--build");
    build = given ? ParseBuild(*given) : std::nullopt;
    return given && !build ? FormatText(u"'%s' is no build number.", *given) : std::u16string();
}
