#include "integer/CorvaneTypeInteger.h"

#include "AssertCapture.h"
#include "RecordingCreator.h"
#include "TestAttribute.h"

#include <gtest/gtest.h>
#include <limits>

namespace
{
using Messages = std::vector<std::u16string>;

std::u16string MakeMessage(std::u16string_view value)
{
    return u"The attribute 'Value' of schema 'Thing' contains an invalid default integer of '" +
           std::u16string(value) + u"'.";
}
} // namespace

TEST(Integer, DefaultIsBroughtInsideTheLimits)
{
    const struct
    {
        std::u16string_view data;
        std::u16string_view text;
        std::u16string_view expected;
        Messages messages;
    } rows[] = {
        {u"Data=", u"Default=", u"0", {}},
        {u"Data=", u"Default= +7x", u"7", {}},
        {u"Data=", u"Default=99999999999", u"2147483647", {}},
        {u"Data=min=5;max=10", u"Default=5", u"5", {}},
        {u"Data=min=5;max=10", u"Default=10", u"10", {}},
        {u"Data=min=5;max=10", u"Default=20", u"10", {MakeMessage(u"20")}},
        {u"Data=MIN=5;nothing;;MAX=10;", u"Default=-1", u"5", {MakeMessage(u"-1")}},
        {u"Data=min=5", u"Default=", u"5", {MakeMessage(u"0")}},
        {u"Data= min=5", u"Default=", u"0", {}},
    };
    for (const auto& row : rows)
    {
        CTestAttribute test(u"Integer", {row.data, row.text});
        EXPECT_EQ(test.Get().GetValue(0), row.expected);
        EXPECT_EQ(test.GetDefaultMessages(), row.messages);
    }
}

TEST(Integer, LimitsMayStandTheWrongWayRound)
{
    CTestAttribute test(u"Integer", {u"Data=min=10;max=5", u"Default=7"});
    EXPECT_EQ(test.Get().GetValue(0), u"10");
    EXPECT_EQ(test.GetDefaultMessages().size(), 1u);
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
    const std::u16string_view values[] = {u"-5", u"-6", u"10", u"11", u"abc"};
    for (std::size_t i = 0; i < std::size(values); ++i)
        ASSERT_TRUE(test.Get().SetValue(i, values[i]));
    CRecordingSink sink;
    EXPECT_FALSE(test.Get().Validate(&sink));
    EXPECT_EQ(sink.m_Errors,
              (std::vector<std::string>{
                  "1 Invalid Integer 1: The value '-6' is not within the valid range of (-5, 10).",
                  "1 Invalid Integer 3: The value '11' is not within the valid range of (-5, 10)."}));
    CAssertCapture asserts;
    EXPECT_FALSE(test.Get().Validate(nullptr));
    EXPECT_TRUE(asserts.Has("pCore"));
}

TEST(Integer, OutputsCarryNumbersAndLimits)
{
    CTestAttribute test(u"Integer", {u"Data=max=10", u"Help=Many", u"Values=2", u"Default=4"});
    CCorvaneType& attrib = test.Get();
    attrib.SetOverride(true);
    CRecordingCreator packed;
    CreatorHandle handle = 0;
    ASSERT_TRUE(attrib.SaveToDatabase(packed, 7, 0, handle, u""));
    EXPECT_EQ(packed.m_Calls, (std::vector<std::string>{"CreateAttribute 7 Value 3 0 2", "SetInteger 42 0 4",
                                                        "SetInteger 42 1 4"}));
    CRecordingUnpackedCreator unpacked;
    ASSERT_TRUE(attrib.SaveToOverride(&unpacked, 9, u"C/R/", u""));
    EXPECT_EQ(unpacked.m_Calls,
              (std::vector<std::string>{"CreateAttribute 9 Many 3 C/R/Value max=10 Integer 1 2",
                                        "SetIntegerLimits 42 -2147483648 10", "SetInteger 42 4",
                                        "SetInteger 42 4"}));
}
