// Writing back: what a save changes on disk and what it must never touch, its questions, the close.
#include "CorvaneType.h"
#include "SaveProgress.h"
#include "TestDatabase.h"
#include "Unicode.h"

#include <gmock/gmock.h>

namespace fs = std::filesystem;
using testing::HasSubstr;

namespace
{
constexpr std::string_view kMarks =
    "Inherit=False\nPlaceHolder=False\nTodo=False\nModified=False\nOverride=False\n"
    "Lock=\nComment=\n";

void WriteCanonical(const CTestDatabase& database)
{
    const std::string marks(kMarks);
    database.AddSchema(
        "S", "[Attrib.Old.3]\nType=Text\nData=max=9\nDefault=a b\nUnicode=True\nDeleted=True\n"
             "Inherit=False\nValues=-1\nHelp=h\n\n"
             "[Attrib.Old.0]\nType=Text\nData=\nDefault=\nUnicode=False\nDeleted=False\nInherit=True\n"
             "Values=2\nHelp=\n\n");
    database.AddCategory("C", "S");
    database.AddCategory("C/D", "S");
    database.Write("C/a.record",
                   "[Record]\nSchema=S\nName=b\nComment=line\\nline \\\\ x\nVirtualRelativeCategory=V/W\n\n"
                   "[Attrib.Old.3]\n" +
                       marks +
                       "Value.0000=\nValue.0001= x=y \n\n"
                       "[Attrib.Old]\nInherit=False\nPlaceHolder=True\nTodo=True\nModified=True\nOverride="
                       "True\nLock=mia\n"
                       "Comment=C:\\\\x\nValue.0000=1\nValue.0001=2\n\n");
    database.Write("C/D/child.record",
                   "[Record]\nSchema=S\nName=child\nComment=\nVirtualRelativeCategory=\n\n"
                   "[Hierarchy]\nRecord=C/b\n\n[Attrib.Old.3]\n" +
                       marks + "\n[Attrib.Old]\n" + "Inherit=True" + marks.substr(13) +
                       "Value.0000=1\nValue.0001=2\n\n");
}
} // namespace

TEST(Save, AForcedSaveOfCanonicalFilesChangesNoByte)
{
    CTestDatabase database;
    WriteCanonical(database);
    ASSERT_TRUE(database.Open());
    const CTestDatabase::Snapshot before = database.TakeSnapshot();
    database.m_Events.clear();
    EXPECT_TRUE(database.Get().SaveDatabase({}, true));
    EXPECT_EQ(database.GetChanges(before), "") << "not even a time may change";
    EXPECT_THAT(database.m_Events, testing::ElementsAre(6, 16, 17, 18, 19, 64, 7));
    EXPECT_EQ(database.GetTitles(), "");
    const auto& progress = database.m_Questions.GetProgress();
    EXPECT_EQ(progress.back(), u"100%");
    EXPECT_EQ(std::count(progress.begin(), progress.end(), u"Save Database: Initializing..."), 1);
}

TEST(Save, WritesWhatChangedWhereItLies)
{
    CTestDatabase database;
    WriteCanonical(database);
    ASSERT_TRUE(database.Open());
    CTestDatabase::Snapshot before = database.TakeSnapshot();
    ASSERT_TRUE(database.Record("C/b").SetName(u"other"));
    database.Category("C").SetComment(u"new");
    EXPECT_TRUE(database.Get().SaveRecord(&database.Record("C/other"), true));
    EXPECT_FALSE(database.Record("C/other").TestFlag(RECORD_FLAG_MODIFIED));
    EXPECT_TRUE(database.Get().IsDirty());
    EXPECT_THAT(database.Read("C/a.record"), HasSubstr("Name=other\n"));
    EXPECT_THAT(database.Read("C/a.record"), HasSubstr("VirtualRelativeCategory=V/W\n"));
    EXPECT_EQ(database.Read("C/cvd.category"), "[Category]\nSchema=S\nComment=new\nHelp=\nSystem=True\n\n");
    // The child's key follows its parent's name at the child's next write only.
    EXPECT_THAT(database.Read("C/D/child.record"), HasSubstr("Record=C/b\n"));
    EXPECT_TRUE(database.Get().SaveRecord(&database.Record("C/D/child"), false));
    EXPECT_THAT(database.Read("C/D/child.record"), HasSubstr("Record=C/other\n"));
    EXPECT_EQ(database.TakeSnapshot().size(), before.size());
}

