// The arguments of a program or a sub-command: options, which begin with "--", and parameters.
//
// The value of an option is the next argument or stands behind a '=' ("--build 7", "--build=7"). Behind "--"
// everything is a parameter. An option may be given once.
#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

struct SOption
{
    std::u16string_view m_sName; // With its dashes.
    bool m_bHasValue;
};

class CArguments
{
public:
    // False with what is wrong in `mistake`, a full sentence. "--help" is known without being listed.
    [[nodiscard]] bool Parse(std::span<const std::u16string> arguments, std::span<const SOption> options,
                             std::u16string& mistake);

    [[nodiscard]] bool Has(std::u16string_view option) const { return m_Options.contains(option); }
    // Nothing for an option that was not given.
    [[nodiscard]] std::optional<std::u16string_view> Find(std::u16string_view option) const;
    [[nodiscard]] const std::vector<std::u16string>& GetParameters() const { return m_Parameters; }

private:
    // Takes the option at the head of `rest`, with its value.
    [[nodiscard]] bool TakeOption(std::span<const std::u16string>& rest, std::span<const SOption> options,
                                  std::u16string& mistake);

    std::map<std::u16string, std::u16string, std::less<>> m_Options;
    std::vector<std::u16string> m_Parameters;
};
