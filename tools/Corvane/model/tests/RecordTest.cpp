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
class Records : public testing::Test, protected CTestDatabase, protected IRecordDocument
{
protected:
    void SetUp() override
    {
        AddSchema("S", "[Attrib.T.0]\nType=Text\nInherit=True\n\n[Attrib.L.0]\nType=RecordLink\nData=S\n\n");
        AddSchema("Other", "");
        AddCategory("X", "Other");
        for (const char* category : {"C", "C/D", "E"})
            AddCategory(category, "S");
        AddRecord("C/Top", "S", "[Attrib.T]\nValue.0000=top\n", "Comment=c\n");
        AddRecord("C/Kid", "S", "[Hierarchy]\nRecord=C/Top\n[Attrib.T]\nInherit=True\nValue.0000=top\n");
        AddRecord("C/Far", "S", "[Attrib.L]\nValue.0000=C/Top\n", "VirtualRelativeCategory=V\n");
        AddRecord("E/End", "S");
        ASSERT_TRUE(Open() && Get().SaveDatabase({}, true));
        m_Events.clear();
        m_Before = TakeSnapshot();
    }
    void OnRecordGone(CCorvaneRecord&) override { ++m_nClosed; }
    void UpdateViews(ERecordUpdate) override {}

    // Runs a command in an undo group of its own.
    template <class Command> bool Do(Command command)
    {
        CUndoScope scope(m_Undo);
        const bool done = command();
        if (done)
            scope.Accept(u"command");
        return done;
    }
    bool Insert(std::string_view category)
    {
        return Do([&] { return Get().InsertRecord(&Category(category)) != nullptr; });
    }
    bool Delete(std::string_view path)
    {
        return Do([&] { return Get().DeleteRecord(Record(path), true); });
    }
    bool Rename(CCorvaneRecord& record, std::u16string_view name)
    {
        return Do([&] { return Get().RenameRecord(record, name); });
    }
    bool Move(std::string_view path, std::string_view category)
    {
        return Do([&] { return Get().MoveRecord(&Category(category), Record(path), false); });
    }
    // Events and titles since the last call.
    std::string TakeNews()
    {
        std::string news;
        for (const int event : std::exchange(m_Events, {}))
            news += std::to_string(event) + " ";
        news += GetTitles();
        m_Questions.Clear();
        return news;
    }
    // The same, the records, and what a save changes on disk.
    std::string Save()
    {
        const std::string news = TakeNews() + "| " + GetRecordList() + "|";
        EXPECT_TRUE(Get().SaveDatabase({}, false));
        std::string changes = GetChanges(m_Before);
        for (std::size_t at; (at = changes.find("Game/Database/")) != std::string::npos;)
            changes.replace(at, 14, " ");
        m_Before = TakeSnapshot();
        m_Events.clear();
        return news + changes;
    }

    Snapshot m_Before;
    int m_nClosed = 0;
};
} // namespace

TEST_F(Records, InsertNumbersNamesAndARedoBringsBackAnEmptiedRecord)
{
    ASSERT_TRUE(Insert("C") && Insert("C/V") && Insert("C") &&
                Get().DeleteRecord(Record("C/New Record"), true) &&
                Rename(Record("C/New Record (3)"), u"NEW RECORD") && Insert("C") && Insert("C/D"));
    EXPECT_EQ(Save(), "29 33 29 33 29 33 30 31 36 29 33 29 33 | C/Kid C/Top C/NEW RECORD C/New Record (3) "
                      "C/D/New Record C/V/Far C/V/New Record (2) E/End | C/D/New Record.record; "
                      "C/NEW RECORD.record; C/New Record (2).record; C/New Record (3).record;");
    ASSERT_TRUE(m_Undo.Undo(1) && m_Undo.Redo(1));
    const CCorvaneRecord& record = *Category("C/D").GetRecords().back();
    EXPECT_TRUE(record.GetName().empty() && record.GetAttributeList().empty() && record.IsInTree());
    EXPECT_EQ(Save(), "30 31 29 | C/Kid C/Top C/NEW RECORD C/New Record (3) C/D C/V/Far C/V/New Record (2) "
                      "E/End | C/D/New Record.record;");
}

