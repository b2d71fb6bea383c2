#include "float/CorvaneTypeFloat.h"

#include "AssertCapture.h"
#include "RecordingCreator.h"
#include "TestAttribute.h"

#include <gtest/gtest.h>

TEST(Float, DefaultOutsideTheLimitsIsToldAndKept)
{
    const struct
    {
        std::u16string_view data;
        std::u16string_view text;
        std::u16string_view expected;
        std::vector<std::u16string> messages;
    } rows[] = {
        {u"Data=", u"Default=", u"0.000000", {}},
        {u"Data=", u"Default=1e2", u"100.000000", {}},
        {u"Data=", u"Default=nan", u"0.000000", {}},
        {u"Data=min=5;max=10", u"Default=10", u"10.000000", {}},
        {u"Data=Min=5;Max=10",
         u"Default=20",
         u"20.000000",
         {u"The attribute 'Value' of schema 'Thing' contains an invalid default float of '20.000000'."}},
        {u"Data=min=.5",
         u"Default=",
         u"0.000000",
         {u"The attribute 'Value' of schema 'Thing' contains an invalid default float of '0.000000'."}},
    };
    for (const auto& row : rows)
    {
        CTestAttribute test(u"Float", {row.data, row.text});
        EXPECT_EQ(test.Get().GetValue(0), row.expected);
        EXPECT_EQ(test.GetDefaultMessages(), row.messages);
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
    const std::u16string_view values[] = {u"0.1", u"0.20000000001", u"0.21", u"0"};
    for (std::size_t i = 0; i < std::size(values); ++i)
        ASSERT_TRUE(test.Get().SetValue(i, values[i]));
    CRecordingSink sink;
    EXPECT_FALSE(test.Get().Validate(&sink));
    EXPECT_EQ(
        sink.m_Errors,
        (std::vector<std::string>{
            "1 Invalid Float 2: The value '0.210000' is not within the valid range of (0.100000, 0.200000).",
            "1 Invalid Float 3: The value '0.000000' is not within the valid range of (0.100000, "
            "0.200000)."}));
    CAssertCapture asserts;
    EXPECT_FALSE(test.Get().Validate(nullptr));
    EXPECT_TRUE(asserts.Has("pCore"));
}

TEST(Float, OutputsCarryNumbersAndLimits)
{
    CTestAttribute test(u"Float", {u"Data=min=-2.5", u"Default=0.25"});
    test.Get().SetOverride(true);
    CRecordingCreator packed;
    CreatorHandle handle = 0;
    ASSERT_TRUE(test.Get().SaveToDatabase(packed, 7, 0, handle, u""));
    EXPECT_EQ(packed.m_Calls,
              (std::vector<std::string>{"CreateAttribute 7 Value 2 0 1", "SetFloat 42 0 0.25"}));
    CRecordingUnpackedCreator unpacked;
    ASSERT_TRUE(test.Get().SaveToOverride(&unpacked, 9, u"", u""));
    EXPECT_EQ(unpacked.m_Calls,
              (std::vector<std::string>{"CreateAttribute 9  2 Value min=-2.5 Float 1 1",
                                        "SetFloatLimits 42 -2.5 3.40282347e+38", "SetFloat 42 0.25"}));
}
