#include "time/CorvaneTypeTime.h"

#include "RecordingCreator.h"
#include "TestAttribute.h"
#include "time/TimeText.h"

#include <gtest/gtest.h>
#include <limits>

TEST(Time, TextForms)
{
    const struct
    {
        std::int32_t time;
        std::u16string_view longForm;
        std::u16string_view shortForm;
    } rows[] = {
        {0, u" 0h : 00m : 00s : 000ms", u"0 ms"},
        {3661001, u" 1h : 01m : 01s : 001ms", u"3661001 ms"},
        {-1500, u"- 0h : 00m : 01s : 500ms", u"-1500 ms"},
        {3599999, u" 0h : 59m : 59s : 999ms", u"3599999 ms"},
        {std::numeric_limits<std::int32_t>::min(), u"- 596h : 31m : 23s : 648ms", u"-2147483648 ms"},
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(FormatTimeLong(row.time), row.longForm);
        EXPECT_EQ(FormatTimeShort(row.time), row.shortForm);
    }
}

TEST(Time, ANegativeDefaultNeedsLeave)
{
    const std::vector<std::u16string> told = {
        u"The attribute 'Value' of schema 'Thing' contains an invalid default time of '-5'."};
    const struct
    {
        std::u16string_view data;
        std::u16string_view expected;
        std::vector<std::u16string> messages;
    } rows[] = {
        {u"Data=", u"0", told},
        {u"Data=min=5;allownegative", u"-5", {}},
        {u"Data=AllowNegativeX", u"0", told},
    };
    for (const auto& row : rows)
    {
        CTestAttribute test(u"Time", {row.data, u"Default=-5"});
        EXPECT_EQ(test.Get().GetValue(0), row.expected);
        EXPECT_EQ(test.GetDefaultMessages(), row.messages);
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
    EXPECT_TRUE(sink.m_Errors.empty());
}

TEST(Time, OutputsCarryMillisecondsWithoutLimits)
{
    CTestAttribute test(u"Time", {u"Data=AllowNegative", u"Default=-1"});
    test.Get().SetOverride(true);
    CRecordingCreator packed;
    CreatorHandle handle = 0;
    ASSERT_TRUE(test.Get().SaveToDatabase(packed, 7, 0, handle, u""));
    EXPECT_EQ(packed.m_Calls,
              (std::vector<std::string>{"CreateAttribute 7 Value 3 0 1", "SetInteger 42 0 -1"}));
    CRecordingUnpackedCreator unpacked;
    ASSERT_TRUE(test.Get().SaveToOverride(&unpacked, 9, u"", u""));
    EXPECT_EQ(unpacked.m_Calls, (std::vector<std::string>{"CreateAttribute 9  3 Value AllowNegative Time 1 1",
                                                          "SetInteger 42 -1"}));
}