TEST(Save, KeepsAFilesOwnSpelling)
{
    CTestDatabase database;
    WriteCanonical(database);
    fs::rename(database.GetPath("C/a.record"), database.GetPath("C/a.RECORD"));
    fs::rename(database.GetPath("Schemas/S.schema"), database.GetPath("Schemas/S.Schema"));
    ASSERT_TRUE(database.Open());
    const CTestDatabase::Snapshot before = database.TakeSnapshot();
    EXPECT_TRUE(database.Get().SaveDatabase({}, true));
    EXPECT_EQ(database.GetChanges(before), "");
}

TEST(Save, AFirstSaveTakesNoOtherFilesPlaceAndASafeName)
{
    struct SCase
    {
        const char16_t* m_szName;
        const char* m_szFile;
    };
    CTestDatabase database;
    WriteCanonical(database);
    database.Write("C/taken.record", "[Record]\nSchema=Other\nName=taken\n");
    ASSERT_TRUE(database.Open());
    CTestDatabase::Snapshot before = database.TakeSnapshot();
    CCorvaneCategory& category = database.Category("C");
    for (const SCase& row :
         {SCase{u"taken", "taken (2)"}, SCase{u"TAKEN", "TAKEN (3)"}, SCase{u"../up", ".._up"},
          SCase{u"", "_"}, SCase{u"..", "_ (2)"}, SCase{u"tab\tand/slash", "tab_and_slash"}})
    {
        const CRef<CCorvaneRecord> record = database.Schema("S").CloneRecordFromTemplate();
        ASSERT_TRUE(record->SetCategory(&category, true) && record->SetName(row.m_szName));
        category.AddRecord(*record);
        EXPECT_TRUE(database.Get().SaveRecord(record.Get(), false));
        EXPECT_EQ(record->GetFile(), database.GetText("C/" + std::string(row.m_szFile) + ".record"));
        EXPECT_TRUE(fs::exists(database.GetPath("C/" + std::string(row.m_szFile) + ".record")))
            << row.m_szFile;
        EXPECT_EQ(database.Get().FindRecordByFile(record->GetFile()), record.Get());
    }
    EXPECT_EQ(database.GetChanges(before),
              "Game/Database/C/.._up.record;Game/Database/C/TAKEN (3).record;"
              "Game/Database/C/_ (2).record;Game/Database/C/_.record;"
              "Game/Database/C/tab_and_slash.record;Game/Database/C/taken (2).record;");
}

TEST(Save, AFailedWriteAsksAndLeavesTheOldFile)
{
    CTestDatabase database;
    WriteCanonical(database);
    ASSERT_TRUE(database.Open());
    CCorvaneRecord& record = database.Record("C/b");
    ASSERT_TRUE(record.SetName(u"changed"));
    const fs::path file = database.GetPath("C/a.record");
    const std::string old = database.Read("C/a.record");
    fs::permissions(file, fs::perms::owner_read);

    database.m_Questions.Prepare(u"Write Error", {EAnswer::Retry, EAnswer::Abort});
    EXPECT_FALSE(record.SaveToFile(false));
    EXPECT_EQ(database.GetTitles(), "Write Error;Write Error;");
    EXPECT_EQ(ToNarrow(database.m_Questions.GetQuestions()[0].m_sText),
              "Could not write to the following file.  The file may be locked or there is insufficent disk "
              "space on "
              "this drive.\n\n" +
                  file.string());
    EXPECT_TRUE(record.TestFlag(RECORD_FLAG_MODIFIED));

    database.m_Questions.Prepare(u"Write Error", {EAnswer::Ignore});
    EXPECT_TRUE(record.SaveToFile(false));
    EXPECT_TRUE(record.TestFlag(RECORD_FLAG_MODIFIED));
    EXPECT_EQ(database.Read("C/a.record"), old);

    // The whole save goes on behind the failed file and tells at its end.
    database.m_Questions.Clear();
    database.m_Questions.Prepare(u"Write Error", {EAnswer::Abort});
    ASSERT_TRUE(database.Record("C/D/child").SetComment(u"still written"));
    fs::permissions(database.GetPath("Schemas/S.schema"), fs::perms::owner_read);
    fs::permissions(database.GetPath("C/cvd.category"), fs::perms::owner_read);
    EXPECT_FALSE(database.Get().SaveDatabase({}, true));
    EXPECT_EQ(database.GetTitles(), "Write Error;Write Error;Save Failed;")
        << "schema and record, not the category";
    EXPECT_THAT(database.Read("C/D/child.record"), HasSubstr("Comment=still written"));

    fs::permissions(file, fs::perms::owner_all);
    EXPECT_TRUE(record.SaveToFile(false));
    EXPECT_THAT(database.Read("C/a.record"), HasSubstr("Name=changed"));
}

