#include "NearNames.h"

#include "NameCompare.h"
#include "Output.h"
#include "Unicode.h"

#include <algorithm>
#include <numeric>

namespace
{
constexpr std::size_t kMaxNear = 5;
// A name with more mistakes than this is another name.
constexpr std::size_t kMaxMistakes = 3;

std::u16string_view GetLastName(std::u16string_view path)
{
    return path.substr(path.rfind(u'/') + 1);
}

std::u16string Fold(std::u16string_view text)
{
    std::u16string folded(text.size(), u'\0');
    FoldUnits(text.data(), text.size(), folded.data());
    return folded;
}

// How many units must be put in, taken out or replaced to make one text of the other.
std::size_t CountMistakes(std::u16string_view a, std::u16string_view b)
{
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i)
    {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j)
        {
            const std::size_t replaced = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, diagonal + 1, row[j] + 1});
        }
    }
    return row.back();
}

std::size_t GetDistance(std::u16string_view name, std::u16string_view candidate)
{
    const std::size_t longer = std::max(name.size(), candidate.size());
    const std::size_t shorter = std::min(name.size(), candidate.size());
    // A text of other length is another one; it is not worth the table.
    return longer - shorter > kMaxMistakes ? longer : CountMistakes(name, candidate);
}
} // namespace

std::vector<std::u16string> FindNearNames(std::u16string_view name,
                                          const std::vector<std::u16string>& candidates)
{
    const std::u16string path = Fold(name);
    const std::u16string last(GetLastName(path));
    const std::size_t most = std::clamp<std::size_t>((last.size() + 1) / 3, 1, kMaxMistakes);
    std::vector<std::pair<std::size_t, const std::u16string*>> near;
    for (const std::u16string& candidate : candidates)
    {
        const std::u16string folded = Fold(candidate);
        const std::size_t distance =
            std::min(GetDistance(path, folded), GetDistance(last, GetLastName(folded)));
        if (distance <= most)
            near.emplace_back(distance, &candidate);
    }
    std::stable_sort(near.begin(), near.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    near.resize(std::min(near.size(), kMaxNear));
    std::vector<std::u16string> names;
    for (const auto& entry : near)
        names.push_back(*entry.second);
    return names;
}

void TellNotFound(std::u16string_view message, std::u16string_view name,
                  const std::vector<std::u16string>& candidates)
{
    std::u16string text = MakeLine(message);
    const std::vector<std::u16string> near = FindNearNames(name, candidates);
    if (!near.empty())
        text += u" Near it:";
    for (const std::u16string& candidate : near)
        text += u"\n  " + MakeLine(candidate);
    PrintError(ToNarrow(text));
}
