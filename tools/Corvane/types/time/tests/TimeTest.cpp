#include "time/CorvaneTypeTime.h"

#include "TestAttribute.h"
#include "time/TimeText.h"

#include <gtest/gtest.h>
#include <limits>

TEST(Time, TextForms)
{
    const std::tuple<std::int32_t, std::u16string_view, std::u16string_view> rows[] = {
        {0, u" 0h : 00m : 00s : 000ms", u"0 ms"},
        {3661001, u" 1h : 01m : 01s : 001ms", u"3661001 ms"},
        {-1500, u"- 0h : 00m : 01s : 500ms", u"-1500 ms"},
        {3599999, u" 0h : 59m : 59s : 999ms", u"3599999 ms"},
        {std::numeric_limits<std::int32_t>::min(), u"- 596h : 31m : 23s : 648ms", u"-2147483648 ms"},
    };
    for (const auto& [time, longForm, shortForm] : rows)
    {
        EXPECT_EQ(FormatTimeLong(time), longForm);
        EXPECT_EQ(FormatTimeShort(time), shortForm);
    }
}

TEST(Time, ANegativeDefaultNeedsLeave)
{
    const std::vector<std::u16string> told = {
        u"The attribute 'Value' of schema 'Thing' contains an invalid default time of '-5'."};
    const std::tuple<std::u16string_view, std::u16string_view, std::vector<std::u16string>> rows[] = {
        {u"Data=", u"0", told},
        {u"Data=min=5;allownegative", u"-5", {}},
        {u"Data=AllowNegativeX", u"0", told},
    };
    for (const auto& [data, expected, messages] : rows)
    {
        CTestAttribute test(u"Time", {data, u"Default=-5"});
        EXPECT_EQ(test.Get().GetValue(0), expected);
        EXPECT_EQ(test.GetDefaultMessages(), messages);
    }
}

TEST(Time, AStoredNegativeTimePasses)
{
    CTestAttribute test(u"Time", {u"Default=10"});
    auto& attrib = test.Get<CCorvaneTypeTime>();
    EXPECT_TRUE(attrib.SetTime(0, -1500));
    EXPECT_EQ(attrib.GetValue(0), u"-1500");
    EXPECT_FALSE(attrib.SetTime(1, 1));
    EXPECT_EQ(attrib.GetTime(1), 10);
    CRecordingSink sink;
    EXPECT_TRUE(attrib.Validate(&sink));
}

TEST(Time, OutputsCarryMillisecondsWithoutLimits)
{
    CTestAttribute test(u"Time", {u"Data=AllowNegative", u"Default=-1"});
    EXPECT_EQ(test.GetOutputs(), "CreateAttribute 7 Value 3 0 1\nSetInteger 42 0 -1\n"
                                 "CreateAttribute 9  3 Value AllowNegative Time 1 1\nSetInteger 42 -1\n");
}
