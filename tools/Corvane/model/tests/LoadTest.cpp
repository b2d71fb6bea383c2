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
} // namespace

TEST(Load, MakesTheTreeInAFixedOrderAndTellsIt)
{
    CTestDatabase database;
    WriteWeapons(database);
    ASSERT_TRUE(database.Open());
    EXPECT_EQ(database.GetTitles(), "");
    EXPECT_EQ(database.GetRecordList(), "Group/Weapons/pistol Group/Weapons/Heavy/Cannon "
                                        "Group/Weapons/Melee/Sharp/Axe Group/Weapons/Melee/Blunt/Club ");
    EXPECT_THAT(database.m_Events, ElementsAre(2, 3, 0, 10, 11, 12, 26, 26, 26, 13, 14, 26, 32, 26, 32, 29,
                                               26, 32, 29, 29, 29, 15, 65, 1));
    EXPECT_FALSE(database.m_Run.Test(APP_LOADING));
    EXPECT_FALSE(database.Get().IsDirty());
    EXPECT_EQ(database.Value("Group/Weapons/pistol", "Damage"), "7");
    EXPECT_EQ(database.Value("Group/Weapons/Heavy/Cannon", "Damage"), "5");
}

TEST(Load, ReadsTheRootFile)
{
    CTestDatabase database;
    database.Write("Root.Gamdb00s", "[General]\nDatabase={11111111-2222-3333-4444-555555555555}\n");
    ASSERT_TRUE(database.Open());
    const SRootFile& root = database.Get().GetRootFile();
    EXPECT_EQ(root.m_sName, u"Unknown Database");
    EXPECT_EQ(root.m_sBuild, database.GetText("Database.Gamdb00p"));
    EXPECT_EQ(root.m_sOverrideDatabase, database.GetText("MPCustomizations.txt"));
    EXPECT_EQ(root.m_sPostBuildStep + root.m_sStringDatabase, u"");

    database.Write("Root.Gamdb00s", "[General]\nDatabase={11111111-2222-3333-4444-555555555555}\n"
                                    "Build=../x/Out.Gamdb00p\nStringDatabase=Text/../Strings.mo\n"
                                    "PostBuildStep=step %GAMEDIR%|%RUNTIMEDIR% %SILENT% %TOOLSDIR%\n");
    database.m_Run.m_bSilent = true;
    ASSERT_TRUE(database.Open());
    EXPECT_EQ(root.m_sBuild, database.m_Scratch.Text("Game/x/Out.Gamdb00p"));
    EXPECT_EQ(root.m_sStringDatabase, database.GetText("Strings.mo"));
    EXPECT_EQ(root.m_sPostBuildStep,
              database.m_Scratch.Text("program/step ") + database.m_Scratch.Text("Game/Data|") +
                  database.m_Scratch.Text("Game 1 ") + database.m_Scratch.Text("program"));
}

TEST(Load, FindsByPathAndFile)
{
    CTestDatabase database;
    WriteWeapons(database);
    ASSERT_TRUE(database.Open());
    CCorvaneMgr& manager = database.Get();
    CCorvaneRecord& axe = database.Record("group/WEAPONS/axe");
    CCorvaneCategory& weapons = database.Category("Group/Weapons");
    std::u16string path;
    EXPECT_TRUE(manager.GetRecordPath(&axe, path));
    EXPECT_EQ(path, u"Group/Weapons/Axe");
    EXPECT_TRUE(manager.GetRecordDisplayPath(&axe, path));
    EXPECT_EQ(path, u"Group/Weapons/Melee/Sharp/Axe");
    EXPECT_TRUE(manager.GetCategoryPath(axe.GetCategory(), path));
    EXPECT_EQ(path, u"Group/Weapons/Melee/Sharp");
    EXPECT_FALSE(manager.GetCategoryPath(nullptr, path));
    EXPECT_EQ(path, u"<Invalid Category>");

    EXPECT_EQ(manager.GetCategoryForRecord(&axe), &weapons);
    EXPECT_EQ(manager.GetSystemCategory(axe.GetCategory()), &weapons);
    EXPECT_EQ(manager.FindRecordByFile(database.GetText("Group/Weapons/PISTOL.record")),
              &database.Record("Group/Weapons/pistol"));
    EXPECT_EQ(manager.FindCategoryByFile(database.GetText("Group/Weapons/x.y")), &weapons);
    EXPECT_EQ(manager.FindRecord(u"Melee/Sharp/Axe", &weapons), &axe);
    EXPECT_EQ(manager.FindRecord(u"Axe", &weapons), &axe);
    // What no path reaches: a record in a system child, no category at all, a piece too many.
    for (const char16_t* wrong : {u"Cannon", u"Sharp/Axe", u"", u"Heavy/", u"Melee//Axe"})
        EXPECT_EQ(manager.FindRecord(wrong, &weapons), nullptr) << ToNarrow(wrong);
    EXPECT_EQ(manager.FindRecord(u"Axe", nullptr), nullptr);
}