TEST_F(Records, DeleteAsksThenDisconnectsAndComesBackWhole)
{
    m_Questions.Prepare(u"Record Dependencies", {EAnswer::No, EAnswer::Yes});
    m_Questions.Prepare(u"Record References", {EAnswer::No, EAnswer::Yes});
    Record("C/Top").SetDocument(this);
    EXPECT_FALSE(Delete("C/Top") || Delete("C/Top"));
    EXPECT_EQ(GetQuestion("Record References"),
              "The record 'Top' is referenced by the following records:\n\nKid\n"
              "\nAre you sure you want to delete this record and disconnect "
              "the referenced records?");
    EXPECT_EQ(Save(), "30 30 RecordLink Dependency;Record Dependencies;RecordLink Dependency;Record "
                      "Dependencies;Record References;| C/Kid C/Top C/V/Far E/End |");
    const std::string whole = Read("C/Top.record");
    ASSERT_TRUE(Delete("C/Top"));
    EXPECT_EQ(Save(),
              "30 31 RecordLink Dependency;Record Dependencies;Record References;| C/Kid C/V/Far E/End "
              "| C/Far.record; C/Kid.record; C/Top.record;");
    EXPECT_EQ(m_nClosed, 1);
    ASSERT_TRUE(m_Undo.Undo(1));
    EXPECT_EQ(Save(), "29 | C/Kid C/Top C/V/Far E/End | C/Far.record; C/Top.record;");
    EXPECT_EQ(Read("C/Top.record"), whole);
    ASSERT_TRUE(m_Undo.Redo(1) && m_Undo.Undo(1));
    EXPECT_TRUE(Category("C").GetRecords().back()->GetAttributeList().empty());
}

TEST_F(Records, AReferenceComesBackToItsParentAsLongAsThatIsThere)
{
    ASSERT_TRUE(Delete("C/Kid") && Record("C/Top").GetReferencees().empty() && m_Undo.Undo(1));
    ASSERT_TRUE(Attrib("C/Top", "T").SetValue(0, u"more"));
    EXPECT_EQ(Value("C/Kid", "T"), "more");
    ASSERT_TRUE(Delete("C/Kid") && Get().DeleteRecord(Record("C/Top"), false) && m_Undo.Undo(1));
    EXPECT_FALSE(Record("C/Kid").GetParent() || Attrib("C/Kid", "T").GetInherit());
}

TEST_F(Records, AFileThatCannotGoKeepsItsRecordAndAnUndoTakesNobodysFile)
{
    m_Services.m_bBin = false;
    m_Failure = [](EFileOperation operation, std::u16string_view)
    { return operation == EFileOperation::Remove ? EFileError::AccessDenied : EFileError::None; };
    m_Questions.Prepare(u"Recycle Bin", {EAnswer::No, EAnswer::Yes});
    EXPECT_FALSE(Delete("E/End") || Delete("E/End"));
    m_Failure = nullptr;
    EXPECT_EQ(Save(), "30 30 Recycle Bin;Recycle Bin;Recycle Bin;| C/Kid C/Top C/V/Far E/End |");
    ASSERT_TRUE(Delete("E/End"));
    AddRecord("E/End", "S", "[Attrib.T]\nValue.0000=other\n");
    ASSERT_TRUE(Get().AddRecordFile(GetText("E/End.record"), Category("E")) && m_Undo.Undo(1));
    m_Before = TakeSnapshot();
    EXPECT_EQ(Save(), "30 31 29 29 Recycle Bin;| C/Kid C/Top C/V/Far E/End E/End (2) | E/End (2).record;");
    // A directory in the file's place is no file of the record.
    fs::remove(GetPath("C/Far.record"));
    fs::create_directory(GetPath("C/Far.record"));
    EXPECT_TRUE(Delete("C/V/Far") && fs::is_directory(GetPath("C/Far.record")));
}

TEST_F(Records, CopiesBelongToTheirSourceOrStandAlone)
{
    CCorvaneRecord& kid = Record("C/Kid");
    EXPECT_FALSE(Get().CopyRecord_Clone(&Category("X"), &kid, true));
    ASSERT_TRUE(Do([&] { return Get().CopyRecord_Clone(&Category("C"), &kid, true) != nullptr; }));
    ASSERT_TRUE(Get().CopyRecord_Reference(&Category("C/V"), &Record("C/Top"), true) &&
                Attrib("C/Top", "T").SetValue(0, u"more"));
    EXPECT_EQ(Value("C/Clone of Kid", "T") + Value("C/Reference of Top", "T"), "moremore");
    EXPECT_EQ(Save(),
              "29 33 29 33 | C/Kid C/Top C/Clone of Kid C/V/Far C/V/Reference of Top E/End | C/Clone of "
              "Kid.record; C/Reference of Top.record; C/Top.record;");
    EXPECT_TRUE(Record("C/Reference of Top").GetComment().empty() && m_Undo.Undo(1));
    EXPECT_EQ(Record("C/Top").GetReferencees().size(), 2U);
}

