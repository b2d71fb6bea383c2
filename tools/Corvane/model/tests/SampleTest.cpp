// The sample game's whole database: loads without a word, counts as its makers count it, and a forced save
// leaves every byte.
#include "CorvaneType.h"
#include "TestDatabase.h"
#include "Unicode.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace
{
class Sample : public testing::Test
{
protected:
    void SetUp() override
    {
        fs::remove_all(m_Database.m_Scratch.GetPath() / "Game");
        fs::copy(CORVANE_SAMPLE_OUTPOST, m_Database.m_Scratch.GetPath() / "Game",
                 fs::copy_options::recursive);
        ASSERT_TRUE(m_Database.Get().OpenDatabase(m_Database.GetText("Outpost.Gamdb00s")));
    }

    CTestDatabase m_Database;
};
} // namespace

TEST_F(Sample, LoadsWholeAndCounts)
{
    std::size_t systems = 0, virtuals = 0, records = 0, attributes = 0;
    m_Database.Get().EnumerateCategories([&](CCorvaneCategory& category)
                                         { ++(category.IsSystem() ? systems : virtuals); });
    std::map<std::uint32_t, std::size_t> available;
    m_Database.Get().EnumerateRecords(
        [&](CCorvaneRecord& record)
        {
            ++records;
            attributes += record.GetAttributeList().size();
            for (const CRef<CCorvaneAttrib>& attrib : record.GetAttributeList())
            {
                for (const std::uint32_t build : {0U, 7U, 10U, 20U})
                    available[build] +=
                        m_Database.Get().IsAttributeAvailableForBuild(attrib.Get(), build) ? 1 : 0;
            }
            return true;
        });
    EXPECT_EQ(m_Database.GetTitles(), "");
    EXPECT_EQ(m_Database.Get().GetSchemas().size(), 15U);
    EXPECT_EQ(systems, 30U);
    EXPECT_EQ(virtuals, 26U);
    EXPECT_EQ(records, 230U);
    EXPECT_EQ(attributes, 4094U);
    const std::map<std::uint32_t, std::size_t> expected{{0, 3525}, {7, 3572}, {10, 3727}, {20, 3692}};
    EXPECT_EQ(available, expected);
}

TEST_F(Sample, ResolvesItsValues)
{
    std::size_t depth = 0;
    for (const CCorvaneRecord* record = &m_Database.Record("World/Objectives/Story/Step 6");
         record != nullptr; record = record->GetParent())
        ++depth;
    EXPECT_EQ(depth, 6U);
    EXPECT_EQ(m_Database.Value("Actors/Enemies/Hollow/Frost Runner", "BodyRemains"), "45000");
    EXPECT_EQ(m_Database.Value("Structures/Walls/Steel Gate", "RepairRate"), "12.000000");
}

TEST_F(Sample, AForcedSaveLeavesEveryByte)
{
    const CTestDatabase::Snapshot before = m_Database.TakeSnapshot();
    ASSERT_GT(before.size(), 270U);
    EXPECT_TRUE(m_Database.Get().SaveDatabase({}, true));
    EXPECT_EQ(m_Database.GetChanges(before), "");
    EXPECT_EQ(m_Database.GetTitles(), "");
}
