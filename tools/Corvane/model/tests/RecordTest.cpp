// What a user does to records: names, questions, events, files, and the way back.
#include "CorvaneType.h"
#include "RecordDocument.h"
#include "TestDatabase.h"
#include "UndoScope.h"
#include "Unicode.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace
{
class CTestWindow final : public IRecordDocument
{
public:
    void OnRecordGone(CCorvaneRecord&) override { ++m_nGone; }
    void UpdateViews(ERecordUpdate) override {}
    int m_nGone = 0;
};

class Records : public testing::Test, protected CTestDatabase
{
protected:
    void SetUp() override
    {
        AddSchema("S", "[Attrib.T.0]\nType=Text\nValues=1\nDefault=t\nInherit=True\n\n"
                       "[Attrib.L.0]\nType=RecordLink\nValues=1\nInherit=False\nData=S\n\n");
        AddSchema("Other", "");
        for (const char* category : {"C", "C/D", "E"})
            AddCategory(category, "S");
        AddCategory("X", "Other");
        AddRecord("C/Top", "S", "[Attrib.T]\nValue.0000=top\n", "Comment=c\n");
        AddRecord("C/Kid", "S", "[Hierarchy]\nRecord=C/Top\n[Attrib.T]\nInherit=True\nValue.0000=top\n");
        AddRecord("C/Toe", "S", "[Hierarchy]\nRecord=C/Top\n[Attrib.T]\nInherit=True\nValue.0000=top\n");
        AddRecord("C/Far", "S", "[Attrib.L]\nValue.0000=C/Top\n", "VirtualRelativeCategory=V\n");
        AddRecord("E/End", "S");
        ASSERT_TRUE(Open());
        m_Questions.Clear();
        m_Events.clear();
    }

    // Runs a command in an undo group of its own.
    template <class Command> auto Do(Command command)
    {
        CUndoScope scope(m_Undo);
        const auto result = command();
        scope.Accept(u"command");
        return result;
    }
    bool Delete(CCorvaneRecord& record)
    {
        return Do([&] { return Get().DeleteRecord(record, true); });
    }
    bool Rename(CCorvaneRecord& record, std::u16string_view name)
    {
        return Do([&] { return Get().RenameRecord(record, name); });
    }
    // Events and titles since the last call.
    std::string TakeNews()
    {
        std::string news;
        for (const int event : m_Events)
            news += std::to_string(event) + " ";
        news += GetTitles();
        m_Events.clear();
        m_Questions.Clear();
        return news;
    }
    // Names of the record files below the directory, each followed by a blank.
    std::string List(std::string_view directory) const
    {
        std::vector<std::string> names;
        for (const fs::directory_entry& entry : fs::directory_iterator(GetPath(directory)))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        std::string list;
        for (const std::string& name : names)
            list += name.ends_with(".category") || name == "D" ? "" : name + " ";
        return list;
    }
    std::string Insert(std::string_view category)
    {
        const CCorvaneRecord* record = Do([&] { return Get().InsertRecord(&Category(category)); });
        return record ? ToNarrow(record->GetName()) : "none";
    }
    CTestWindow m_Window;
    bool Save() { return Get().SaveDatabase({}, false); }
};
} // namespace

TEST_F(Records, InsertNumbersNames)
{
    EXPECT_EQ(Insert("C"), "New Record");
    EXPECT_EQ(Insert("C/V"), "New Record (2)");
    EXPECT_EQ(Insert("C"), "New Record (3)");
    EXPECT_EQ(TakeNews(), "29 33 29 33 29 33 ");
    ASSERT_TRUE(Get().DeleteRecord(Record("C/New Record"), true) &&
                Get().RenameRecord(Record("C/New Record (3)"), u"NEW RECORD"));
    EXPECT_EQ(Insert("C"), "New Record (3)");
    EXPECT_EQ(Insert("C/D"), "New Record");
    EXPECT_TRUE(Record("C/New Record (3)").TestFlag(RECORD_FLAG_MODIFIED) && Get().IsDirty());
    EXPECT_TRUE(Save());
    EXPECT_EQ(List("C"), "Far.record Kid.record NEW RECORD.record New Record (2).record "
                         "New Record (3).record Toe.record Top.record ");
}

