// What a load makes of a tree of files: objects, order, events, links, and what it leaves out with which
// words.
#include "CorvaneSchemaAttribData.h"
#include "CorvaneType.h"
#include "TestDatabase.h"
#include "Unicode.h"

#include <gmock/gmock.h>

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;

namespace
{
constexpr std::string_view kDamage = "[Attrib.Damage.0]\nType=Integer\nDefault=5\n\n";

constexpr std::string_view kWeapons = "Group/Weapons/pistol Group/Weapons/Heavy/Cannon "
                                      "Group/Weapons/Melee/Sharp/Axe Group/Weapons/Melee/Blunt/Club ";

// Weapons with a sub-directory, two virtual groups, and a category that holds nothing itself.
void WriteWeapons(const CTestDatabase& database)
{
    database.AddSchema("Weapon", kDamage);
    database.AddCategory("Group", "");
    database.AddCategory("Group/Weapons", "Weapon");
    database.AddCategory("Group/Weapons/Heavy", "Weapon");
    database.AddRecord("Group/Weapons/pistol", "Weapon", "[Attrib.Damage]\nValue.0000=7\n");
    database.AddRecord("Group/Weapons/Axe", "Weapon", {}, "VirtualRelativeCategory=Melee\\Sharp\n");
    database.AddRecord("Group/Weapons/Club", "Weapon", {}, "VirtualRelativeCategory=Melee/Blunt\n");
    database.AddRecord("Group/Weapons/Heavy/Cannon", "Weapon");
}

class Load : public testing::Test, protected CTestDatabase
{
};
} // namespace

TEST_F(Load, MakesTheTreeInAFixedOrderAndTellsIt)
{
    WriteWeapons(*this);
    ASSERT_TRUE(Open());
    EXPECT_EQ(GetTitles(), "");
    EXPECT_EQ(GetRecordList(), kWeapons);
    EXPECT_THAT(m_Events, ElementsAre(2, 3, 0, 10, 11, 12, 26, 26, 26, 13, 14, 26, 32, 26, 32, 29, 26, 32, 29,
                                      29, 29, 15, 65, 1, 60));
    EXPECT_FALSE(m_Run.Test(APP_LOADING));
    EXPECT_FALSE(Get().IsDirty());
    EXPECT_EQ(Value("Group/Weapons/pistol", "Damage"), "7");
    EXPECT_EQ(Value("Group/Weapons/Heavy/Cannon", "Damage"), "5");
}

TEST_F(Load, ReadsTheRootFile)
{
    Write("Root.Gamdb00s", "[General]\nDatabase={11111111-2222-3333-4444-555555555555}\n");
    ASSERT_TRUE(Open());
    const SRootFile& root = Get().GetRootFile();
    EXPECT_EQ(root.m_sName, u"Unknown Database");
    EXPECT_EQ(root.m_sBuild, GetText("Database.Gamdb00p"));
    EXPECT_EQ(root.m_sOverrideDatabase, GetText("MPCustomizations.txt"));
    EXPECT_EQ(root.m_sPostBuildStep + root.m_sStringDatabase, u"");

    Write("Root.Gamdb00s", "[General]\nDatabase={11111111-2222-3333-4444-555555555555}\n"
                           "Build=../x/Out.Gamdb00p\nStringDatabase=Text/../Strings.mo\n"
                           "PostBuildStep=step %GAMEDIR%|%RUNTIMEDIR% %SILENT% %TOOLSDIR%\n");
    m_Run.m_bSilent = true;
    ASSERT_TRUE(Open());
    EXPECT_EQ(root.m_sBuild, m_Scratch.Text("Game/x/Out.Gamdb00p"));
    EXPECT_EQ(root.m_sStringDatabase, GetText("Strings.mo"));
    EXPECT_EQ(root.m_sPostBuildStep, m_Scratch.Text("program/step ") + m_Scratch.Text("Game/Data|") +
                                         m_Scratch.Text("Game 1 ") + m_Scratch.Text("program"));
}

