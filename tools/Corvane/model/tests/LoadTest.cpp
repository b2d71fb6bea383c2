// What a load makes of a tree of files: objects, order, events, links, and what it leaves out with which
// words.
#include "CorvaneType.h"
#include "TestDatabase.h"
#include "Unicode.h"

#include <gmock/gmock.h>

namespace fs = std::filesystem;

namespace
{
constexpr std::string_view kDamage = "[Attrib.Damage.0]\nType=Integer\nDefault=5\n\n";

constexpr std::string_view kWeapons = "Group/Weapons/pistol Group/Weapons/Heavy/Cannon "
                                      "Group/Weapons/Melee/Sharp/Axe Group/Weapons/Melee/Blunt/Club ";

class Load : public testing::Test, protected CTestDatabase
{
protected:
    // Weapons with a sub-directory, two virtual groups, and a category that holds nothing itself.
    void WriteWeapons() const
    {
        AddSchema("Weapon", kDamage);
        AddCategory("Group", "");
        AddCategory("Group/Weapons", "Weapon");
        AddCategory("Group/Weapons/Heavy", "Weapon");
        AddRecord("Group/Weapons/pistol", "Weapon", "[Attrib.Damage]\nValue.0000=7\n");
        AddRecord("Group/Weapons/Axe", "Weapon", {}, "VirtualRelativeCategory=Melee\\Sharp\n");
        AddRecord("Group/Weapons/Club", "Weapon", {}, "VirtualRelativeCategory=Melee/Blunt\n");
        AddRecord("Group/Weapons/Heavy/Cannon", "Weapon");
    }
};
} // namespace

TEST_F(Load, MakesTheTreeInAFixedOrderAndTellsIt)
{
    WriteWeapons();
    ASSERT_TRUE(Open());
    EXPECT_EQ(GetTitles(), "");
    EXPECT_EQ(GetRecordList(), kWeapons);
    EXPECT_THAT(m_Events, testing::ElementsAre(2, 3, 0, 10, 11, 12, 26, 26, 26, 13, 14, 26, 32, 26, 32, 29,
                                               26, 32, 29, 29, 29, 15, 65, 1, 60));
    EXPECT_FALSE(m_Run.Test(APP_LOADING) || Get().IsDirty());
    EXPECT_EQ(Value("Group/Weapons/pistol", "Damage") + Value("Group/Weapons/Heavy/Cannon", "Damage"), "75");
}

TEST_F(Load, ReadsTheRootFile)
{
    Write("Root.Gamdb00s", "[General]\nDatabase={11111111-2222-3333-4444-555555555555}\n");
    ASSERT_TRUE(Open());
    const SRootFile& root = Get().GetRootFile();
    EXPECT_EQ(root.m_sName + root.m_sPostBuildStep + root.m_sStringDatabase, u"Unknown Database");
    EXPECT_EQ(root.m_sBuild, GetText("Database.Gamdb00p"));
    EXPECT_EQ(root.m_sOverrideDatabase, GetText("MPCustomizations.txt"));

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
    WriteWeapons();
    ASSERT_TRUE(Open());
    const CCorvaneMgr& manager = Get();
    CCorvaneRecord& axe = Record("group/WEAPONS/axe");
    CCorvaneCategory& weapons = Category("Group/Weapons");
    std::u16string path, display, category, none;
    EXPECT_TRUE(manager.GetRecordPath(&axe, path) && manager.GetRecordDisplayPath(&axe, display) &&
                manager.GetCategoryPath(axe.GetCategory(), category));
    EXPECT_FALSE(manager.GetCategoryPath(nullptr, none));
    EXPECT_EQ(ToNarrow(path + u" " + display + u" " + category + u" " + none),
              "Group/Weapons/Axe Group/Weapons/Melee/Sharp/Axe Group/Weapons/Melee/Sharp <Invalid Category>");
    EXPECT_EQ(manager.GetCategoryForRecord(&axe), &weapons);
    EXPECT_EQ(manager.FindRecordByFile(GetText("Group/Weapons/PISTOL.record")),
              &Record("Group/Weapons/pistol"));
    EXPECT_EQ(manager.FindCategoryByFile(GetText("Group/Weapons/x.y")), &weapons);
    for (const char16_t* right : {u"Melee/Sharp/Axe", u"Axe"})
        EXPECT_EQ(manager.FindRecord(right, &weapons), &axe);
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
    for (const auto& [path, parent] : {std::pair("A/Child", "b/parent"),
                                       {"A/Lost", "B/Nobody"},
                                       {"A/Self", "A/Self"},
                                       {"A/Ring1", "A/Ring2"},
                                       {"A/Ring2", "A/Ring1"}})
        AddRecord(path, "S", "[Hierarchy]\nRecord=" + std::string(parent) + "\n\n" + std::string(kInherit));
    AddRecord("B/Parent", "S", "[Attrib.Damage]\nValue.0000=9\n");
    AddRecord("B/Alone", "S", kInherit);
    m_Questions.Prepare(u"Missing Referencer Record", {EAnswer::Yes, EAnswer::No});
    ASSERT_TRUE(Open());
    std::string links;
    Get().EnumerateRecords(
        [&links](CCorvaneRecord& record)
        {
            links += ToNarrow(record.GetName()) +
                     (record.GetParent() ? "<" + ToNarrow(record.GetParent()->GetName()) : "");
            links += "=" + ToNarrow(record.GetAttributeList()[0]->GetValue(0));
            links += record.GetAttributeList()[0]->GetInherit() ? "i " : " ";
            return true;
        });
    // Lost was answered with Yes, the others with No. Alone, which names no parent, does not inherit,
    // whatever its file says.
    EXPECT_EQ(links, "Child<Parent=9i Lost=1 Ring1<Ring2=1i Ring2=1i Self=1i Alone=1 Parent=9 ");
    // Lost, the second of the ring, and the record that names itself.
    EXPECT_EQ(m_Questions.Count(u"Missing Referencer Record"), 3U);
    EXPECT_EQ(ToNarrow(m_Questions.GetQuestions()[0].m_sText),
              "The following record referencer cannot be found.  Would you like to disconnect the referencee "
              "from the referencer and use it as a stand alone record?\n\nReferencer: "
              "B/Nobody\n\nReferencee: A/Lost");
}

