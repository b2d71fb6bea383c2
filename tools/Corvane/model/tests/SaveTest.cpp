// Writing back: what a save changes on disk and what it must never touch, its questions, the close.
#include "CorvaneType.h"
#include "CustomFile.h"
#include "TestDatabase.h"
#include "Unicode.h"

#include <gmock/gmock.h>

namespace fs = std::filesystem;
using testing::HasSubstr;

namespace
{
void WriteCanonical(const CTestDatabase& database)
{
    const std::string marks =
        "PlaceHolder=False\nTodo=False\nModified=False\nOverride=False\nLock=\nComment=\n";
    const std::string values = "Value.0000=1\nValue.0001=2\n\n";
    database.AddSchema("S", "[Attrib.Old.3]\nType=Text\nData=max=9\nDefault=a b\nUnicode=True\nDeleted=True\n"
                            "Inherit=False\nValues=-1\nHelp=h\n\n"
                            "[Attrib.Old.0]\nType=Text\nData=\nDefault=\nUnicode=False\nDeleted=False\n"
                            "Inherit=True\nValues=2\nHelp=\n\n");
    database.AddCategory("C", "S");
    database.AddCategory("C/D", "S");
    database.Write("C/a.record",
                   "[Record]\nSchema=S\nName=b\nComment=line\\nline \\\\ x\nVirtualRelativeCategory=V/W\n\n"
                   "[Attrib.Old.3]\nInherit=False\n" +
                       marks + "Value.0000=\nValue.0001= x=y \n\n[Attrib.Old]\nInherit=False\n" +
                       "PlaceHolder=True\nTodo=True\nModified=True\nOverride=True\nLock=mia\n" +
                       "Comment=C:\\\\x\n" + values);
    database.Write("C/D/child.record",
                   "[Record]\nSchema=S\nName=child\nComment=\nVirtualRelativeCategory=\n\n[Hierarchy]\n"
                   "Record=C/b\n\n[Attrib.Old.3]\nInherit=False\n" +
                       marks + "\n[Attrib.Old]\nInherit=True\n" + marks + values);
}

class Save : public testing::Test, protected CTestDatabase
{
protected:
    void SetUp() override
    {
        WriteCanonical(*this);
        m_Before = TakeSnapshot();
    }

    Snapshot m_Before;
};
} // namespace

TEST_F(Save, AForcedSaveOfCanonicalFilesChangesNoByte)
{
    fs::rename(GetPath("C/a.record"), GetPath("C/a.RECORD"));
    fs::rename(GetPath("Schemas/S.schema"), GetPath("Schemas/S.Schema"));
    m_Before = TakeSnapshot();
    ASSERT_TRUE(Open());
    m_Events.clear();
    EXPECT_TRUE(Get().SaveDatabase({}, true));
    EXPECT_EQ(GetChanges(m_Before), "") << "not even a time may change";
    EXPECT_THAT(m_Events, testing::ElementsAre(6, 16, 17, 18, 19, 64, 7));
    const auto& progress = m_Questions.GetProgress();
    EXPECT_EQ(progress.back(), u"100%");
    EXPECT_EQ(std::count(progress.begin(), progress.end(), u"Save Database: Initializing..."), 1);

    // Nor does it change the sample game.
    fs::remove_all(m_Scratch.GetPath() / "Game");
    fs::copy(CORVANE_SAMPLE_OUTPOST, m_Scratch.GetPath() / "Game", fs::copy_options::recursive);
    ASSERT_TRUE(Get().OpenDatabase(GetText("Outpost.Gamdb00s")));
    m_Before = TakeSnapshot();
    ASSERT_GT(m_Before.size(), 270U);
    EXPECT_TRUE(Get().SaveDatabase({}, true));
    std::size_t structs = 0;
    Get().EnumerateCustomFiles(
        [&structs](ICorvaneCustomFile& file)
        {
            file.SetModified(true);
            structs += file.Save() ? 1 : 0;
        });
    EXPECT_EQ(structs, 5U);
    EXPECT_EQ(GetChanges(m_Before) + GetTitles(), "");
}

TEST_F(Save, WritesWhatChangedWhereItLies)
{
    ASSERT_TRUE(Open());
    ASSERT_TRUE(Record("C/b").SetName(u"other"));
    Category("C").SetComment(u"new");
    EXPECT_TRUE(Get().SaveRecord(&Record("C/other"), true));
    EXPECT_FALSE(Record("C/other").TestFlag(RECORD_FLAG_MODIFIED));
    EXPECT_TRUE(Get().IsDirty());
    EXPECT_EQ(GetChanges(m_Before), "Game/Database/C/a.record;Game/Database/C/cvd.category;");
    EXPECT_THAT(Read("C/a.record"), HasSubstr("\nName=other\nComment=line\\nline \\\\ x\n"
                                              "VirtualRelativeCategory=V/W\n\n[Attrib.Old.3]\n"));
    EXPECT_EQ(Read("C/cvd.category"), "[Category]\nSchema=S\nComment=new\nHelp=\nSystem=True\n\n");
    // The child's key follows its parent's name at the child's next write only.
    EXPECT_TRUE(Get().SaveRecord(&Record("C/D/child"), false));
    EXPECT_THAT(Read("C/D/child.record"), HasSubstr("Record=C/other\n"));
}

