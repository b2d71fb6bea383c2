#include "text/CorvaneTypeString.h"

#include "TestAttribute.h"

#include <gtest/gtest.h>

TEST(Text, MaximumLengthIsReadAndNotEnforced)
{
    const std::pair<std::u16string_view, std::int32_t> rows[] = {
        {u"Data=", -1}, {u"Data=min=1;MAX=2", 2}, {u"Data=max=x", 0}, {u"Data=max", -1}};
    for (const auto& [data, maximum] : rows)
    {
        CTestAttribute test(u"Text", {data, u"Default=longer"});
        auto& attrib = test.Get<CCorvaneTypeString>();
        EXPECT_EQ(attrib.GetStringAttribData()->GetMaximumLength(), maximum);
        EXPECT_EQ(attrib.GetValue(0), u"longer");
        CRecordingSink sink;
        EXPECT_TRUE(attrib.Validate(&sink));
        EXPECT_TRUE(test.GetDefaultMessages().empty());
    }
}

TEST(Text, UnicodeFlagDecidesTheCompiledWidthOnly)
{
    const std::pair<std::u16string_view, std::string> rows[] = {
        {u"Unicode=False", "CreateAttribute 7 Value 4 0 1\nSetText 42 0 \xC3\xA4\\n\n"},
        {u"Unicode=True", "CreateAttribute 7 Value 5 0 1\nSetWideText 42 0 \xC3\xA4\\n\n"},
    };
    for (const auto& [unicode, packed] : rows)
    {
        CTestAttribute test(u"Text", {u"Data=max=9", unicode, u"Default=\u00e4\\n"});
        EXPECT_EQ(test.GetOutputs(), packed + "CreateAttribute 9  4 Value max=9 Text 1 1\n"
                                              "SetTextLimits 42 0 9\nSetText 42 \xC3\xA4\\n\n");
    }
}