TEST_F(Load, FindsByPathAndFile)
{
    WriteWeapons(*this);
    ASSERT_TRUE(Open());
    CCorvaneMgr& manager = Get();
    CCorvaneRecord& axe = Record("group/WEAPONS/axe");
    CCorvaneCategory& weapons = Category("Group/Weapons");
    std::u16string path, display, category, none;
    EXPECT_TRUE(manager.GetRecordPath(&axe, path) && manager.GetRecordDisplayPath(&axe, display) &&
                manager.GetCategoryPath(axe.GetCategory(), category));
    EXPECT_FALSE(manager.GetCategoryPath(nullptr, none));
    EXPECT_EQ(ToNarrow(path + u" " + display + u" " + category + u" " + none),
              "Group/Weapons/Axe Group/Weapons/Melee/Sharp/Axe Group/Weapons/Melee/Sharp <Invalid Category>");
    EXPECT_EQ(manager.GetCategoryForRecord(&axe), &weapons);
    EXPECT_EQ(manager.GetSystemCategory(axe.GetCategory()), &weapons);
    EXPECT_EQ(manager.FindRecordByFile(GetText("Group/Weapons/PISTOL.record")),
              &Record("Group/Weapons/pistol"));
    EXPECT_EQ(manager.FindCategoryByFile(GetText("Group/Weapons/x.y")), &weapons);
    EXPECT_EQ(manager.FindRecord(u"Melee/Sharp/Axe", &weapons), &axe);
    EXPECT_EQ(manager.FindRecord(u"Axe", &weapons), &axe);
    // What no path reaches: a record in a system child, no category at all, a piece too many.
    for (const char16_t* wrong : {u"Cannon", u"Sharp/Axe", u"", u"Heavy/", u"Melee//Axe"})
        EXPECT_EQ(manager.FindRecord(wrong, &weapons), nullptr) << ToNarrow(wrong);
    EXPECT_EQ(manager.FindRecord(u"Axe", nullptr), nullptr);
}

TEST_F(Load, ConnectsParentsAcrossCategoriesAndAsksForMissingOnes)
{
    AddSchema("S", kDamage);
    AddCategory("A", "S");
    AddCategory("B", "S");
    constexpr std::string_view kInherit = "[Attrib.Damage]\nInherit=true\nValue.0000=1\n";
    const auto child = [&](std::string_view path, const std::string& parent)
    { AddRecord(path, "S", "[Hierarchy]\nRecord=" + parent + "\n\n" + std::string(kInherit)); };
    child("A/Child", "b/parent");
    AddRecord("B/Parent", "S", "[Attrib.Damage]\nValue.0000=9\n");
    child("A/Lost", "B/Nobody");
    child("A/Self", "A/Self");
    child("A/Ring1", "A/Ring2");
    child("A/Ring2", "A/Ring1");
    AddRecord("B/Alone", "S", kInherit);
    m_Questions.Prepare(u"Missing Referencer Record", {EAnswer::Yes, EAnswer::No});
    ASSERT_TRUE(Open());

    CCorvaneRecord& parent = Record("B/Parent");
    EXPECT_EQ(Record("A/Child").GetParent(), &parent);
    ASSERT_EQ(parent.GetReferencees().size(), 1U);
    EXPECT_EQ(parent.GetReferencees()[0], &Record("A/Child"));
    EXPECT_EQ(Value("A/Child", "Damage"), "9");
    EXPECT_EQ(Record("A/Child").GetHierarchy(), u"");
    // A record without a parent does not inherit, whatever its file says.
    EXPECT_FALSE(Attrib("B/Alone", "Damage").GetInherit());

    // Lost, the second of the ring, and the record that names itself.
    EXPECT_EQ(m_Questions.Count(u"Missing Referencer Record"), 3U);
    EXPECT_EQ(ToNarrow(m_Questions.GetQuestions()[0].m_sText),
              "The following record referencer cannot be found.  Would you like to disconnect the referencee "
              "from the referencer and use it as a stand alone record?\n\nReferencer: "
              "B/Nobody\n\nReferencee: A/Lost");
    EXPECT_FALSE(Attrib("A/Lost", "Damage").GetInherit()) << "answered Yes";
    EXPECT_TRUE(Attrib("A/Self", "Damage").GetInherit()) << "answered No";
    EXPECT_EQ(Value("A/Self", "Damage"), "1");
    EXPECT_EQ(Record("A/Ring1").GetParent(), &Record("A/Ring2"));
    EXPECT_EQ(Record("A/Ring2").GetParent(), nullptr);
}