TEST(Load, ConnectsParentsAcrossCategoriesAndAsksForMissingOnes)
{
    CTestDatabase database;
    database.AddSchema("S", kDamage);
    database.AddCategory("A", "S");
    database.AddCategory("B", "S");
    constexpr std::string_view kInherit = "[Attrib.Damage]\nInherit=true\nValue.0000=1\n";
    const auto child = [&](std::string_view path, const std::string& parent)
    { database.AddRecord(path, "S", "[Hierarchy]\nRecord=" + parent + "\n\n" + std::string(kInherit)); };
    child("A/Child", "b/parent");
    database.AddRecord("B/Parent", "S", "[Attrib.Damage]\nValue.0000=9\n");
    child("A/Lost", "B/Nobody");
    child("A/Self", "A/Self");
    child("A/Ring1", "A/Ring2");
    child("A/Ring2", "A/Ring1");
    database.AddRecord("B/Alone", "S", kInherit);
    database.m_Questions.Prepare(u"Missing Referencer Record", {EAnswer::Yes, EAnswer::No});
    ASSERT_TRUE(database.Open());

    CCorvaneRecord& parent = database.Record("B/Parent");
    EXPECT_EQ(database.Record("A/Child").GetParent(), &parent);
    ASSERT_EQ(parent.GetReferencees().size(), 1U);
    EXPECT_EQ(parent.GetReferencees()[0], &database.Record("A/Child"));
    EXPECT_EQ(database.Value("A/Child", "Damage"), "9");
    EXPECT_EQ(database.Record("A/Child").GetHierarchy(), u"");
    // A record without a parent does not inherit, whatever its file says.
    EXPECT_FALSE(database.Attrib("B/Alone", "Damage").GetInherit());

    // Lost, the second of the ring, and the record that names itself.
    EXPECT_EQ(database.m_Questions.Count(u"Missing Referencer Record"), 3U);
    EXPECT_EQ(ToNarrow(database.m_Questions.GetQuestions()[0].m_sText),
              "The following record referencer cannot be found.  Would you like to disconnect the referencee "
              "from the "
              "referencer and use it as a stand alone record?\n\nReferencer: B/Nobody\n\nReferencee: A/Lost");
    EXPECT_FALSE(database.Attrib("A/Lost", "Damage").GetInherit()) << "answered Yes";
    EXPECT_TRUE(database.Attrib("A/Self", "Damage").GetInherit()) << "answered No";
    EXPECT_EQ(database.Value("A/Self", "Damage"), "1");
    EXPECT_EQ(database.Record("A/Ring1").GetParent(), &database.Record("A/Ring2"));
    EXPECT_EQ(database.Record("A/Ring2").GetParent(), nullptr);
}

TEST(Load, MakesVirtualCategoriesFromOffsets)
{
    CTestDatabase database;
    database.AddSchema("S", kDamage);
    database.AddCategory("C", "S");
    database.AddCategory("C/Sys", "S");
    database.AddRecord("C/1", "S", {}, "VirtualRelativeCategory=A\\B\n");
    database.AddRecord("C/2", "S", {}, "VirtualRelativeCategory=a/b\n");
    database.AddRecord("C/3", "S", {}, "VirtualRelativeCategory=Sys/X\n");
    database.AddRecord("C/4", "S", {}, "VirtualRelativeCategory=Sys/X\n");
    database.AddRecord("C/5", "Other", {}, "VirtualRelativeCategory=Empty\n");
    ASSERT_TRUE(database.Open());
    // A name that a system child has makes a group of its own for each record.
    EXPECT_EQ(database.GetRecordList(), "C/A/B/1 C/A/B/2 C/Sys (2)/X/3 C/Sys (3)/X/4 ");
    std::u16string offset;
    EXPECT_TRUE(database.Get().GetVirtualRelativeCategoryOffset(&database.Record("C/3"), offset));
    EXPECT_EQ(offset, u"Sys (2)/X");
    EXPECT_TRUE(database.Category("C/Empty").GetRecords().empty()) << "a refused record leaves its group";
    EXPECT_EQ(database.Category("C/A").GetSchema(), &database.Schema("S"));
}

