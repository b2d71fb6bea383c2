// Whether a field holds nothing but a number, read and written as values are.
#include "NumberEdit.h"

#include <QTest>
#include <gtest/gtest.h>

namespace
{
struct SRow
{
    const char16_t* m_sText;
    const char16_t* m_sNumber;
};

void ExpectRule(const FNumberRule& rule, std::initializer_list<SRow> rows)
{
    for (const SRow& row : rows)
        EXPECT_EQ(rule(row.m_sText), row.m_sNumber);
}
} // namespace

TEST(NumberEditTest, RulesReadAnyTextAndClamp)
{
    ExpectRule(MakeIntegerRule(), {{u"", u"0"}, {u" 12x", u"12"}, {u"99999999999", u"2147483647"}});
    ExpectRule(MakeIntegerRule(5, 10), {{u"abc", u"5"}, {u"11", u"10"}, {u"7.9", u"7"}});
    ExpectRule(MakeFloatRule(-1, 1), {{u"0.5", u"0.500000"}, {u"inf", u"0.000000"}, {u"-1e9", u"-1.000000"}});
    ExpectRule(MakeWholeRule(-3.5F, 1e20F),
               {{u"1.7", u"1"}, {u"-1.2", u"-2"}, {u"-9", u"-4"}, {u"1e19", u"2147483647"}});
}

TEST(NumberEditTest, RewritesWhenTheFocusGoesAndCorrectsWhileTyping)
{
    QWidget window;
    CNumberEdit edit(MakeIntegerRule(0, 255), &window);
    QLineEdit other(&window);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    edit.setFocus();
    edit.clear();
    QTest::keyClicks(&edit, QStringLiteral("300x"));
    EXPECT_EQ(edit.text(), u"300x");
    EXPECT_EQ(edit.GetInteger(), 255) << "before the focus goes";
    other.setFocus();
    EXPECT_EQ(edit.text(), u"255");

    edit.SetCorrectWhileTyping(true);
    edit.clear();
    QTest::keyClicks(&edit, QStringLiteral("300"));
    EXPECT_EQ(edit.text(), u"255");
    edit.clear();
    QTest::keyClicks(&edit, QStringLiteral("-4"));
    EXPECT_EQ(edit.text(), u"0");
    edit.clear();
    EXPECT_EQ(edit.text(), u"") << "an empty field can be typed into";
    QTest::keyClick(&edit, Qt::Key_Return);
    EXPECT_EQ(edit.text(), u"0");
}