TEST_F(Save, AFirstSaveTakesNoOtherFilesPlaceAndASafeName)
{
    Write("C/taken.record", "[Record]\nSchema=Other\nName=taken\n");
    ASSERT_TRUE(Open());
    m_Before = TakeSnapshot();
    CCorvaneCategory& category = Category("C");
    for (const auto& [name, expected] :
         {std::pair(u"taken", "taken (2)"), std::pair(u"TAKEN", "TAKEN (3)"), std::pair(u"../up", ".._up"),
          std::pair(u"", "_"), std::pair(u"..", "_ (2)"), std::pair(u"tab\tand/slash", "tab_and_slash")})
    {
        const CRef<CCorvaneRecord> record = Schema("S").CloneRecordFromTemplate();
        ASSERT_TRUE(record->SetCategory(&category, true) && record->SetName(name));
        category.AddRecord(*record);
        EXPECT_TRUE(Get().SaveRecord(record.Get(), false));
        EXPECT_EQ(record->GetFile(), GetText("C/" + std::string(expected) + ".record"));
        EXPECT_EQ(Get().FindRecordByFile(record->GetFile()), record.Get());
    }
    EXPECT_EQ(TakeSnapshot().size(), m_Before.size() + 6);
    EXPECT_EQ(TakeSnapshot()["Game/Database/C/taken.record"], m_Before["Game/Database/C/taken.record"]);
}

TEST_F(Save, AFailedWriteAsksAndLeavesTheOldFile)
{
    ASSERT_TRUE(Open());
    CCorvaneRecord& record = Record("C/b");
    ASSERT_TRUE(record.SetName(u"changed"));
    const fs::path file = GetPath("C/a.record");
    fs::permissions(file, fs::perms::owner_read);
    m_Questions.Prepare(u"Write Error", {EAnswer::Retry, EAnswer::Abort});
    EXPECT_FALSE(record.SaveToFile(false));
    EXPECT_EQ(GetTitles(), "Write Error;Write Error;");
    EXPECT_EQ(ToNarrow(m_Questions.GetQuestions()[0].m_sText),
              "Could not write to the following file.  The file may be locked or there is insufficent disk "
              "space on this drive.\n\n" +
                  file.string());
    m_Questions.Prepare(u"Write Error", {EAnswer::Ignore});
    EXPECT_TRUE(record.SaveToFile(false));
    EXPECT_TRUE(record.TestFlag(RECORD_FLAG_MODIFIED));
    EXPECT_EQ(GetChanges(m_Before), "");

    // The whole save goes on behind the failed file and tells at its end.
    m_Questions.Clear();
    m_Questions.Prepare(u"Write Error", {EAnswer::Abort});
    ASSERT_TRUE(Record("C/D/child").SetComment(u"still written"));
    fs::permissions(GetPath("Schemas/S.schema"), fs::perms::owner_read);
    fs::permissions(GetPath("C/cvd.category"), fs::perms::owner_read);
    EXPECT_FALSE(Get().SaveDatabase({}, true));
    EXPECT_EQ(GetTitles(), "Write Error;Write Error;Save Failed;") << "schema and record, not the category";
    EXPECT_EQ(GetChanges(m_Before), "Game/Database/C/D/child.record;");
    fs::permissions(file, fs::perms::owner_all);

    // Source control that refuses keeps the file as well.
    m_Questions.Clear();
    m_Gate.m_bConnected = true;
    m_Gate.m_bGrant = false;
    EXPECT_FALSE(record.SaveToFile(true) || Get().SaveSchema(&Schema("S")));
    EXPECT_EQ(GetTitles(), "Record Check Out Failed;Schema Check Out Failed;");
    EXPECT_EQ(GetChanges(m_Before), "Game/Database/C/D/child.record;");
    m_Gate.m_bGrant = true;
    EXPECT_TRUE(record.SaveToFile(false));
    EXPECT_THAT(Read("C/a.record"), HasSubstr("Name=changed"));
}

