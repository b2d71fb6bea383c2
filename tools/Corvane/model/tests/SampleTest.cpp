// The sample game's whole database: loads without a word, counts as its makers count it, and a forced save
// leaves every byte.
#include "CorvaneType.h"
#include "CustomFile.h"
#include "TestDatabase.h"
#include "Unicode.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace
{
class Sample : public testing::Test, protected CTestDatabase
{
protected:
    void SetUp() override
    {
        fs::remove_all(m_Scratch.GetPath() / "Game");
        fs::copy(CORVANE_SAMPLE_OUTPOST, m_Scratch.GetPath() / "Game", fs::copy_options::recursive);
        ASSERT_TRUE(Get().OpenDatabase(GetText("Outpost.Gamdb00s")));
    }
};
} // namespace

TEST_F(Sample, LoadsWholeAndCounts)
{
    std::size_t systems = 0, virtuals = 0, records = 0, attributes = 0;
    Get().EnumerateCategories([&](CCorvaneCategory& category)
                              { ++(category.IsSystem() ? systems : virtuals); });
    std::map<std::uint32_t, std::size_t> available;
    Get().EnumerateRecords(
        [&](CCorvaneRecord& record)
        {
            ++records;
            attributes += record.GetAttributeList().size();
            for (const CRef<CCorvaneAttrib>& attrib : record.GetAttributeList())
            {
                for (const std::uint32_t build : {0U, 7U, 10U, 20U})
                    available[build] += Get().IsAttributeAvailableForBuild(attrib.Get(), build) ? 1 : 0;
            }
            return true;
        });
    EXPECT_EQ(GetTitles(), "");
    EXPECT_EQ(Get().GetSchemas().size(), 15U);
    EXPECT_EQ((std::vector<std::size_t>{systems, virtuals, records, attributes}),
              (std::vector<std::size_t>{30, 26, 230, 5822}));
    const std::map<std::uint32_t, std::size_t> expected{{0, 4895}, {7, 4942}, {10, 5097}, {20, 4845}};
    EXPECT_EQ(available, expected);
    std::size_t depth = 0;
    for (const CCorvaneRecord* record = &Record("World/Objectives/Story/Step 6"); record != nullptr;
         record = record->GetParent())
        ++depth;
    EXPECT_EQ(depth, 6U);
    EXPECT_EQ(Value("Actors/Enemies/Hollow/Frost Runner", "BodyRemains"), "45000");
    EXPECT_EQ(Value("Structures/Walls/Steel Gate", "RepairRate"), "12.000000");
}

TEST_F(Sample, AForcedSaveLeavesEveryByte)
{
    const Snapshot before = TakeSnapshot();
    ASSERT_GT(before.size(), 270U);
    EXPECT_TRUE(Get().SaveDatabase({}, true));
    std::size_t structs = 0;
    Get().EnumerateCustomFiles(
        [&](ICorvaneCustomFile& file)
        {
            file.SetModified(true);
            EXPECT_TRUE(file.Save());
            ++structs;
        });
    EXPECT_EQ(structs, 5U);
    EXPECT_EQ(GetChanges(before), "");
    EXPECT_EQ(GetTitles(), "");
}
