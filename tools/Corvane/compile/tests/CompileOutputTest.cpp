// What reaches the creator library, in which order, and what the user hears of it.
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
    EXPECT_EQ(Compile(), "built new 8 20 21 22 23 24 25 9");
    EXPECT_EQ(ReadPacked(), head + "attribute 8 in 5: Mass 3 0 1\n  8[0] 2\n"
                                   "attribute 9 in 5: Ally 9 0 1\n"
                                   "attribute 10 in 6: Mass 3 0 1\n  10[0] 3\n"
                                   "attribute 11 in 6: Ally 9 0 1\n  11[0] -> 7\n"
                                   "attribute 12 in 7: Mass 3 0 1\n  12[0] 1\n"
                                   "attribute 13 in 7: Ally 9 0 1\n  13[0] -> 6\n");
    Compile(0, 10);
    EXPECT_TRUE(ReadPacked().starts_with(head + "attribute 8 in 5: Mass 3 0 1\n  8[0] 20\n"));

    // What is on its way out is left out, and links to it get the handle zero.
    m_Gate.m_Pending = {u"Tracked", u"Car"};
    Compile();
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
    EXPECT_TRUE(m_Compiler.CompileDatabase(0, {}, 0));
    EXPECT_EQ(m_Scratch.ReadBytes("Game/Database/Test.Gamdb00p"), "database 1\n");
}

TEST_F(CCompileOutputTest, ProgressRunsFromZeroInEachPassAndMovesOnceInEightItems)
{
    for (int i = 0; i < 30; ++i)
        AddVehicle(("Land/Tracked/R" + std::to_string(i)).c_str(), "4", "<none>");
    Open();
    const std::size_t before = m_Questions.GetProgress().size();
    EXPECT_TRUE(m_Compiler.CompileDatabase(0, GetText(kPacked), 0));
    std::u16string told;
    for (std::size_t i = before; i < m_Questions.GetProgress().size(); ++i)
        told += m_Questions.GetProgress()[i] + u' ';
    EXPECT_EQ(told,
              u"Compile Database: Validating Database... 0% Compile Database: Compiling Categories... 0% "
              u"Compile Database: Compiling Records... 0% 15% 39% 63% 87% "
              u"Compile Database: Compiling Attributes... 0% 15% 39% 63% 87% "
              u"Compile Database: Saving to disk... 100% Compile Database: Done. Compile Database: Done. ");
}
} // namespace
