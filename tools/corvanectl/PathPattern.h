// A pattern over the display paths of records, in the manner of a shell.
//
// "?" stands for one character and "*" for any run of them, both within one name; "**" also runs over "/",
// and "**/" for any number of categories or none. A pattern without "/" is held against the record's name
// alone; one that ends in "/" takes all that lies below. Letter case does not count.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

class CPathPattern
{
public:
    explicit CPathPattern(std::u16string_view pattern);

    // Linear in the path for each pattern, whatever the pattern is.
    [[nodiscard]] bool Matches(std::u16string_view displayPath) const;

private:
    enum class EToken
    {
        Unit,
        AnyInName,   // "?"
        Run,         // "*"
        LongRun,     // "**"
        Directories, // "**/": skipped, or entered by any unit.
        InDirectory, // Always behind Directories: a "/" leads back to it.
    };
    struct SToken
    {
        EToken m_Kind = EToken::Unit;
        char32_t m_nUnit = 0;
    };
    using States = std::vector<bool>;

    void AddStars(std::u32string_view pattern, std::size_t& at);
    // Marks a place of the pattern, and those behind it that need no unit.
    void Enter(States& states, std::size_t place) const;
    [[nodiscard]] States Step(const States& from, char32_t unit) const;

    std::vector<SToken> m_Tokens;
    bool m_bNameOnly;
};
