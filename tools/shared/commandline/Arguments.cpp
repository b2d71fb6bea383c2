#include "Arguments.h"

#include "FormatText.h"

#include <algorithm>

namespace
{
constexpr SOption kHelp = {u"--help", false};

const SOption* FindOption(std::span<const SOption> options, std::u16string_view name)
{
    const auto found = std::find_if(options.begin(), options.end(),
                                    [&](const SOption& option) { return option.m_sName == name; });
    if (found != options.end())
        return &*found;
    return name == kHelp.m_sName ? &kHelp : nullptr;
}
} // namespace

bool CArguments::Parse(std::span<const std::u16string> rest, std::span<const SOption> options,
                       std::u16string& mistake)
{
    bool optionsEnded = false;
    while (!rest.empty())
    {
        const std::u16string& argument = rest.front();
        if (optionsEnded || !argument.starts_with(u'-') || argument == u"-")
            m_Parameters.push_back(argument);
        else if (argument == u"--")
            optionsEnded = true;
        else if (!TakeOption(rest, options, mistake))
            return false;
        rest = rest.subspan(1);
    }
    return true;
}

bool CArguments::TakeOption(std::span<const std::u16string>& rest, std::span<const SOption> options,
                            std::u16string& mistake)
{
    const std::u16string& argument = rest.front();
    const std::size_t equals = argument.find(u'=');
    const std::u16string name = argument.substr(0, equals);
    const SOption* option = FindOption(options, name);
    std::u16string value;
    if (option == nullptr)
        mistake = FormatText(u"There is no option '%s'.", name);
    else if (Has(name))
        mistake = FormatText(u"The option '%s' is given twice.", name);
    else if (equals != std::u16string::npos && !option->m_bHasValue)
        mistake = FormatText(u"The option '%s' takes no value.", name);
    else if (equals != std::u16string::npos)
        value = argument.substr(equals + 1);
    else if (option->m_bHasValue && rest.size() < 2)
        mistake = FormatText(u"The option '%s' needs a value.", name);
    else if (option->m_bHasValue)
    {
        value = rest[1];
        rest = rest.subspan(1);
    }
    m_Options.emplace(name, value);
    return mistake.empty();
}

std::optional<std::u16string_view> CArguments::Find(std::u16string_view option) const
{
    const auto found = m_Options.find(option);
    return found == m_Options.end() ? std::nullopt : std::optional<std::u16string_view>(found->second);
}