TEST(Save, ACancelledSaveStopsOrFails)
{
    CTestDatabase database;
    WriteCanonical(database);
    ASSERT_TRUE(database.Open());
    ASSERT_TRUE(database.Record("C/b").SetName(u"changed"));
    const CTestDatabase::Snapshot before = database.TakeSnapshot();
    const auto cancelAt = [&](std::u16string_view stage)
    {
        database.m_Questions.Clear();
        database.m_Questions.m_Cancel = [stage](std::u16string_view text) { return text == stage; };
        return database.Get().SaveDatabase({}, true);
    };
    EXPECT_FALSE(cancelAt(u"Saving Schema Files..."));
    EXPECT_EQ(database.GetTitles(), "");
    EXPECT_FALSE(cancelAt(u"Saving Category and Record Files..."));
    EXPECT_EQ(database.GetTitles(), "");
    EXPECT_EQ(database.GetChanges(before), "");
    // Among the records: the rest of them fails, and the end tells it.
    int pumps = 0;
    database.m_Questions.m_Cancel = [&](std::u16string_view text)
    { return text == u"Saving Category and Record Files..." && ++pumps > 1; };
    EXPECT_FALSE(database.Get().SaveDatabase({}, true));
    EXPECT_EQ(database.GetTitles(), "Save Failed;");
    EXPECT_EQ(database.GetChanges(before), "");
    EXPECT_TRUE(database.Record("C/changed").TestFlag(RECORD_FLAG_MODIFIED));
    database.m_Questions.m_Cancel = nullptr;
}

TEST(Save, SaveAsMovesCategoriesAndRecordsOnly)
{
    CTestDatabase database;
    WriteCanonical(database);
    ASSERT_TRUE(database.Open());
    const CTestDatabase::Snapshot before = database.TakeSnapshot();
    fs::create_directory(database.m_Scratch.GetPath() / "New");
    EXPECT_TRUE(database.Get().SaveDatabase(database.m_Scratch.Text("New/Root.Gamdb00s"), true));
    EXPECT_EQ(database.GetChanges(before), "");
    EXPECT_EQ(database.m_Scratch.ReadBytes("New/C/a.record"), before.at("Game/Database/C/a.record").first);
    EXPECT_EQ(database.m_Scratch.ReadBytes("New/C/D/cvd.category"),
              before.at("Game/Database/C/D/cvd.category").first);
    EXPECT_FALSE(database.m_Scratch.Exists("New/Schemas"));
    EXPECT_EQ(database.Get().FindRecordByFile(database.m_Scratch.Text("New/C/D/child.record")),
              &database.Record("C/D/child"));
}

TEST(Save, AGateThatRefusesKeepsTheFile)
{
    CTestDatabase database;
    WriteCanonical(database);
    ASSERT_TRUE(database.Open());
    const CTestDatabase::Snapshot before = database.TakeSnapshot();
    ASSERT_TRUE(database.Record("C/b").SetName(u"changed"));
    database.m_Gate.m_bConnected = true;
    database.m_Gate.m_bGrant = false;
    EXPECT_FALSE(database.Record("C/changed").SaveToFile(true));
    EXPECT_FALSE(database.Get().SaveSchema(&database.Schema("S")));
    EXPECT_EQ(database.GetTitles(), "Record Check Out Failed;Schema Check Out Failed;");
    EXPECT_EQ(database.GetChanges(before), "");
}

