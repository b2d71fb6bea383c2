#include "common/OutputText.h"

#include "Unicode.h"

#include <gtest/gtest.h>
#include <string>

// The short form must agree with the general conversion on both sides of its length and for all units.
TEST(OutputText, ShortAndLongTextsConvertAlike)
{
    CNarrowText narrow;
    CWideText wide;
    const std::u16string_view tails[] = {u"",       u"~",      u"\x7f",         u"\x80",
                                         u"\u00e4", u"\u20ac", u"\xd83d\xde00", u"\xd800"};
    for (const std::size_t length : {0u, 1u, 125u, 126u, 127u, 128u, 300u})
    {
        for (const std::u16string_view tail : tails)
        {
            const std::u16string text = std::u16string(length, u'x').append(tail);
            EXPECT_EQ(narrow.Convert(text), ToNarrow(text)) << length;
            EXPECT_EQ(wide.Convert(text), text) << length;
        }
    }
    EXPECT_STREQ(narrow.Convert(u"a"), "a");
}
