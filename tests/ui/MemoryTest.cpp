// What opening and closing records leaves behind.
#include "SampleEditor.h"

#include <gtest/gtest.h>
#include <iterator>
#include <malloc.h>
#include <vector>

namespace
{
constexpr std::size_t kRound = 500;
constexpr std::size_t kRecords = 100; // Each round opens its own, over and over.

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
    ASSERT_GE(records.size(), 2 * kRecords);
    const auto open = [&](CCorvaneRecord* record)
    {
        ASSERT_TRUE(editor.Frame().ShowRecord(record, true));
        editor.List().GetList().SetSelection(0);
        CSampleEditor::Settle();
    };
    for (std::size_t i = 0; i < kRound; ++i)
        open(records[i % kRecords]);
    open(records.front());
    const std::size_t handles = GetHandleCount();
    const std::int64_t live = CCorvaneRef::GetLiveCount();
    const std::size_t before = ::mallinfo2().uordblks;
    for (std::size_t i = 0; i < kRound; ++i)
        open(records[kRecords + i % kRecords]);
    open(records.front());
    EXPECT_EQ(GetHandleCount(), handles);
    EXPECT_EQ(CCorvaneRef::GetLiveCount(), live);
    // A view alone that stayed would be more.
    EXPECT_LT(::mallinfo2().uordblks, before + kRound * 100);
}
} // namespace
