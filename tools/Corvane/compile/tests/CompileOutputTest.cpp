// What reaches the creator library, in which order.
#include "CompileFixture.h"

namespace
{
using CCompileOutputTest = CCompileFixture;

// A category as the compare keeps one: flagged as a system category, but no file stands for it.
class CSpecialCategory final : public CCorvaneCategory
{
public:
    explicit CSpecialCategory(CCorvaneMgr& manager)
        : CCorvaneCategory(manager, u"Results", {}, {}, nullptr, nullptr, CATEGORY_FLAGS_SPECIAL)
    {
    }
    [[nodiscard]] int GetCategoryType() const override { return 1; }
};

TEST_F(CCompileOutputTest, ThreePassesGiveCategoriesRecordsAndAttributesOfTheBuild)
{
    Open();
    m_pManager->AddCategory(new CSpecialCategory(*m_pManager));
    // The record of the virtual category "Light" lies in its system category; that category itself and the
    // special one do not reach the output.
    const std::string head = "database 1\n"
                             "category 2: Land (Vehicle)\n"
                             "category 3: Land/Tracked (Vehicle)\n"
                             "category 4: Store ()\n"
                             "record 5 in 2: Car\n"
                             "record 6 in 3: Tank\n"
                             "record 7 in 2: Bike\n";
    EXPECT_TRUE(Compile());
    EXPECT_EQ(ReadPacked(), head + "attribute 8 in 5: Mass 3 0 1\n  8[0] 2\n"
                                   "attribute 9 in 5: Ally 9 0 1\n"
                                   "attribute 10 in 6: Mass 3 0 1\n  10[0] 3\n"
                                   "attribute 11 in 6: Ally 9 0 1\n  11[0] -> 7\n"
                                   "attribute 12 in 7: Mass 3 0 1\n  12[0] 1\n"
                                   "attribute 13 in 7: Ally 9 0 1\n  13[0] -> 6\n");
    EXPECT_EQ(m_Events, (std::vector<int>{8, 20, 21, 22, 23, 24, 25, 9}));
    EXPECT_TRUE(m_pManager->GetCompiledRecords().IsEmpty());
    EXPECT_TRUE(m_pManager->GetCompiledCategories().IsEmpty());

    EXPECT_TRUE(Compile(0, 10));
    EXPECT_EQ(ReadPacked().substr(head.size(), 43), "attribute 8 in 5: Mass 3 0 1\n  8[0] 20\nattr");
    EXPECT_TRUE(IsClean());
}

TEST_F(CCompileOutputTest, WhatIsOnItsWayOutIsLeftOutAndLinksToItGetHandleZero)
{
    m_Gate.m_Pending = {u"Tracked", u"Car"};
    EXPECT_TRUE(Compile());
    EXPECT_EQ(ReadPacked(), "database 1\n"
                            "category 2: Land (Vehicle)\n"
                            "category 3: Store ()\n"
                            "record 4 in 2: Bike\n"
                            "attribute 5 in 4: Mass 3 0 1\n  5[0] 1\n"
                            "attribute 6 in 4: Ally 9 0 1\n  6[0] -> 0\n");
}

TEST_F(CCompileOutputTest, EmptyDatabaseCompilesBesideItsRootFile)
{
    std::filesystem::remove_all(GetPath(""));
    WriteRoot();
    Open();
    const auto before = static_cast<std::ptrdiff_t>(m_Questions.GetProgress().size());
    EXPECT_TRUE(m_Compiler.CompileDatabase(0, {}, 0));
    EXPECT_EQ(m_Scratch.ReadBytes("Game/Database/Test.Gamdb00p"), "database 1\n");
    const std::vector<std::u16string>& told = m_Questions.GetProgress();
    EXPECT_TRUE(std::all_of(told.begin() + before, told.end(),
                            [](const std::u16string& line)
                            { return line == u"0%" || !line.ends_with(u"%"); }));
}

TEST_F(CCompileOutputTest, ProgressRunsFromZeroInEachPassAndBreathesOnceInEightItems)
{
    for (int i = 0; i < 100; ++i)
        AddRecord("Store/Many/R" + std::to_string(i), "Vehicle");
    AddCategory("Store/Many", "Vehicle");
    Open();
    int pumps = 0;
    m_Questions.m_Cancel = [&pumps](std::u16string_view) { return ++pumps < 0; };
    EXPECT_TRUE(m_Compiler.CompileDatabase(0, GetTarget(), 0));
    // One update before the validation, each pass and the save; then one for eight of the 108 categories and
    // records that each of the last two passes visits.
    EXPECT_EQ(pumps, 5 + 2 * (108 / 8));

    const std::vector<std::u16string>& told = m_Questions.GetProgress();
    const auto records = std::find(told.begin(), told.end(), u"Compile Database: Compiling Records...");
    ASSERT_GE(told.end() - records, 16);
    EXPECT_EQ(records[1], u"0%");
    EXPECT_EQ(records[14], u"95%") << "98 of 103 records are done at the 104th visit.";
    EXPECT_EQ(records[15], u"Compile Database: Compiling Attributes...");
    EXPECT_EQ(records[16], u"0%");
    EXPECT_EQ(told.back(), u"Compile Database: Done.");
}
} // namespace