TEST_F(Records, RedoOfAnInsertBringsBackAnEmptiedRecord)
{
    Insert("C");
    ASSERT_TRUE(Do([&] { return Attrib("C/New Record", "T").SetValue(0, u"x"); }) && m_Undo.Undo(2));
    EXPECT_EQ(TakeNews(), "29 33 30 31 ");
    ASSERT_TRUE(m_Undo.Redo(1));
    EXPECT_EQ(TakeNews(), "29 ");
    const CCorvaneRecord& record = *Category("C").GetRecords().back();
    EXPECT_TRUE(record.GetName().empty() && record.GetAttributeList().empty() && record.IsInTree());
    static_cast<void>(m_Undo.Redo(1)); // The value of a record that has lost it.
    EXPECT_TRUE(Save() && m_Undo.Undo(2));
    EXPECT_EQ(GetRecordList(), "C/Kid C/Toe C/Top C/V/Far E/End ");
}

TEST_F(Records, DeleteAsksThenDisconnectsAndComesBackWhole)
{
    CCorvaneRecord& top = Record("C/Top");
    top.SetDocument(&m_Window);
    ASSERT_TRUE(top.SaveToFile(true));
    const std::string before = Read("C/Top.record");
    m_Questions.Prepare(u"Record Dependencies", {EAnswer::No, EAnswer::Yes});
    m_Questions.Prepare(u"Record References", {EAnswer::No, EAnswer::Yes});
    EXPECT_FALSE(Get().DeleteRecord(top, true));
    EXPECT_EQ(TakeNews(), "30 RecordLink Dependency;Record Dependencies;");
    EXPECT_FALSE(Get().DeleteRecord(top, true));
    EXPECT_EQ(
        GetQuestion("Record References"),
        "The record 'Top' is referenced by the following records:\n\nKid\nToe\n\nAre you sure you want to "
        "delete this record and disconnect the referenced records?");
    EXPECT_EQ(GetQuestion("Record Dependencies"),
              "The record 'Top' contains dependencies.  Are you sure you want to delete this record?");
    EXPECT_EQ(top.GetReferencees().size(), 2U);
    TakeNews();

    ASSERT_TRUE(Delete(top));
    EXPECT_EQ(TakeNews(), "30 31 RecordLink Dependency;Record Dependencies;Record References;");
    EXPECT_EQ(Value("C/V/Far", "L"), "<none>");
    EXPECT_EQ(Record("C/Kid").GetParent(), nullptr);
    EXPECT_TRUE(Record("C/Kid").TestFlag(RECORD_FLAG_MODIFIED));
    EXPECT_EQ(List("C"), "Far.record Kid.record Toe.record ");
    EXPECT_EQ(m_Window.m_nGone, 1);
    EXPECT_FALSE(Get().DeleteRecord(top, false));

    ASSERT_TRUE(m_Undo.Undo(1) && Save());
    EXPECT_EQ(Read("C/Top.record"), before);
    EXPECT_TRUE(top.GetReferencees().empty());
    TakeNews();
    ASSERT_TRUE(m_Undo.Redo(1) && m_Undo.Undo(1));
    EXPECT_EQ(TakeNews(), "30 31 29 ");
    EXPECT_TRUE(top.GetName().empty() && top.GetAttributeList().empty());
}

TEST_F(Records, AReferenceComesBackToItsParentAsLongAsThatIsThere)
{
    CCorvaneRecord& kid = Record("C/Kid");
    ASSERT_TRUE(Delete(kid));
    EXPECT_EQ(Record("C/Top").GetReferencees().size(), 1U) << "nobody asks for a deleted record";
    ASSERT_TRUE(m_Undo.Undo(1));
    EXPECT_EQ(Record("C/Top").GetReferencees().size(), 2U);
    ASSERT_TRUE(Attrib("C/Top", "T").SetValue(0, u"more"));
    EXPECT_EQ(Value("C/Kid", "T"), "more");

    ASSERT_TRUE(Delete(Record("C/Toe")) && Get().DeleteRecord(Record("C/Top"), false) && m_Undo.Undo(1));
    EXPECT_EQ(Record("C/Toe").GetParent(), nullptr);
    EXPECT_FALSE(Attrib("C/Toe", "T").GetInherit());
}

TEST_F(Records, ACancelledCommandLeavesTheTreeAsItWas)
{
    const std::string before = GetRecordList();
    {
        const CUndoScope scope(m_Undo);
        ASSERT_TRUE(Get().DeleteRecord(Record("E/End"), true) && Get().InsertRecord(&Category("E")) &&
                    Get().RenameRecord(Record("C/Kid"), u"x"));
    }
    EXPECT_EQ(GetRecordList(), before);
    EXPECT_EQ(Value("E/End", "T"), "t");
}

