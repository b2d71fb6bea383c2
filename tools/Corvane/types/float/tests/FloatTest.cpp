#include "float/CorvaneTypeFloat.h"

#include "FormatText.h"
#include "TestAttribute.h"

#include <gtest/gtest.h>

TEST(Float, DefaultOutsideTheLimitsIsToldAndKept)
{
    const auto told = [](std::u16string_view value)
    {
        return std::vector{FormatText(
            u"The attribute 'Value' of schema 'Thing' contains an invalid default float of '%s'.", value)};
    };
    const std::tuple<std::u16string_view, std::u16string_view, std::u16string_view,
                     std::vector<std::u16string>>
        rows[] = {
            {u"Data=", u"Default=", u"0.000000", {}},
            {u"Data=", u"Default=1e2", u"100.000000", {}},
            {u"Data=", u"Default=nan", u"0.000000", {}},
            {u"Data=min=5;max=10", u"Default=10", u"10.000000", {}},
            {u"Data=Min=5;Max=10", u"Default=20", u"20.000000", told(u"20.000000")},
            {u"Data=min=.5", u"Default=", u"0.000000", told(u"0.000000")},
        };
    for (const auto& [data, text, expected, messages] : rows)
    {
        CTestAttribute test(u"Float", {data, text});
        EXPECT_EQ(test.Get().GetValue(0), expected);
        EXPECT_EQ(test.GetDefaultMessages(), messages);
    }
}

TEST(Float, TypedAccessParsesAndFormats)
{
    CTestAttribute test(u"Float", {u"Default=3"});
    auto& attrib = test.Get<CCorvaneTypeFloat>();
    ASSERT_TRUE(attrib.SetValue(0, u"1.5"));
    EXPECT_EQ(attrib.GetFloat(0), 1.5F);
    EXPECT_EQ(attrib.GetValue(0), u"1.5");
    EXPECT_TRUE(attrib.SetFloat(0, 1.5F));
    EXPECT_EQ(attrib.GetValue(0), u"1.500000");
    EXPECT_FALSE(attrib.SetFloat(1, 1));
    EXPECT_EQ(attrib.GetFloat(1), 3.0F);
}

// Value and limits are rounded to 32 bits first: the text 0.1 is not below the limit 0.1.
TEST(Float, ValidateComparesIn32Bits)
{
    CTestAttribute test(u"Float", {u"Data=min=0.1;max=0.2", u"Default=0.1", u"Values=4"});
    EXPECT_EQ(
        test.Check({u"0.1", u"0.20000000001", u"0.21", u"0"}),
        "1 Invalid Float 2: The value '0.210000' is not within the valid range of (0.100000, 0.200000).\n"
        "1 Invalid Float 3: The value '0.000000' is not within the valid range of (0.100000, 0.200000).\n");
}

TEST(Float, OutputsCarryNumbersAndLimits)
{
    CTestAttribute test(u"Float", {u"Data=min=-2.5", u"Default=0.25"});
    EXPECT_EQ(test.GetOutputs(), "CreateAttribute 7 Value 2 0 1\nSetFloat 42 0 0.25\n"
                                 "CreateAttribute 9  2 Value min=-2.5 Float 1 1\n"
                                 "SetFloatLimits 42 -2.5 3.40282347e+38\nSetFloat 42 0.25\n");
}