TEST_F(Load, MakesVirtualCategoriesFromOffsets)
{
    AddSchema("S", kDamage);
    AddCategory("C", "S");
    AddCategory("C/Sys", "S");
    for (const auto& [name, offset] :
         {std::pair("1", "A\\B"), {"2", "a/b"}, {"3", "Sys/X"}, {"4", "Sys/X"}, {"5", "Empty"}})
        AddRecord(std::string("C/") + name, name[0] == '5' ? "Other" : "S", {},
                  "VirtualRelativeCategory=" + std::string(offset) + "\n");
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
    WriteWeapons();
    AddRecord("Stray", "Weapon");              // The root is no category.
    AddRecord("Group/Weapons/Alien", "Other"); // Another schema's, without a word.
    AddCategory("NoCategory/Below", "Weapon"); // Nothing leads there.
    AddSchema("../NoCategory/Hidden", "");     // Schemas are found everywhere.
    AddCategory("Unknown", "Missing");
    AddCategory("Unknown/Below", "Weapon");
    AddRecord("Group/Loose", "Weapon");
    Write("Group/Weapons/readme.txt", "[Record]\n");
    const Snapshot before = TakeSnapshot();
    ASSERT_TRUE(Open());
    EXPECT_EQ(GetRecordList(), kWeapons);
    EXPECT_EQ(Get().GetRootCategories().size(), 1U);
    EXPECT_EQ(Get().GetSchemas().size(), 2U);
    ASSERT_EQ(GetTitles(), "Invalid Schema;Invalid Schema;");
    EXPECT_EQ(m_Questions.GetQuestions()[0].m_sText,
              u"The category 'Unknown' uses an invalid schema 'Missing'.  The category will not be loaded.");
    EXPECT_THAT(ToNarrow(m_Questions.GetQuestions()[1].m_sText),
                testing::HasSubstr("records (1) are not loaded"));
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

TEST_F(Load, TellsDirectoryLoopsOnceAndReplacesTheLoadBefore)
{
    WriteWeapons();
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
            database.m_Scratch.WriteUtf16(CTestDatabase::kUserFile, u"[Database]\n" + ToWide(keys));
        database.m_Run.Set(APP_EXPERT, expert);
        ASSERT_TRUE(database.Open());
        EXPECT_EQ(database.Get().GetActiveBuild(), build) << (keys ? keys : "none");
        // A toggle of the mode chooses by the same rules; what has no stored build stays as it is.
        database.Get().SetActiveBuild(5);
        database.Get().ChooseActiveBuild();
        EXPECT_EQ(database.Get().GetActiveBuild(), stays ? 5U : build) << (keys ? keys : "none");
    }
}
