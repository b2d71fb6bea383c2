#include "memo/CorvaneTypeMemo.h"

#include "RecordingCreator.h"
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

TEST(Memo, DefaultIsInItsStoredForm)
{
    CTestAttribute test(u"Memo", {u"Default=a\\nb"});
    auto& memo = test.Get<CCorvaneTypeMemo>();
    EXPECT_EQ(memo.GetValue(0), u"a\\nb");
    EXPECT_EQ(ReadMemo(memo, 0), u"a\r\nb");
    EXPECT_EQ(ReadMemo(memo, 5), u"a\r\nb");
}

// Moving a value passes through the stored form and must not escape it once more.
TEST(Memo, MovingKeepsTheText)
{
    CTestAttribute test(u"Memo", {u"Values=-1"});
    auto& memo = test.Get<CCorvaneTypeMemo>();
    ASSERT_TRUE(memo.AddValue(u"a\\b\nc"));
    ASSERT_TRUE(memo.MoveValueUp(1));
    EXPECT_EQ(memo.GetValue(0), u"a\\\\b\\nc");
}

TEST(Memo, OutputsCarryRealLineEnds)
{
    CTestAttribute test(u"Memo", {u"Data=max=9", u"Unicode=True", u"Default=a\\nb"});
    test.Get().SetOverride(true);
    CRecordingCreator packed;
    CreatorHandle handle = 0;
    ASSERT_TRUE(test.Get().SaveToDatabase(packed, 7, 0, handle, u""));
    EXPECT_EQ(packed.m_Calls,
              (std::vector<std::string>{"CreateAttribute 7 Value 5 0 1", "SetWideText 42 0 a\r\nb"}));
    CRecordingUnpackedCreator unpacked;
    ASSERT_TRUE(test.Get().SaveToOverride(&unpacked, 9, u"", u""));
    EXPECT_EQ(unpacked.m_Calls, (std::vector<std::string>{"CreateAttribute 9  4 Value max=9 Memo 1 1",
                                                          "SetTextLimits 42 0 9", "SetText 42 a\r\nb"}));
}

// The restore point holds the stored text, which must not be escaped a second time.
TEST(Memo, UndoAndRedoKeepTheText)
{
    CTestAttribute test(u"Memo", {u"Default=a\\nb"});
    auto& memo = test.Get<CCorvaneTypeMemo>();
    test.m_Manager.m_Undo.m_bRecording = true;
    ASSERT_TRUE(memo.SetValue(0, u"c\\d"));
    test.m_Manager.m_Undo.m_bRecording = false;
    ASSERT_EQ(test.m_Manager.m_Undo.m_Points.size(), 1u);
    CUndoRestorePoint& point = *test.m_Manager.m_Undo.m_Points[0];
    ASSERT_TRUE(point.Undo(true));
    EXPECT_EQ(memo.GetValue(0), u"a\\nb");
    ASSERT_TRUE(point.Redo());
    EXPECT_EQ(memo.GetValue(0), u"c\\\\d");
}