TEST_F(Save, ACancelledSaveStopsOrFails)
{
    ASSERT_TRUE(Open());
    ASSERT_TRUE(Record("C/b").SetName(u"changed"));
    // At the second pump of its stage the walk is among the records: the rest fails, and the end tells it.
    for (const auto& [stage, pump, told] :
         {std::tuple(u"Saving Schema Files...", 1, ""),
          std::tuple(u"Saving Category and Record Files...", 1, ""),
          std::tuple(u"Saving Category and Record Files...", 2, "Save Failed;")})
    {
        int pumps = 0;
        m_Questions.m_Cancel = [&, name = stage, at = pump](std::u16string_view text)
        { return text == name && ++pumps >= at; };
        EXPECT_FALSE(Get().SaveDatabase({}, true));
        EXPECT_EQ(GetTitles() + GetChanges(m_Before), told);
    }
    EXPECT_TRUE(Record("C/changed").TestFlag(RECORD_FLAG_MODIFIED));
    m_Questions.m_Cancel = nullptr;
}

TEST_F(Save, SaveAsMovesCategoriesAndRecordsOnly)
{
    ASSERT_TRUE(Open());
    fs::create_directory(m_Scratch.GetPath() / "New");
    EXPECT_TRUE(Get().SaveDatabase(m_Scratch.Text("New/Root.Gamdb00s"), true));
    EXPECT_EQ(GetChanges(m_Before), "");
    for (const std::string file : {"C/a.record", "C/D/cvd.category"})
        EXPECT_EQ(m_Scratch.ReadBytes("New/" + file), m_Before.at("Game/Database/" + file).first);
    EXPECT_FALSE(m_Scratch.Exists("New/Schemas"));
    EXPECT_EQ(Get().FindRecordByFile(m_Scratch.Text("New/C/D/child.record")), &Record("C/D/child"));
}

namespace
{
// A database in which every file waits for a save, and one record for its first.
class CChangedDatabase : public CTestDatabase
{
public:
    CChangedDatabase()
    {
        WriteCanonical(*this);
        Write("Schemas/S.schema", Read("Schemas/S.schema") + ";not kept\n");
        EXPECT_TRUE(Open());
        m_Before = TakeSnapshot();
        Schema("S").SetModified();
        Category("C").SetComment(u"new");
        Category("C/D").SetComment(u"new");
        EXPECT_TRUE(Record("C/b").SetComment(u"new") && Record("C/D/child").SetComment(u"new"));
        EXPECT_NE(Get().InsertRecord(&Category("C/D")), nullptr);
    }
    // To another place when `as` is not empty. Operation `failing` of the file layer fails; 0 for none.
    bool Save(const std::string& as, int failing)
    {
        m_nOperations = 0;
        m_Failure = [this, failing](EFileOperation, std::u16string_view)
        { return ++m_nOperations == failing ? EFileError::DiskFull : EFileError::None; };
        const std::u16string place = as.empty() ? std::u16string() : GetText(as);
        const bool there = Get().GetRootFilePath() == place;
        return Get().SaveDatabase(there ? std::u16string() : place, !as.empty() && !there);
    }
    // Whether a message names the file, or the directory or category that it could not be put into.
    bool IsNamed(const std::string& file) const
    {
        const fs::path path = m_Scratch.GetPath() / file;
        const auto& questions = m_Questions.GetQuestions();
        return std::any_of(questions.begin(), questions.end(),
                           [&](const CQuestion& question)
                           {
                               const std::string text = ToNarrow(question.m_sText);
                               const std::string directory = path.parent_path().string();
                               return text.ends_with(path.string()) || text.ends_with(directory) ||
                                      text.ends_with(directory + "/cvd.category");
                           });
    }

    Snapshot m_Before;
    int m_nOperations = 0;
};

std::string GetContent(const CTestDatabase::Snapshot& files, const std::string& name)
{
    const auto found = files.find(name);
    return found == files.end() ? "none" : found->second.first;
}
} // namespace

TEST(SaveFailures, WhicheverOperationFailsEveryFileIsWholeAndTheNextSaveCompletesTheRest)
{
    for (const std::string as : {"", "New/Deep/Root.Gamdb00s"})
    {
        CChangedDatabase good;
        ASSERT_TRUE(good.Save(as, 0));
        const CTestDatabase::Snapshot wanted = good.TakeSnapshot();
        const int operations = good.m_nOperations;
        ASSERT_GT(operations, 15);
        for (int failing = 1; failing <= operations; ++failing)
        {
            SCOPED_TRACE(as + " " + std::to_string(failing));
            CChangedDatabase database;
            static_cast<void>(database.Save(as, failing));
            const CTestDatabase::Snapshot left = database.TakeSnapshot();
            CTestDatabase::Snapshot all = wanted;
            all.insert(left.begin(), left.end());
            for (const auto& [name, state] : all)
            {
                const std::string content = GetContent(left, name);
                if (content == GetContent(wanted, name))
                    continue;
                EXPECT_EQ(content, GetContent(database.m_Before, name)) << name << " is neither old nor new";
                EXPECT_TRUE(database.IsNamed(name) || !fs::exists(database.GetPath("New/Deep"))) << name;
            }
            EXPECT_TRUE(database.Save(as, 0));
            for (const auto& [name, state] : wanted)
                EXPECT_EQ(GetContent(database.TakeSnapshot(), name), state.first) << name;
        }
    }
}

