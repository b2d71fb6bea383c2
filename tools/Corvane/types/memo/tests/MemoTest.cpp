#include "memo/CorvaneTypeMemo.h"

#include "TestAttribute.h"
#include "UndoScope.h"

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
    const std::tuple<std::u16string_view, std::u16string_view, std::u16string_view> rows[] = {
        {u"", u"", u""},
        {u"a\nb\rc\r\nd", u"a\\nb\\nc\\nd", u"a\r\nb\r\nc\r\nd"},
        {u"a\\b", u"a\\\\b", u"a\\b"},
        {u"a\\nb", u"a\\\\nb", u"a\\\r\nb"},
    };
    CTestAttribute test(u"Memo", {u"Values=-1"});
    auto& memo = test.Get<CCorvaneTypeMemo>();
    for (const auto& [typed, stored, read] : rows)
    {
        ASSERT_TRUE(memo.SetValue(0, typed) && memo.AddValue(typed));
        for (const std::size_t index : {std::size_t{0}, memo.GetValueCount() - 1})
        {
            EXPECT_EQ(memo.GetValue(index), stored);
            EXPECT_EQ(ReadMemo(memo, index), read);
        }
    }
}

// The default is in its stored form, and neither moving nor undo escapes a stored text once more.
TEST(Memo, StoredTextsAreNotEscapedAgain)
{
    CTestAttribute test(u"Memo", {u"Values=-1", u"Default=a\\nb"});
    auto& memo = test.Get<CCorvaneTypeMemo>();
    EXPECT_EQ(ReadMemo(memo, 5), u"a\r\nb");
    {
        CUndoScope scope(test.m_Undo);
        test.Set({u"c\\d"});
        scope.Accept(u"");
    }
    ASSERT_TRUE(test.m_Undo.Undo(1));
    EXPECT_EQ(memo.GetValue(0), u"a\\nb");
    ASSERT_TRUE(test.m_Undo.Redo(1));
    ASSERT_TRUE(memo.AddValue(u"a\\b\nc") && memo.MoveValueUp(1));
    EXPECT_EQ(ShowValues(memo), "a\\\\b\\nc|c\\\\d");
}