TEST_F(Records, AFileThatCannotGoKeepsItsRecord)
{
    CCorvaneRecord& top = Record("C/Top");
    m_Services.m_bBin = false;
    m_Failure = [](EFileOperation operation, std::u16string_view)
    { return operation == EFileOperation::Remove ? EFileError::AccessDenied : EFileError::None; };
    m_Questions.Prepare(u"Recycle Bin", {EAnswer::No, EAnswer::Yes});
    EXPECT_FALSE(Get().DeleteRecord(top, false) || Get().DeleteRecord(top, false));
    EXPECT_EQ(TakeNews(),
              "30 30 RecordLink Dependency;Recycle Bin;RecordLink Dependency;Recycle Bin;Recycle Bin;");
    EXPECT_EQ(top.GetReferencees().size(), 2U);
    EXPECT_EQ(GetRecordList(), "C/Kid C/Toe C/Top C/V/Far E/End ");
    m_Failure = nullptr;
    EXPECT_TRUE(Get().DeleteRecord(top, false));
    EXPECT_EQ(List("C"), "Far.record Kid.record Toe.record ");

    // What is not the record's file stays: nothing, a directory, and everything during a reload.
    fs::remove(GetPath("C/Kid.record"));
    fs::remove(GetPath("C/Toe.record"));
    fs::create_directory(GetPath("C/Toe.record"));
    m_Services.m_Calls.clear();
    EXPECT_TRUE(Get().DeleteRecord(Record("C/Kid"), true) && Get().DeleteRecord(Record("C/Toe"), true));
    const CStateScope reloading(m_Run, APP_RELOADING);
    EXPECT_TRUE(Get().DeleteRecord(Record("C/V/Far"), true));
    EXPECT_TRUE(m_Services.m_Calls.empty());
    EXPECT_EQ(List("C"), "Far.record Toe.record ");
}

TEST_F(Records, AReinsertedRecordNeverTakesAnothersNameOrFile)
{
    CCorvaneRecord& end = Record("E/End");
    ASSERT_TRUE(Delete(end));
    AddRecord("E/End", "S", "[Attrib.T]\nValue.0000=other\n");
    ASSERT_TRUE(Get().AddRecordFile(GetText("E/End.record"), Category("E")));
    ASSERT_TRUE(m_Undo.Undo(1) && Save());
    EXPECT_EQ(GetRecordList(), "C/Kid C/Toe C/Top C/V/Far E/End E/End (2) ");
    EXPECT_EQ(List("E"), "End (2).record End.record ");
    EXPECT_EQ(Value("E/End", "T") + Value("E/End (2)", "T"), "othert");

    // A file that came back from the bin is the record's own.
    ASSERT_TRUE(Rename(end, u"Own") && Save());
    fs::copy(GetPath("E/Own.record"), GetPath("kept"));
    fs::last_write_time(GetPath("kept"), fs::last_write_time(GetPath("E/Own.record")));
    ASSERT_TRUE(Delete(end));
    fs::rename(GetPath("kept"), GetPath("E/Own.record"));
    ASSERT_TRUE(m_Undo.Undo(1) && Get().SaveDatabase({}, true));
    EXPECT_EQ(List("E"), "End.record Own.record ");
}

TEST_F(Records, CopiesBelongToTheirSourceOrStandAlone)
{
    CCorvaneCategory& c = Category("C");
    CCorvaneRecord& kid = Record("C/Kid");
    kid.SetDocument(&m_Window);
    Do(
        [&] {
            return Get().CopyRecord_Clone(&c, &kid, true) &&
                   Get().CopyRecord_Reference(&c, &Record("C/Top"), true);
        });
    EXPECT_EQ(TakeNews(), "29 33 29 33 ");
    CCorvaneRecord& clone = Record("C/Clone of Kid");
    CCorvaneRecord& reference = Record("C/Reference of Top");
    EXPECT_TRUE(clone.GetFile().empty() && clone.TestFlag(RECORD_FLAG_MODIFIED) && !clone.GetDocument());
    EXPECT_TRUE(reference.GetComment().empty() && !Attrib("C/Reference of Top", "L").GetInherit());
    ASSERT_TRUE(Attrib("C/Top", "T").SetValue(0, u"more"));
    EXPECT_EQ(Value("C/Clone of Kid", "T") + Value("C/Reference of Top", "T"), "moremore");
    EXPECT_EQ(Record("C/Top").GetReferencees().size(), 4U) << "a clone of a referencee is one too";

    EXPECT_EQ(Get().CopyRecord_Clone(&Category("X"), &kid, true), nullptr);
    EXPECT_EQ(Get().CopyRecord_Reference(&Category("X"), &kid, true), nullptr);
    ASSERT_NE(Get().CopyRecord_Clone(&Category("C/V"), &kid, false), nullptr);
    EXPECT_EQ(Category("C/V").GetRecords().back()->GetName(), u"Kid (2)");
    ASSERT_TRUE(Save());
    EXPECT_EQ(List("C"), "Clone of Kid.record Far.record Kid (2).record Kid.record Reference of Top.record "
                         "Toe.record Top.record ");
    ASSERT_TRUE(m_Undo.Undo(1));
    EXPECT_EQ(Record("C/Top").GetReferencees().size(), 3U);
    EXPECT_EQ(m_Window.m_nGone, 0);
}