TEST(Save, AReloadedRecordFollowsItsFile)
{
    CTestDatabase database;
    WriteCanonical(database);
    ASSERT_TRUE(database.Open());
    CCorvaneRecord& record = database.Record("C/b");
    ASSERT_TRUE(database.Attrib("C/b", "Old").SetValue(0, u"unsaved"));
    database.Write("C/a.record",
                   "[Record]\nSchema=Ignored\nName=new\nComment=c\nVirtualRelativeCategory=V\n\n"
                   "[Attrib.Old.3]\nValue.0000=not read\n\n[Attrib.Old]\nTodo=False\nValue.0000=read\n\n");
    ASSERT_TRUE(record.ReloadFromFile());
    EXPECT_FALSE(record.TestFlag(RECORD_FLAG_MODIFIED));
    EXPECT_EQ(&database.Record("C/new"), &record);
    EXPECT_EQ(database.Get().FindRecord(u"C/b", nullptr), nullptr);
    EXPECT_EQ(record.GetCategory(), &database.Category("C/V"));
    EXPECT_EQ(database.Value("C/new", "Old") + database.Value("C/new", "Old", 0, 1), "read");
    EXPECT_EQ(database.Value("C/new", "Old", 3, 1), " x=y ");
    EXPECT_FALSE(database.Attrib("C/new", "Old").IsTodo());
    EXPECT_TRUE(record.ConnectHierarchy());

    // A file that cannot be read leaves the record as it is; so does a category's.
    database.WriteBytes("C/a.record", "ansi");
    database.Get().SetDirty(false);
    EXPECT_FALSE(record.ReloadFromFile());
    EXPECT_EQ(record.GetName(), u"new");
    database.Write("C/D/cvd.category", "[Category]\nComment=a\\nb\nHelp=h\nSchema=Other\n");
    EXPECT_TRUE(database.Category("C/D").ReloadFromFile());
    EXPECT_EQ(database.Category("C/D").GetComment() + database.Category("C/D").GetHelp(), u"a\r\nbh");
    EXPECT_FALSE(database.Category("C/D").IsSystem()) << "the mark follows the key, and this file has none";
    // What was a directory's own category shares the name space above from now on.
    EXPECT_EQ(database.Get().FindRecord(u"C/child", nullptr), &database.Record("C/D/child"));
}

TEST(Close, TouchesNoFileAndWritesTheUsersOwn)
{
    CTestDatabase database;
    WriteCanonical(database);
    const CTestDatabase::Snapshot before = database.TakeSnapshot();
    ASSERT_TRUE(database.Open());
    EXPECT_EQ(database.GetPerUserFile(), "") << "written at the close";
    database.Get().SetActiveBuild(12);
    ASSERT_TRUE(database.Record("C/b").SetName(u"dropped"));
    database.m_Questions.Prepare(u"Save Changes", {EAnswer::Cancel, EAnswer::No});
    EXPECT_FALSE(database.Get().CloseDatabase());
    EXPECT_TRUE(database.Get().IsOpen());
    database.Close();
    EXPECT_EQ(database.GetChanges(before), "");
    EXPECT_EQ(database.GetPerUserFile(),
              "[General]\nDatabase=Test\n\n[Database]\nVersion=3\nActive.Build=12\n\n");
    EXPECT_EQ(database.m_Events.size() > 2 ? database.m_Events.back() : 0, 3);
}

TEST(Close, AFailedLoadLeavesTheUsersFileAlone)
{
    CTestDatabase database;
    const std::string file =
        "config/Harrowgate Works/ZORN/Corvane/{11111111-2222-3333-4444-555555555555}.ini";
    database.m_Scratch.WriteUtf16(file, u"[Database]\r\nVersion=9\r\nOther=kept\r\n\r\n");
    const std::string before = database.m_Scratch.ReadBytes(file);
    database.m_Gate.m_bRefuseConnection = true;
    EXPECT_FALSE(database.Open());
    EXPECT_EQ(database.GetTitles(), "Source Control Integration;");
    fs::remove(database.m_Scratch.GetPath() / "Game/Game.proj00");
    EXPECT_FALSE(database.Open());
    EXPECT_EQ(database.m_Scratch.ReadBytes(file), before);
    // Keys of others survive a good load.
    database.m_Scratch.WriteBytes("Game/Game.proj00", "");
    database.m_Questions.Prepare(u"Source Control Integration", {EAnswer::Retry, EAnswer::Ignore});
    ASSERT_TRUE(database.Open());
    database.Close();
    EXPECT_THAT(database.GetPerUserFile(), HasSubstr("Version=3\nOther=kept\nActive.Build=0\n"));
}

TEST(Close, AUsersFileThatCannotBeReadIsNotOverwritten)
{
    CTestDatabase database;
    const std::string file =
        "config/Harrowgate Works/ZORN/Corvane/{11111111-2222-3333-4444-555555555555}.ini";
    database.m_Scratch.WriteBytes(file, "[Database]\nActive.Build=12\n");
    ASSERT_TRUE(database.Open());
    EXPECT_EQ(database.m_Questions.GetQuestions().size(), 1U);
    database.Close();
    EXPECT_EQ(database.m_Scratch.ReadBytes(file), "[Database]\nActive.Build=12\n");
}