TEST(Load, LeavesOutWhatDoesNotBelong)
{
    CTestDatabase database;
    WriteWeapons(database);
    database.AddRecord("Stray", "Weapon");              // The root is no category.
    database.AddRecord("Group/Weapons/Alien", "Other"); // Another schema's, without a word.
    database.AddCategory("NoCategory/Below", "Weapon"); // Nothing leads there.
    database.AddSchema("../NoCategory/Hidden", "");     // Schemas are found everywhere.
    database.AddCategory("Unknown", "Missing");
    database.AddCategory("Unknown/Below", "Weapon");
    database.AddRecord("Group/Loose", "Weapon");
    database.Write("Group/Weapons/readme.txt", "[Record]\n");
    const CTestDatabase::Snapshot before = database.TakeSnapshot();
    ASSERT_TRUE(database.Open());
    EXPECT_EQ(database.GetRecordList(), "Group/Weapons/pistol Group/Weapons/Heavy/Cannon "
                                        "Group/Weapons/Melee/Sharp/Axe Group/Weapons/Melee/Blunt/Club ");
    EXPECT_EQ(database.Get().GetRootCategories().size(), 1U);
    EXPECT_EQ(database.Get().GetSchemas().size(), 2U);
    ASSERT_EQ(database.GetTitles(), "Invalid Schema;Invalid Schema;");
    EXPECT_EQ(database.m_Questions.GetQuestions()[0].m_sText,
              u"The category 'Unknown' uses an invalid schema 'Missing'.  The category will not be loaded.");
    EXPECT_THAT(ToNarrow(database.m_Questions.GetQuestions()[1].m_sText),
                HasSubstr("records (1) are not loaded"));
    database.Close();
    EXPECT_EQ(database.GetChanges(before), "");
    database.m_nExpectedAsserts = 1; // A record below a category without a schema.
}

TEST(Load, NamesThatDifferInCaseAreOne)
{
    CTestDatabase database;
    database.AddSchema("S", kDamage);
    database.AddCategory("Cat", "s");
    database.AddCategory("cat", "S");
    database.AddCategory("cat/Sub", "S");
    database.AddRecord("Cat/R", "s", "[Attrib.Damage]\nValue.0000=1\n");
    database.AddRecord("Cat/r", "S", "[Attrib.Damage]\nValue.0000=2\n");
    database.AddRecord("cat/Sub/Deep", "S");
    ASSERT_TRUE(database.Open());
    // The first in the order of the disk stands; the walk goes on below the second directory.
    EXPECT_EQ(database.GetRecordList(), "Cat/R Cat/Sub/Deep ");
    EXPECT_EQ(database.Value("CAT/r", "Damage"), "1");
}

TEST(Load, AsksTheGamesLibraryForItsBuild)
{
    CTestDatabase database;
    database.m_Scratch.WriteBytes("Game/Game.proj00", "[Project Binaries]\nGameServer=Outpost.dll\n");
    fs::create_directory(database.m_Scratch.GetPath() / "program");
    fs::create_symlink(CORVANE_OUTPOST_LIBRARY, database.m_Scratch.GetPath() / "program/libOutpost.so");
    ASSERT_TRUE(database.Open());
    EXPECT_EQ(database.Get().GetActiveBuild(), 7U);
    EXPECT_EQ(database.Get().GetBuildNumber(ToWide(CORVANE_OUTPOST_LIBRARY)), 7U);
    EXPECT_EQ(database.Get().GetBuildNumber(database.GetText("nothing.so")), 0U);
    EXPECT_EQ(database.Get().GetBuildNumber(database.GetText("Root.Gamdb00s")), 0U) << "no library";
}

