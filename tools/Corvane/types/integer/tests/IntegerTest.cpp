#include "integer/CorvaneTypeInteger.h"

#include "FormatText.h"
#include "TestAttribute.h"

#include <gtest/gtest.h>
#include <limits>

TEST(Integer, DefaultIsBroughtInsideTheLimits)
{
    const auto told = [](std::u16string_view value)
    {
        return std::vector{FormatText(
            u"The attribute 'Value' of schema 'Thing' contains an invalid default integer of '%s'.", value)};
    };
    const std::tuple<std::u16string_view, std::u16string_view, std::u16string_view,
                     std::vector<std::u16string>>
        rows[] = {
            {u"Data=", u"Default=", u"0", {}},
            {u"Data=", u"Default= +7x", u"7", {}},
            {u"Data=", u"Default=99999999999", u"2147483647", {}},
            {u"Data=min=5;max=10", u"Default=5", u"5", {}},
            {u"Data=min=5;max=10", u"Default=10", u"10", {}},
            {u"Data=min=5;max=10", u"Default=20", u"10", told(u"20")},
            {u"Data=MIN=5;nothing;;MAX=10;", u"Default=-1", u"5", told(u"-1")},
            {u"Data=min=5", u"Default=", u"5", told(u"0")},
            {u"Data=min=10;max=5", u"Default=7", u"10", told(u"7")}, // The wrong way round.
            {u"Data= min=5", u"Default=", u"0", {}},
        };
    for (const auto& [data, text, expected, messages] : rows)
    {
        CTestAttribute test(u"Integer", {data, text});
        EXPECT_EQ(test.Get().GetValue(0), expected);
        EXPECT_EQ(test.GetDefaultMessages(), messages);
    }
}

TEST(Integer, TypedAccessParsesAndFormats)
{
    CTestAttribute test(u"Integer", {u"Values=2", u"Default=3"});
    auto& attrib = test.Get<CCorvaneTypeInteger>();
    EXPECT_TRUE(attrib.SetInteger(1, std::numeric_limits<std::int32_t>::min()));
    EXPECT_EQ(attrib.GetValue(1), u"-2147483648");
    EXPECT_EQ(attrib.GetInteger(1), std::numeric_limits<std::int32_t>::min());
    EXPECT_FALSE(attrib.SetInteger(2, 1));
    EXPECT_EQ(attrib.GetInteger(2), 3);
    ASSERT_TRUE(attrib.SetValue(0, u"abc"));
    EXPECT_EQ(attrib.GetInteger(0), 0);
    EXPECT_EQ(attrib.GetValue(0), u"abc");
}

TEST(Integer, ValidateReportsEachValueOutsideTheInclusiveLimits)
{
    CTestAttribute test(u"Integer", {u"Data=min=-5;max=10", u"Values=5"});
    EXPECT_EQ(test.Check({u"-5", u"-6", u"10", u"11", u"abc"}),
              "1 Invalid Integer 1: The value '-6' is not within the valid range of (-5, 10).\n"
              "1 Invalid Integer 3: The value '11' is not within the valid range of (-5, 10).\n");
}

TEST(Integer, OutputsCarryNumbersAndLimits)
{
    CTestAttribute test(u"Integer", {u"Data=max=10", u"Help=Many", u"Values=2", u"Default=4"});
    EXPECT_EQ(test.GetOutputs(), "CreateAttribute 7 Value 3 0 2\nSetInteger 42 0 4\nSetInteger 42 1 4\n"
                                 "CreateAttribute 9 Many 3 Value max=10 Integer 1 2\n"
                                 "SetIntegerLimits 42 -2147483648 10\nSetInteger 42 4\nSetInteger 42 4\n");
}
