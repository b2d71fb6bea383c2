// What opening and closing records leaves behind.
#include "SampleEditor.h"

#include <gtest/gtest.h>
#include <iterator>
#include <malloc.h>
#include <vector>

namespace
{
constexpr std::size_t kRound = 500;
constexpr std::size_t kRecords = 100; // Each round ends with the same one.

std::size_t GetHandleCount()
{
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                                                  std::filesystem::directory_iterator()));
}

TEST(EditorMemory, IsFlatBetweenThe500thAndThe1000thRecord)
{
    CSampleEditor editor;
    std::vector<CCorvaneRecord*> records;
    editor.Manager().EnumerateRecords(
        [&](CCorvaneRecord& record)
        {
            records.push_back(&record);
            return true;
        });
    ASSERT_GE(records.size(), kRecords);
    const auto open = [&](std::size_t first)
    {
        for (std::size_t i = first; i < first + kRound; ++i)
        {
            ASSERT_TRUE(editor.Frame().ShowRecord(records[i % kRecords], true));
            editor.List().GetList().SetSelection(0);
            CSampleEditor::Settle();
        }
    };
    open(0);
    const std::size_t handles = GetHandleCount();
    const std::int64_t live = CCorvaneRef::GetLiveCount();
    const std::size_t before = ::mallinfo2().uordblks;
    open(kRound);
    EXPECT_EQ(GetHandleCount(), handles);
    EXPECT_EQ(CCorvaneRef::GetLiveCount(), live);
    // A view alone that stayed would be more.
    EXPECT_LT(::mallinfo2().uordblks, before + kRound * 100);
}
} // namespace