TEST(Load, TellsDirectoryLoopsOnceAndLoadsTheRest)
{
    CTestDatabase database;
    WriteWeapons(database);
    fs::create_directory_symlink(database.GetPath(""), database.GetPath("Group/Up"));
    fs::create_directory_symlink(database.GetPath("Group"), database.GetPath("Group/Weapons/Loop"));
    ASSERT_TRUE(database.Open());
    EXPECT_EQ(database.GetTitles(), "Directory Loop;Directory Loop;");
    EXPECT_EQ(database.Get().GetSchemas().size(), 1U);
    EXPECT_EQ(database.GetRecordList(), "Group/Weapons/pistol Group/Weapons/Heavy/Cannon "
                                        "Group/Weapons/Melee/Sharp/Axe Group/Weapons/Melee/Blunt/Club ");
}

TEST(Load, ChoosesTheActiveBuild)
{
    struct SCase
    {
        const char* m_szPerUser; // Keys of the section Database; null for no file.
        bool m_bExpert;
        std::uint32_t m_nBuild;
    };
    // The root file has version 3; there is no game library, whose number is 0 then.
    for (const SCase& row :
         {SCase{"Version=3\nActive.Build=12\n", true, 12}, SCase{"Version=3\nActive.Build=12\n", false, 0},
          SCase{"Version=2\nActive.Build=12\n", true, 0}, SCase{"Version=4\n", true, 0},
          SCase{"Version=3\nActive.Build=12\nUse.Game.Build=True\n", true, 0}, SCase{nullptr, true, 0}})
    {
        CTestDatabase database;
        const std::string file =
            "config/Harrowgate Works/ZORN/Corvane/{11111111-2222-3333-4444-555555555555}.ini";
        if (row.m_szPerUser)
            database.m_Scratch.WriteUtf16(file, u"[Database]\n" + ToWide(row.m_szPerUser));
        database.m_Run.Set(APP_EXPERT, row.m_bExpert);
        ASSERT_TRUE(database.Open());
        EXPECT_EQ(database.Get().GetActiveBuild(), row.m_nBuild)
            << (row.m_szPerUser ? row.m_szPerUser : "none");

        // A toggle of the mode chooses by the same rules; what has no stored build stays as it is.
        database.Get().SetActiveBuild(5);
        database.m_Events.clear();
        database.Get().ChooseActiveBuild();
        const bool stays =
            row.m_bExpert && row.m_nBuild == 0 &&
            (!row.m_szPerUser || std::string_view(row.m_szPerUser).find("Game") == std::string_view::npos);
        EXPECT_EQ(database.Get().GetActiveBuild(), stays ? 5U : row.m_nBuild);
        EXPECT_EQ(database.m_Events.back(), 60);
    }
}

TEST(Load, NotifyAnswersWithTheFirstResult)
{
    CTestDatabase database;
    ASSERT_TRUE(database.Open());
    int asked = 0;
    const auto answer = [&](int result)
    { return [&asked, result](const CCorvaneEvent&) { return ++asked, result; }; };
    const CObserverHandle none = database.Get().AddObserver(answer(0));
    CObserverHandle first = database.Get().AddObserver(answer(4));
    const CObserverHandle second = database.Get().AddObserver(answer(5));
    EXPECT_EQ(database.Get().Notify(CCorvaneEvent(ECorvaneEvent::RecordDeleting)), 4);
    EXPECT_EQ(asked, 2);
    first.Reset();
    EXPECT_EQ(database.Get().Notify(CCorvaneEvent(ECorvaneEvent::RecordDeleting)), 5);
}

TEST(Load, ANewLoadReplacesTheOldOne)
{
    CTestDatabase database;
    WriteWeapons(database);
    ASSERT_TRUE(database.Open());
    fs::remove(database.GetPath("Group/Weapons/pistol.record"));
    ASSERT_TRUE(database.Open());
    EXPECT_EQ(database.Get().FindRecord(u"Group/Weapons/pistol", nullptr), nullptr);
    // A failed load leaves no database behind.
    fs::remove(database.GetPath("Root.Gamdb00s"));
    EXPECT_FALSE(database.Open());
    EXPECT_FALSE(database.Get().IsOpen());
    EXPECT_EQ(database.GetRecordList(), "");
    EXPECT_EQ(database.m_Events.back(), 1);
}
