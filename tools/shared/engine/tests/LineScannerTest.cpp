#include "LineScanner.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace
{
// Every kind of unit that the marks tell, with neighbours that narrowing could take for one of them.
std::u16string RandomUnits(std::mt19937& random, std::size_t count)
{
    static constexpr std::u16string_view kUnits =
        u"aaaaaaaa;[=\r\n\x0D0D\x0A00\x3D3D\x010A\x00FF\x8000\x800A\xFFFE";
    std::u16string text(count, u' ');
    for (char16_t& unit : text)
        unit = kUnits[random() % kUnits.size()];
    // Zero and 0xFFFF take a path of their own, which not every text shall take.
    for (std::size_t i = random() % 4; i > 0 && count != 0; --i)
        text[random() % count] = random() % 2 == 0 ? u'\0' : u'\xFFFF';
    return text;
}

bool IsEnd(char16_t unit)
{
    return unit == u'\r' || unit == u'\n' || unit == 0xFFFF;
}

// Each line with the offset of its first '=', unit by unit.
std::vector<std::u16string> SplitPlainly(std::u16string_view text)
{
    std::vector<std::u16string> lines;
    for (std::size_t start = 0; start < text.size();)
    {
        if (text[start] == 0xFFFF)
            break;
        const auto first = text.begin() + static_cast<std::ptrdiff_t>(start);
        const auto end = static_cast<std::size_t>(std::find_if(first, text.end(), IsEnd) - text.begin());
        const std::u16string_view line = text.substr(start, end - start);
        if (!line.empty())
            lines.push_back(std::u16string(line) +
                            static_cast<char16_t>(std::min(line.find(u'='), line.size())));
        start = end + 1;
    }
    return lines;
}
} // namespace

TEST(LineScanner, LinesAcrossBlocks)
{
    std::mt19937 random(23);
    for (int round = 0; round < 5000; ++round)
    {
        std::u16string text = RandomUnits(random, random() % (4 * kLineBlock));
        if (round % 2 == 0) // Long lines, some of them over whole blocks.
            std::replace_if(
                text.begin(), text.end(), [&](char16_t unit) { return IsEnd(unit) && random() % 8 != 0; },
                u'=');
        std::vector<std::u16string> lines;
        ForEachLine(text,
                    [&](const SScannedLine& line)
                    {
                        const std::u16string_view all(text);
                        const std::u16string_view cut = all.substr(line.begin, line.end - line.begin);
                        EXPECT_TRUE(line.mayHoldZero || cut.find(u'\0') == std::u16string_view::npos);
                        lines.push_back(std::u16string(cut) +
                                        static_cast<char16_t>(std::min(line.equals, line.end) - line.begin));
                    });
        ASSERT_EQ(lines, SplitPlainly(text));
    }
}