TEST_F(Load, MakesVirtualCategoriesFromOffsets)
{
    AddSchema("S", kDamage);
    AddCategory("C", "S");
    AddCategory("C/Sys", "S");
    AddRecord("C/1", "S", {}, "VirtualRelativeCategory=A\\B\n");
    AddRecord("C/2", "S", {}, "VirtualRelativeCategory=a/b\n");
    AddRecord("C/3", "S", {}, "VirtualRelativeCategory=Sys/X\n");
    AddRecord("C/4", "S", {}, "VirtualRelativeCategory=Sys/X\n");
    AddRecord("C/5", "Other", {}, "VirtualRelativeCategory=Empty\n");
    ASSERT_TRUE(Open());
    // A name that a system child has makes a group of its own for each record.
    EXPECT_EQ(GetRecordList(), "C/A/B/1 C/A/B/2 C/Sys (2)/X/3 C/Sys (3)/X/4 ");
    std::u16string offset;
    EXPECT_TRUE(Get().GetVirtualRelativeCategoryOffset(&Record("C/3"), offset));
    EXPECT_EQ(offset, u"Sys (2)/X");
    EXPECT_TRUE(Category("C/Empty").GetRecords().empty()) << "a refused record leaves its group";
    EXPECT_EQ(Category("C/A").GetSchema(), &Schema("S"));
}

TEST_F(Load, LeavesOutWhatDoesNotBelong)
{
    WriteWeapons(*this);
    AddRecord("Stray", "Weapon");              // The root is no category.
    AddRecord("Group/Weapons/Alien", "Other"); // Another schema's, without a word.
    AddCategory("NoCategory/Below", "Weapon"); // Nothing leads there.
    AddSchema("../NoCategory/Hidden", "");     // Schemas are found everywhere.
    AddCategory("Unknown", "Missing");
    AddCategory("Unknown/Below", "Weapon");
    AddRecord("Group/Loose", "Weapon");
    Write("Group/Weapons/readme.txt", "[Record]\n");
    const CTestDatabase::Snapshot before = TakeSnapshot();
    ASSERT_TRUE(Open());
    EXPECT_EQ(GetRecordList(), kWeapons);
    EXPECT_EQ(Get().GetRootCategories().size(), 1U);
    EXPECT_EQ(Get().GetSchemas().size(), 2U);
    ASSERT_EQ(GetTitles(), "Invalid Schema;Invalid Schema;");
    EXPECT_EQ(m_Questions.GetQuestions()[0].m_sText,
              u"The category 'Unknown' uses an invalid schema 'Missing'.  The category will not be loaded.");
    EXPECT_THAT(ToNarrow(m_Questions.GetQuestions()[1].m_sText), HasSubstr("records (1) are not loaded"));
    Close();
    EXPECT_EQ(GetChanges(before), "");
    m_nExpectedAsserts = 1; // A record below a category without a schema.
}

TEST_F(Load, NamesThatDifferInCaseAreOne)
{
    AddSchema("S", kDamage);
    AddCategory("Cat", "s");
    AddCategory("cat", "S");
    AddCategory("cat/Sub", "S");
    AddRecord("Cat/R", "s", "[Attrib.Damage]\nValue.0000=1\n");
    AddRecord("Cat/r", "S", "[Attrib.Damage]\nValue.0000=2\n");
    AddRecord("cat/Sub/Deep", "S");
    ASSERT_TRUE(Open());
    // The first in the order of the disk stands; the walk goes on below the second directory.
    EXPECT_EQ(GetRecordList(), "Cat/R Cat/Sub/Deep ");
    EXPECT_EQ(Value("CAT/r", "Damage"), "1");
}