TEST_F(Records, RenameTakesTheFileAndTheLinksAlong)
{
    CCorvaneRecord& top = Record("C/Top");
    ASSERT_TRUE(Rename(top, u"Peak"));
    EXPECT_EQ(TakeNews(), "36 ");
    EXPECT_EQ(Value("C/V/Far", "L"), "C/Peak");
    ASSERT_TRUE(Save() && m_Undo.HasEntries());
    EXPECT_NE(Read("C/Kid.record").find("Record=C/Peak"), std::string::npos);
    struct
    {
        std::u16string_view m_sName;
        std::string_view m_sFile;
    } constexpr kNames[] = {
        {u"PEAK", "PEAK.record"}, // A new spelling is no other file.
        {u"Kid2", "Kid2 (2).record"}, {u"a/b:c", "a_b_c.record"}, {u"", "_.record"}, {u"..", "_.record"},
    };
    WriteBytes("C/KID2.record", "somebody's");
    for (const auto& [name, file] : kNames)
    {
        ASSERT_TRUE(Rename(top, name));
        EXPECT_TRUE(fs::exists(GetPath("C/" + std::string(file)))) << file << " in " << List("C");
    }
    EXPECT_EQ(m_Scratch.ReadBytes("Game/Database/C/KID2.record"), "somebody's");
    ASSERT_TRUE(m_Undo.Undo(6));
    EXPECT_EQ(ToNarrow(top.GetName()) + " " + ToNarrow(top.GetFile().substr(top.GetFile().size() - 10)),
              "Top Top.record");
    ASSERT_TRUE(m_Undo.Redo(1));
    EXPECT_EQ(Value("C/V/Far", "L"), "C/Peak");
    EXPECT_TRUE(fs::exists(GetPath("C/Peak.record")));
}

TEST_F(Records, AFileThatCannotBeRenamedKeepsItsName)
{
    CCorvaneRecord& kid = Record("C/Kid");
    m_Failure = [](EFileOperation operation, std::u16string_view)
    { return operation == EFileOperation::Rename ? EFileError::AccessDenied : EFileError::None; };
    ASSERT_TRUE(Rename(kid, u"a"));
    m_Failure = nullptr;
    ASSERT_TRUE(Save());
    EXPECT_EQ(List("C"), "Far.record Kid.record Toe.record Top.record ");
    m_Gate.m_bConnected = true;
    ASSERT_TRUE(Rename(kid, u"b"));
    m_Gate.m_bGrant = false;
    EXPECT_FALSE(Get().RenameRecord(kid, u"c"));
    m_Gate.m_bConnected = false;
    EXPECT_EQ(List("C"), "Far.record Kid.record Toe.record Top.record ");
    // One that has vanished is written under the new name; a directory in its place stays.
    fs::remove(GetPath("C/Kid.record"));
    fs::remove(GetPath("C/Toe.record"));
    fs::create_directory(GetPath("C/Toe.record"));
    ASSERT_TRUE(Rename(kid, u"d") && Rename(Record("C/Toe"), u"e"));
    EXPECT_EQ(List("C"), "Far.record Toe.record Top.record ");
    EXPECT_TRUE(kid.SaveToFile(true));
    EXPECT_EQ(List("C"), "Far.record Toe.record Top.record d.record ");
}

TEST_F(Records, TheTestOfANewNameHasItsWords)
{
    const CCorvaneRecord& top = Record("C/Top");
    EXPECT_TRUE(Get().CheckRecordRename(top, u"TOP") && Get().CheckRecordRename(top, u"End"));
    EXPECT_FALSE(Get().CheckRecordRename(top, u"FAR"));
    EXPECT_EQ(
        GetQuestion("Error renaming record"),
        "Cannot rename Top: A record with the name you specified already exists in the virtual category "
        "namespace. Specify a different name.");
    m_Run.m_bSilent = true;
    EXPECT_FALSE(Get().CheckRecordRename(top, u"kid"));
    m_Run.m_bSilent = false;
    EXPECT_EQ(TakeNews(), "Error renaming record;");
}
