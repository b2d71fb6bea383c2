#include "memo/CorvaneTypeMemo.h"

#include "TestAttribute.h"

#include <gtest/gtest.h>

namespace
{
std::u16string ReadMemo(const CCorvaneTypeMemo& memo, std::size_t index)
{
    std::u16string text = u"stale";
    memo.GetValue(index, text);
    return text;
}
} // namespace

TEST(Memo, StoresEscapedTextAndReadsItBack)
{
    const struct
    {
        std::u16string_view typed;
        std::u16string_view stored;
        std::u16string_view read;
    } rows[] = {
        {u"", u"", u""},
        {u"plain", u"plain", u"plain"},
        {u"a\r\nb", u"a\\nb", u"a\r\nb"},
        {u"a\nb\rc", u"a\\nb\\nc", u"a\r\nb\r\nc"},
        {u"a\\b", u"a\\\\b", u"a\\b"},
        {u"a\\nb", u"a\\\\nb", u"a\\\r\nb"},
    };
    CTestAttribute test(u"Memo", {u"Values=-1"});
    auto& memo = test.Get<CCorvaneTypeMemo>();
    for (const auto& row : rows)
    {
        ASSERT_TRUE(memo.SetValue(0, row.typed));
        ASSERT_TRUE(memo.AddValue(row.typed));
        for (const std::size_t index : {std::size_t{0}, memo.GetValueCount() - 1})
        {
            EXPECT_EQ(memo.GetValue(index), row.stored);
            EXPECT_EQ(ReadMemo(memo, index), row.read);
        }
    }
}

TEST(Memo, OutputsCarryRealLineEnds)
{
    CTestAttribute test(u"Memo", {u"Data=max=9", u"Unicode=True", u"Default=a\\nb"});
    EXPECT_EQ(test.GetOutputs(), "CreateAttribute 7 Value 5 0 1\nSetWideText 42 0 a\r\nb\n"
                                 "CreateAttribute 9  4 Value max=9 Memo 1 1\n"
                                 "SetTextLimits 42 0 9\nSetText 42 a\r\nb\n");
}

// The default is in its stored form, and neither moving nor undo escapes a stored text once more.
TEST(Memo, StoredTextsAreNotEscapedAgain)
{
    CTestAttribute test(u"Memo", {u"Values=-1", u"Default=a\\nb"});
    auto& memo = test.Get<CCorvaneTypeMemo>();
    EXPECT_EQ(memo.GetValue(0), u"a\\nb");
    EXPECT_EQ(ReadMemo(memo, 0), u"a\r\nb");
    EXPECT_EQ(ReadMemo(memo, 5), u"a\r\nb");
    test.m_Undo.m_bRecording = true;
    ASSERT_TRUE(memo.SetValue(0, u"c\\d"));
    test.m_Undo.m_bRecording = false;
    ASSERT_EQ(test.m_Undo.m_Points.size(), 1u);
    ASSERT_TRUE(test.m_Undo.m_Points[0]->Undo(true));
    EXPECT_EQ(memo.GetValue(0), u"a\\nb");
    ASSERT_TRUE(test.m_Undo.m_Points[0]->Redo());
    EXPECT_EQ(memo.GetValue(0), u"c\\\\d");
    ASSERT_TRUE(memo.AddValue(u"a\\b\nc"));
    ASSERT_TRUE(memo.MoveValueUp(1));
    EXPECT_EQ(memo.GetValue(0), u"a\\\\b\\nc");
    test.m_Undo.Clear();
}