TEST_F(Save, AReloadedRecordFollowsItsFile)
{
    ASSERT_TRUE(Open());
    CCorvaneRecord& record = Record("C/b");
    ASSERT_TRUE(Attrib("C/b", "Old").SetValue(0, u"unsaved"));
    Write("C/a.record",
          "[Record]\nSchema=Ignored\nName=new\nComment=c\nVirtualRelativeCategory=V\n\n"
          "[Attrib.Old.3]\nValue.0000=not read\n\n[Attrib.Old]\nTodo=False\nValue.0000=read\n\n");
    ASSERT_TRUE(record.ReloadFromFile());
    EXPECT_FALSE(record.TestFlag(RECORD_FLAG_MODIFIED));
    EXPECT_EQ(&Record("C/new"), &record);
    EXPECT_EQ(Get().FindRecord(u"C/b", nullptr), nullptr);
    EXPECT_EQ(record.GetCategory(), &Category("C/V"));
    EXPECT_EQ(Value("C/new", "Old") + Value("C/new", "Old", 0, 1) + Value("C/new", "Old", 3, 1), "read x=y ");
    EXPECT_FALSE(Attrib("C/new", "Old").IsTodo());

    // A file that cannot be read leaves the record as it is.
    WriteBytes("C/a.record", "ansi");
    EXPECT_FALSE(record.ReloadFromFile());
    EXPECT_EQ(record.GetName(), u"new");
    Write("C/D/cvd.category", "[Category]\nComment=a\\nb\nHelp=h\nSchema=Other\n");
    EXPECT_TRUE(Category("C/D").ReloadFromFile());
    EXPECT_EQ(Category("C/D").GetComment() + Category("C/D").GetHelp(), u"a\r\nbh");
    EXPECT_FALSE(Category("C/D").IsSystem()) << "the mark follows the key, and this file has none";
    // What was a directory's own category shares the name space above from now on.
    EXPECT_EQ(Get().FindRecord(u"C/child", nullptr), &Record("C/D/child"));
    Get().SetDirty(false);
}

TEST_F(Save, TheCloseTouchesNoFileAndWritesTheUsersOwn)
{
    ASSERT_TRUE(Open());
    EXPECT_EQ(GetPerUserFile(), "") << "written at the close";
    Get().SetActiveBuild(12);
    ASSERT_TRUE(Record("C/b").SetName(u"dropped"));
    m_Questions.Prepare(u"Save Changes", {EAnswer::Cancel, EAnswer::No});
    EXPECT_FALSE(Get().CloseDatabase());
    EXPECT_TRUE(Get().IsOpen());
    Close();
    EXPECT_EQ(GetChanges(m_Before), "");
    EXPECT_EQ(GetPerUserFile(), "[General]\nDatabase=Test\n\n[Database]\nVersion=3\nActive.Build=12\n\n");
    EXPECT_EQ(m_Events.back(), 3);
}

TEST_F(Save, AFailedLoadLeavesTheUsersFileAlone)
{
    m_Scratch.WriteUtf16(kUserFile, u"[Database]\r\nVersion=9\r\nOther=kept\r\n\r\n");
    const std::string before = GetPerUserFile();
    m_Gate.m_bRefuseConnection = true;
    EXPECT_FALSE(Open());
    EXPECT_EQ(GetTitles(), "Source Control Integration;");
    fs::rename(m_Scratch.GetPath() / "Game/Game.proj00", m_Scratch.GetPath() / "Game.proj00");
    EXPECT_FALSE(Open());
    EXPECT_EQ(GetPerUserFile(), before);
    // Keys of others survive a good load.
    fs::rename(m_Scratch.GetPath() / "Game.proj00", m_Scratch.GetPath() / "Game/Game.proj00");
    m_Questions.Prepare(u"Source Control Integration", {EAnswer::Retry, EAnswer::Ignore});
    ASSERT_TRUE(Open());
    Close();
    EXPECT_THAT(GetPerUserFile(), HasSubstr("Version=3\nOther=kept\nActive.Build=0\n"));
    // One that cannot be read is told, and is not overwritten.
    m_Gate.m_bRefuseConnection = false;
    m_Questions.Clear();
    m_Scratch.WriteBytes(kUserFile, "[Database]\nActive.Build=12\n");
    ASSERT_TRUE(Open());
    EXPECT_EQ(m_Questions.GetQuestions().size(), 1U);
    Close();
    EXPECT_EQ(m_Scratch.ReadBytes(kUserFile), "[Database]\nActive.Build=12\n");
}