TEST_F(Records, RenameTakesTheFileAndTheLinksAlong)
{
    CCorvaneRecord& top = Record("C/Top");
    EXPECT_FALSE(Get().CheckRecordRename(top, u"FAR") || !Get().CheckRecordRename(top, u"TOP"));
    EXPECT_EQ(
        GetQuestion("Error renaming record"),
        "Cannot rename Top: A record with the name you specified already exists in the virtual category "
        "namespace. Specify a different name.");
    WriteBytes("C/KID2.record", "somebody's");
    constexpr std::u16string_view kNames[] = {u"Peak", u"PEAK", u"Kid2", u"a/b", u"..", u"Peak"};
    constexpr std::string_view kFiles[] = {"Peak", "PEAK", "Kid2 (2)", "a_b", "_", "Peak"};
    for (std::size_t i = 0; i < std::size(kNames); ++i)
    {
        ASSERT_TRUE(Rename(top, kNames[i]));
        EXPECT_EQ(ToNarrow(top.GetFile()), GetPath("C/" + std::string(kFiles[i]) + ".record"));
    }
    const std::string files = " C/Far.record; C/KID2.record; C/Kid.record; C/Peak.record; C/Top.record;";
    EXPECT_EQ(Save(), "36 36 36 36 36 36 Error renaming record;| C/Kid C/Peak C/V/Far E/End |" + files);
    EXPECT_EQ(Value("C/V/Far", "L"), "C/Peak");
    // What cannot be renamed keeps its name.
    m_Failure = [](EFileOperation operation, std::u16string_view)
    { return operation == EFileOperation::Rename ? EFileError::AccessDenied : EFileError::None; };
    ASSERT_TRUE(Rename(top, u"Summit") && ToNarrow(top.GetFile()) == GetPath("C/Peak.record"));
    m_Failure = nullptr;
    ASSERT_TRUE(m_Undo.Undo(7));
    EXPECT_EQ(ToNarrow(top.GetFile()), GetPath("C/Top.record"));
}

TEST_F(Records, AMoveWritesTheNewFileAndItsUndoTakesTheOldOneBack)
{
    CCorvaneRecord& kid = Record("C/Kid");
    ASSERT_TRUE(Insert("E") && Rename(Record("E/New Record"), u"KID") && Move("C/Kid", "E"));
    EXPECT_EQ(Save(), "29 33 36 34 35 | C/Top C/V/Far E/End E/KID E/Kid (2) | E/KID (2).record; E/Kid.record;");
    ASSERT_TRUE(m_Undo.Undo(1));
    EXPECT_EQ(Save(), "34 35 | C/Top C/Kid C/V/Far E/End E/KID |");
    AddRecord("C/Kid", "S", "[Attrib.T]\nValue.0000=other\n"); // A changed file is somebody else's by now.
    ASSERT_TRUE(m_Undo.Redo(1) && m_Undo.Undo(1));
    EXPECT_EQ(ToNarrow(kid.GetFile()), GetPath("C/Kid (2).record"));
    // Inside a directory only a key changes.
    m_Questions.Prepare(u"Record Dependencies", {EAnswer::Yes});
    Save();
    ASSERT_TRUE(Move("C/Top", "C/V"));
    EXPECT_EQ(Save(), "34 35 RecordLink Dependency;Record Dependencies;| C/Kid C/V/Far C/V/Top E/End E/KID | "
                      "C/Top.record;");
}

TEST_F(Records, ARefusedMoveLeavesEverythingAsItWas)
{
    EXPECT_FALSE(Move("C/Top", "C") || Move("C/Top", "X") || Move("C/Top", "E"));
    m_Failure = [](EFileOperation operation, std::u16string_view)
    { return operation == EFileOperation::CreateDirectory ? EFileError::DiskFull : EFileError::None; };
    EXPECT_FALSE(Move("E/End", "C"));
    m_Failure = nullptr;
    m_Gate.m_bConnected = true;
    // The directory, the check-out, the new category, the move of the file.
    for (int grants = 0; grants < 4; ++grants)
    {
        m_Gate.m_nGrants = grants;
        EXPECT_FALSE(Move("C/Kid", "E"));
    }
    EXPECT_EQ(m_Gate.m_nAsked, 1 + 2 + 3 + 4);
    m_Gate.m_bConnected = false;
    EXPECT_EQ(Save(),
              "34 34 34 34 34 34 Move Record Failed;RecordLink Dependency;Record Dependencies;Move Record "
              "Failed;| C/Kid C/Top C/V/Far E/End |");
    EXPECT_FALSE(m_Run.Test(APP_MOVING) || m_Undo.HasEntries());
}