TEST_F(Load, AsksTheGamesLibraryForItsBuild)
{
    m_Scratch.WriteBytes("Game/Game.proj00", "[Project Binaries]\nGameServer=Outpost.dll\n");
    fs::create_directory(m_Scratch.GetPath() / "program");
    fs::create_symlink(CORVANE_OUTPOST_LIBRARY, m_Scratch.GetPath() / "program/libOutpost.so");
    ASSERT_TRUE(Open());
    EXPECT_EQ(Get().GetActiveBuild(), 7U);
    EXPECT_EQ(Get().GetBuildNumber(ToWide(CORVANE_OUTPOST_LIBRARY)), 7U);
    EXPECT_EQ(Get().GetBuildNumber(GetText("nothing.so")), 0U);
    EXPECT_EQ(Get().GetBuildNumber(GetText("Root.Gamdb00s")), 0U) << "no library";
}

TEST_F(Load, TellsDirectoryLoopsOnceAndReplacesTheLoadBefore)
{
    WriteWeapons(*this);
    AddRecord("Group/Weapons/Zap", "Weapon");
    ASSERT_TRUE(Open());
    fs::remove(GetPath("Group/Weapons/Zap.record"));
    fs::create_directory_symlink(GetPath(""), GetPath("Group/Up"));
    fs::create_directory_symlink(GetPath("Group"), GetPath("Group/Weapons/Loop"));
    ASSERT_TRUE(Open());
    EXPECT_EQ(GetTitles(), "Directory Loop;Directory Loop;");
    EXPECT_EQ(Get().GetSchemas().size(), 1U);
    EXPECT_EQ(GetRecordList(), kWeapons);
    fs::remove(GetPath("Root.Gamdb00s"));
    EXPECT_FALSE(Open() || Get().IsOpen()) << "a failed load leaves no database behind";
    EXPECT_EQ(GetRecordList(), "");
    EXPECT_EQ(m_Events.back(), 1);
}

TEST(LoadBuild, ChoosesTheActiveBuild)
{
    // The root file has version 3; there is no game library, whose number is 0 then. Keys of the user's file,
    // null for no file; whether the expert mode is on; the build; whether a toggle leaves a build as it is.
    using Row = std::tuple<const char*, bool, std::uint32_t, bool>;
    for (const auto& [keys, expert, build, stays] :
         {Row{"Version=3\nActive.Build=12\n", true, 12, false},
          Row{"Version=3\nActive.Build=12\n", false, 0, false},
          Row{"Version=2\nActive.Build=12\n", true, 0, true}, Row{"Version=4\n", true, 0, true},
          Row{"Version=3\nActive.Build=12\nUse.Game.Build=True\n", true, 0, false},
          Row{nullptr, true, 0, true}})
    {
        CTestDatabase database;
        if (keys)
            database.m_Scratch.WriteUtf16(
                "config/Harrowgate Works/ZORN/Corvane/{11111111-2222-3333-4444-555555555555}.ini",
                u"[Database]\n" + ToWide(keys));
        database.m_Run.Set(APP_EXPERT, expert);
        ASSERT_TRUE(database.Open());
        EXPECT_EQ(database.Get().GetActiveBuild(), build) << (keys ? keys : "none");
        // A toggle of the mode chooses by the same rules; what has no stored build stays as it is.
        database.Get().SetActiveBuild(5);
        database.Get().ChooseActiveBuild();
        EXPECT_EQ(database.Get().GetActiveBuild(), stays ? 5U : build) << (keys ? keys : "none");
        EXPECT_EQ(database.m_Events.back(), 60);
    }
}
