#include "AssertCapture.h"
#include "FormatText.h"
#include "NameCompare.h"
#include "NumberText.h"
#include "Unicode.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <set>
#include <tuple>

namespace
{
std::u16string RandomName(std::mt19937& random)
{
    static constexpr std::u16string_view kUnits = u"aAbBzZ.[{@`1\u00C4\u00E4\u00DF\u212Ak\U00010400";
    std::u16string name(random() % 7, u' ');
    for (char16_t& unit : name)
        unit = kUnits[random() % kUnits.size()];
    return name;
}
} // namespace

TEST(NameCompare, Equality)
{
    const std::tuple<std::u16string_view, std::u16string_view, bool> rows[] = {
        {u"", u"", true},
        {u"General", u"gENERAL", true},
        {u"Value", u"Value ", false},
        {u"[@`{", u"{@`[", false}, // The neighbours of the letters do not fold.
        {u"ÄÖÜ.Länge", u"äöü.LÄNGE", true},
        {u"Straße", u"STRASSE", false},
        {u"Straße", u"STRAẞE", true},
        {u"\u212Aelvin", u"kelvin", true}, // The Kelvin sign folds to an ASCII letter.
        {u"ΑΣ", u"ας", true},
        {u"\U00010400", u"\U00010428", false}, // Unit by unit: what lies in surrogates keeps its case.
    };
    for (const auto& [a, b, equal] : rows)
    {
        EXPECT_EQ(EqualNames(a, b), equal) << ToNarrow(a);
        EXPECT_EQ(ZRStrICmp(a, b) == 0, equal) << ToNarrow(a);
    }
    CAssertCapture asserts;
    EXPECT_EQ(ZRStrICmp({}, u""), 0);
    EXPECT_EQ(asserts.GetEntries().size(), 1U);
}

// The word-wise paths must answer as the unit-wise definition does.
TEST(NameCompare, FastPathsAgreeWithTheFolding)
{
    std::mt19937 random(7);
    int equal = 0;
    for (int round = 0; round < 20000; ++round)
    {
        const std::u16string a = RandomName(random);
        const std::u16string b = RandomName(random).substr(0, 1) + (a.empty() ? u"" : a.substr(1));
        std::u16string foldedA = a;
        std::u16string foldedB = b;
        for (std::u16string* text : {&foldedA, &foldedB})
            for (char16_t& unit : *text)
                unit = FoldUnit(unit);
        const bool same = foldedA == foldedB;
        equal += same ? 1 : 0;
        ASSERT_EQ(EqualNames(a, b), same);
        ASSERT_EQ(BeginsWithName(a + u"x", b), (foldedA + u"x").starts_with(foldedB));
        ASSERT_EQ(ZRStrICmp(a, b) < 0, foldedA < foldedB);
        ASSERT_TRUE(!same || HashName(a) == HashName(b));
        ASSERT_EQ(NameOrder(a, b), same ? a < b : foldedA < foldedB);
    }
    EXPECT_GT(equal, 100);
}

// Tables take the low bits, and databases are full of counted names. Of 1,000 names in 2,048 places, some
// 790 have one of their own when chance decides.
TEST(NameCompare, TheLowBitsOfTheHashTellCountedNamesApart)
{
    for (const char16_t* form : {u"Thing %d", u"r%d", u"Name (%d)", u"Attrib.Link%d.0"})
    {
        std::set<std::size_t> places;
        for (int i = 0; i < 1000; ++i)
            places.insert(HashName(FormatText(form, i)) & 2047U);
        EXPECT_GT(places.size(), 700u) << ToNarrow(form);
    }
}

TEST(Unicode, MalformedTextBecomesTheReplacement)
{
    EXPECT_EQ(ToNarrow(u"a\u00E4\u20AC\U0001F600"), "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80");
    EXPECT_EQ(ToWide("a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80"), u"a\u00E4\u20AC\U0001F600");
    EXPECT_EQ(ToNarrow(std::u16string{u'x', char16_t{0xD800}, u'y'}), "x\xEF\xBF\xBDy");
    EXPECT_EQ(ToNarrow(std::u16string{char16_t{0xDC00}}), "\xEF\xBF\xBD");
    EXPECT_EQ(ToWide("\xC0\x80|\xED\xA0\x80|\xF4\x90\x80\x80|\x80|\xC3"),
              u"\uFFFD\uFFFD|\uFFFD\uFFFD\uFFFD|\uFFFD\uFFFD\uFFFD\uFFFD|\uFFFD|\uFFFD");
}

