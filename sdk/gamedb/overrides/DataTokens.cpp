#include "DataTokens.h"

#include <algorithm>

namespace
{
char Fold(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
} // namespace

std::vector<std::string_view> SplitData(std::string_view data)
{
    std::vector<std::string_view> tokens;
    while (!data.empty())
    {
        const std::size_t end = std::min(data.find(';'), data.size());
        tokens.push_back(data.substr(0, end));
        data.remove_prefix(std::min(end + 1, data.size()));
    }
    return tokens;
}

bool EqualAscii(std::string_view left, std::string_view right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return Fold(a) == Fold(b); });
}

bool TakePrefix(std::string_view& text, std::string_view prefix)
{
    if (!EqualAscii(text.substr(0, prefix.size()), prefix))
        return false;
    text.remove_prefix(prefix.size());
    return true;
}
