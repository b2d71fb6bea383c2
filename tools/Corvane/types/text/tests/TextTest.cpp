#include "text/CorvaneTypeString.h"

#include "TestAttribute.h"
#include "Unicode.h"
#include "common/OutputText.h"

#include <gtest/gtest.h>

TEST(Text, MaximumLengthIsRead)
{
    const std::pair<std::u16string, std::int32_t> rows[] = {
        {u"", -1}, {u"min=1;MAX=2", 2}, {u"max=x", 0}, {u"max", -1}};
    for (const auto& [data, maximum] : rows)
    {
        CTestAttribute test(u"Text", {u"Data=" + data});
        EXPECT_EQ(test.Get<CCorvaneTypeString>().GetStringAttribData()->GetMaximumLength(), maximum);
    }
}

// The short form must agree with the general conversion on both sides of its length and for all units.
TEST(OutputText, ShortAndLongTextsConvertAlike)
{
    CNarrowText narrow;
    CWideText wide;
    for (const std::size_t length : {0u, 1u, 125u, 126u, 127u, 128u, 300u})
    {
        for (const std::u16string_view tail :
             {u"", u"~", u"\x7f", u"\x80", u"\u00e4", u"\u20ac", u"\xd83d\xde00", u"\xd800"})
        {
            const std::u16string text = std::u16string(length, u'x').append(tail);
            EXPECT_EQ(narrow.Convert(text), ToNarrow(text)) << length;
            EXPECT_EQ(wide.Convert(text), text) << length;
        }
    }
}