TEST(NumberText, ReadsAndWritesNumbers)
{
    std::u16string shown;
    for (const std::u16string_view text : {u"",    u"12",     u" \t-7x",      u"+5",
                                           u"- 5", u"0x10",   u"2147483648",  u"-2147483648",
                                           u"1e3", u"True",   u"1.5",         u" -2.5e1z",
                                           u"+.5", u"5.",     u".",           u"inf",
                                           u"nan", u"0x1p3",  u"1e",          u"1e+2",
                                           u"1,5", u"1e-999", u"99999999999", u"0.001e-99999999999999999999"})
        shown += FormatText(u"%s=%d %f|", text, ParseInteger(text), double{ParseFloat(text)});
    EXPECT_EQ(ToNarrow(shown),
              "=0 0.000000|12=12 12.000000| \t-7x=-7 -7.000000|+5=5 5.000000|- 5=0 0.000000|0x10=0 0.000000|"
              "2147483648=2147483647 2147483648.000000|-2147483648=-2147483648 -2147483648.000000|"
              "1e3=1 1000.000000|True=0 0.000000|1.5=1 1.500000| -2.5e1z=-2 -25.000000|+.5=0 0.500000|"
              "5.=5 5.000000|.=0 0.000000|inf=0 0.000000|nan=0 0.000000|0x1p3=0 0.000000|1e=1 1.000000|"
              "1e+2=1 100.000000|1,5=1 1.000000|1e-999=1 0.000000|99999999999=2147483647 99999997952.000000|"
              "0.001e-99999999999999999999=0 0.000000|");
    EXPECT_EQ(ParseFloat(u"0.1"), 0.1F);
    constexpr float kLargest = std::numeric_limits<float>::max();
    for (const std::u16string_view text : {u"1e39", u"1e99999999999999999999"})
        EXPECT_EQ(ParseFloat(text), kLargest) << ToNarrow(text);
    EXPECT_EQ(ParseFloat(u"-1e999"), -kLargest);
    EXPECT_TRUE(std::signbit(ParseFloat(u"-0")));
    EXPECT_EQ(FormatFloat(1.5), u"1.500000");
    EXPECT_EQ(FormatFloat(-0.0000004), u"-0.000000");
    EXPECT_EQ(FormatInteger(std::numeric_limits<std::int64_t>::min()), u"-9223372036854775808");
}

TEST(FormatText, Directives)
{
    EXPECT_EQ(FormatText(u"'%s' has %d of %u, 100%%", u"a", -3, 7U), u"'a' has -3 of 7, 100%");
    EXPECT_EQ(FormatText(u"%.4d|%3d|%-3d|%03d|%5s|%.2s", 7, 7, 7, -7, u"ab", u"abc"),
              u"0007|  7|7  |-07|   ab|ab");
    EXPECT_EQ(FormatText(u"0x%X 0x%.8x %u", 0xABC, 0xABC, -1), u"0xABC 0x00000abc 4294967295");
    EXPECT_EQ(FormatText(u"%f %.2f %8.1f", 1.5, 2.0, -0.25), u"1.500000 2.00     -0.2");
    EXPECT_EQ(FormatText(u"%2!s! before %1!s!", u"one", u"two"), u"two before one");
}

TEST(FormatText, WrongArgumentsFireAndWriteNothing)
{
    for (const std::u16string_view format : {u"[%d]", u"[%q]", u"[%s%s]", u"[%2!s!]", u"[%"})
    {
        CAssertCapture asserts;
        const std::u16string text = FormatText(format, u"t");
        EXPECT_EQ(asserts.GetEntries().size(), 1U) << ToNarrow(format);
        EXPECT_TRUE(text == u"[]" || text == u"[t]" || text == u"[") << ToNarrow(text);
    }
}
