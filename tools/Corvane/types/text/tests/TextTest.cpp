#include "text/CorvaneTypeString.h"

#include "RecordingCreator.h"
#include "TestAttribute.h"

#include <gtest/gtest.h>

TEST(Text, MaximumLengthIsReadAndNotEnforced)
{
    const struct
    {
        std::u16string_view data;
        std::int32_t maximum;
    } rows[] = {{u"Data=", -1}, {u"Data=min=1;MAX=2", 2}, {u"Data=max=x", 0}, {u"Data=max", -1}};
    for (const auto& row : rows)
    {
        CTestAttribute test(u"Text", {row.data, u"Default=longer"});
        auto& attrib = test.Get<CCorvaneTypeString>();
        EXPECT_EQ(attrib.GetStringAttribData()->GetMaximumLength(), row.maximum);
        EXPECT_EQ(attrib.GetValue(0), u"longer");
        CRecordingSink sink;
        EXPECT_TRUE(attrib.Validate(&sink));
        EXPECT_TRUE(test.GetDefaultMessages().empty());
    }
}

TEST(Text, UnicodeFlagDecidesTheCompiledWidthOnly)
{
    const struct
    {
        std::u16string_view unicode;
        std::vector<std::string> calls;
    } rows[] = {
        {u"Unicode=False", {"CreateAttribute 7 Value 4 0 1", "SetText 42 0 \xC3\xA4\\n"}},
        {u"Unicode=True", {"CreateAttribute 7 Value 5 0 1", "SetWideText 42 0 \xC3\xA4\\n"}},
    };
    for (const auto& row : rows)
    {
        CTestAttribute test(u"Text", {u"Data=max=9", row.unicode, u"Default=\u00e4\\n"});
        test.Get().SetOverride(true);
        CRecordingCreator packed;
        CreatorHandle handle = 0;
        ASSERT_TRUE(test.Get().SaveToDatabase(packed, 7, 0, handle, u""));
        EXPECT_EQ(packed.m_Calls, row.calls);
        CRecordingUnpackedCreator unpacked;
        ASSERT_TRUE(test.Get().SaveToOverride(&unpacked, 9, u"", u""));
        EXPECT_EQ(unpacked.m_Calls,
                  (std::vector<std::string>{"CreateAttribute 9  4 Value max=9 Text 1 1",
                                            "SetTextLimits 42 0 9", "SetText 42 \xC3\xA4\\n"}));
    }
}
