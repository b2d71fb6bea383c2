// The text forms of all types with several numbers a value, held against the C library where it reads the
// same texts, and against themselves on hostile ones.
#include "common/NumberList.h"

#include "Unicode.h"
#include "color/ColorText.h"
#include "flags/FlagsText.h"
#include "range/RangeText.h"
#include "vectors/VectorText.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <gtest/gtest.h>
#include <limits>
#include <random>

using namespace std::string_view_literals;

namespace
{
std::u16string MakeText(std::mt19937& random, std::u16string_view alphabet, std::size_t longest)
{
    std::u16string text(random() % (longest + 1), u' ');
    for (char16_t& unit : text)
        unit = alphabet[random() % alphabet.size()];
    return text;
}
} // namespace

TEST(NumberList, ReadsAsTheScannerOfTheLanguageDoes)
{
    std::mt19937 random(11);
    std::size_t complete = 0;
    for (int i = 0; i < 20000; ++i)
    {
        const std::u16string text = MakeText(random, u"0123456789,,,, \t+-.", 24);
        const std::string narrow = ToNarrow(text);
        std::array<float, 4> floats{-1, -2, -3, -4};
        std::array<float, 4> expectedFloats = floats;
        ScanFloats(text, floats);
        std::sscanf(narrow.c_str(), "%f, %f, %f, %f", &expectedFloats[0], &expectedFloats[1],
                    &expectedFloats[2], &expectedFloats[3]);
        ASSERT_EQ(floats, expectedFloats) << narrow;

        std::array<std::int32_t, 4> integers{-1, -2, -3, -4};
        std::array<long long, 4> expected{-1, -2, -3, -4};
        ScanIntegers(text, integers);
        complete += std::sscanf(narrow.c_str(), "%lld, %lld, %lld, %lld", &expected[0], &expected[1],
                                &expected[2], &expected[3]) == 4;
        for (std::size_t place = 0; place < 4; ++place)
            ASSERT_EQ(integers[place],
                      std::clamp<long long>(expected[place], std::numeric_limits<std::int32_t>::min(),
                                            std::numeric_limits<std::int32_t>::max()))
                << narrow;
    }
    EXPECT_GT(complete, 100u);
}

TEST(NumberList, WhatIsWrittenReadsBackFromAnyText)
{
    std::mt19937 random(12);
    constexpr std::u16string_view alphabet =
        u"0123456789999,,,,,  \t+--..eExXaAFfinNdD|;\"\0\u00e4\xd800\xffff"sv;
    for (int i = 0; i < 20000; ++i)
    {
        std::u16string text = MakeText(random, alphabet, i % 100 == 0 ? 400 : 40);
        if (i % 3 == 0)
            text.insert(0, u"0x");
        const std::u16string vector = FormatVector(ParseVector(text));
        ASSERT_EQ(FormatVector(ParseVector(vector)), vector) << ToNarrow(text);
        const std::u16string range = FormatRange(ParseRange(text));
        ASSERT_EQ(FormatRange(ParseRange(range)), range) << ToNarrow(text);
        const std::uint32_t color = ParseColor(text);
        ASSERT_EQ(ParseColor(FormatColor(color)), color) << ToNarrow(text);
        const ColorParts parts = ParseColorParts(text);
        ASSERT_EQ(ParseColorParts(FormatColorParts(parts)), parts) << ToNarrow(text);
        const std::uint32_t mask = ParseFlags(text);
        ASSERT_EQ(ParseFlags(FormatFlags(mask)), mask) << ToNarrow(text);
    }
}
