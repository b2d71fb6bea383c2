#include "time/TimeText.h"

#include <gtest/gtest.h>

TEST(Time, TextForms)
{
    const std::tuple<std::int32_t, std::u16string_view, std::u16string_view> rows[] = {
        {0, u" 0h : 00m : 00s : 000ms", u"0 ms"},
        {3661001, u" 1h : 01m : 01s : 001ms", u"3661001 ms"},
        {-1500, u"- 0h : 00m : 01s : 500ms", u"-1500 ms"},
        {INT32_MIN, u"- 596h : 31m : 23s : 648ms", u"-2147483648 ms"},
    };
    for (const auto& [time, longForm, shortForm] : rows)
    {
        EXPECT_EQ(FormatTimeLong(time), longForm);
        EXPECT_EQ(FormatTimeShort(time), shortForm);
    }
}
