#include "range/CorvaneTypeRange.h"

#include "FormatText.h"
#include "TestAttribute.h"

#include <gtest/gtest.h>

TEST(Range, DefaultIsBroughtInsideTheLimits)
{
    const auto told = [](std::u16string_view value)
    {
        return std::vector{FormatText(
            u"The attribute 'Value' of schema 'Thing' contains an invalid default range of '%s'.", value)};
    };
    const std::tuple<std::u16string_view, std::u16string_view, std::u16string_view,
                     std::vector<std::u16string>>
        rows[] = {
            {u"Data=", u"Default=", u"0.000000, 0.000000", {}},
            {u"Data=",
             u"Default=3.4028236e38, -1",
             u"340282346638528859811704183484516925440.000000, -1.000000",
             {}},
            {u"Data=min=1;max=5", u"Default=5, 1", u"5.000000, 1.000000", {}}, // The order is free.
            {u"Data=MIN=1;int;MAX=5;", u"Default=2, 6.5", u"2.000000, 5.000000", told(u"2.000000, 6.500000")},
            {u"Data=min=1;max=5", u"Default=7", u"5.000000, 1.000000", told(u"7.000000, 0.000000")},
            {u"Data=min=5;max=1", u"Default=3, 3", u"5.000000, 5.000000", told(u"3.000000, 3.000000")},
            {u"Data=min=0.1", u"Default=0.1, 1", u"0.100000, 1.000000", {}}, // Equal in 32 bits.
        };
    for (const auto& [data, text, expected, messages] : rows)
    {
        CTestAttribute test(u"Range", {data, text});
        EXPECT_EQ(test.Get().GetValue(0), expected);
        EXPECT_EQ(test.GetDefaultMessages(), messages);
    }
}

TEST(Range, IntegerOnlyNeedsTheWholeTokenAndTouchesNoValue)
{
    const std::pair<std::u16string_view, bool> rows[] = {{u"Data=", false},
                                                         {u"Data=INT", true},
                                                         {u"Data=integer", false},
                                                         {u"Data=int ", false},
                                                         {u"Data=min=int", false}};
    for (const auto& [data, expected] : rows)
    {
        CTestAttribute test(u"Range", {data, u"Default=1.7, 2.5"});
        const auto& attrib = test.Get<CCorvaneTypeRange>();
        EXPECT_EQ(attrib.GetRangeAttribData()->IsIntegerOnly(), expected);
        const CRef<CCorvaneSchemaAttribData> copy = attrib.GetRangeAttribData()->Clone();
        EXPECT_EQ(static_cast<const CCorvaneTypeRangeData&>(*copy).IsIntegerOnly(), expected);
        EXPECT_EQ(attrib.GetValue(0), u"1.700000, 2.500000");
    }
}

TEST(Range, ValidateReportsLimitsBeforeOrder)
{
    CTestAttribute test(u"Range", {u"Data=min=-1;max=2.5", u"Values=5"});
    EXPECT_EQ(test.Check({u"-1, 2.5", u"2, 1", u"3, 1", u"0, -1.5", u"text"}),
              "1 Invalid Range 1: The min value exceeds the max value. (2.000000, 1.000000)\n"
              "1 Invalid Range 2: The range (3.000000, 1.000000) is not within the allowed range of "
              "(-1.000000, 2.500000).\n"
              "1 Invalid Range 3: The range (0.000000, -1.500000) is not within the allowed range of "
              "(-1.000000, 2.500000).\n");
    auto& attrib = test.Get<CCorvaneTypeRange>();
    EXPECT_TRUE(attrib.SetRange(0, {9, 0.5F}));
    EXPECT_EQ(attrib.GetValue(0), u"9.000000, 0.500000");
    EXPECT_EQ(attrib.GetRange(0).m_fMaximum, 0.5F);
    EXPECT_FALSE(attrib.SetRange(5, {}));
}

TEST(Range, OutputsCarryBothNumbersWithoutLimits)
{
    CTestAttribute test(u"Range", {u"Data=min=-1;int", u"Help=Many", u"Default=-0.5, 4"});
    EXPECT_EQ(test.GetOutputs(), "CreateAttribute 7 Value 6 0 1\nSetVector2 42 0 -0.5,4\n"
                                 "CreateAttribute 9 Many 6 Value min=-1;int Range 1 1\n"
                                 "SetVector2 42 -0.5,4\n");
}
