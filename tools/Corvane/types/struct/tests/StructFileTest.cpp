// Struct files: what is read and what is told, how they change under live attributes, and what they are as
// files of their own.
#include "CorvaneEvent.h"
#include "CorvaneMgr.h"
#include "CorvaneRecord.h"
#include "StructDatabase.h"
#include "Unicode.h"
#include "struct/StructFileRegistry.h"

#include <gmock/gmock.h>

#include <random>

using testing::ElementsAre;
using testing::HasSubstr;

namespace
{
constexpr std::string_view kOneRow = "[Attrib.Items.0]\n[Attrib.Items.0.0.Name]\nValue.0000=rope\n"
                                     "Todo=True\n[Attrib.Items.0.0.Count]\nValue.0000=2\n\n";

class StructFile : public CStructDatabase
{
protected:
    std::string Path(std::string_view file) const { return ToNarrow(GetText(file)); }
    // Names and builds of the members in file order.
    std::string GetMembers(std::string_view record) const
    {
        std::string text;
        for (const SStructMember& member : File(record).GetMembers())
            text += ToNarrow(member.m_pDefault->GetName()) + '.' + ToNarrow(member.m_sBuild) + ' ';
        return text;
    }
    std::string GetAvailable(std::string_view record, std::uint32_t build) const
    {
        std::string text;
        for (const CRef<CCorvaneType>& member : Items(record).GetAttributePointerList()[0])
        {
            if (Get().IsAttributeAvailableForBuild(member.Get(), build))
                text += ToNarrow(member->GetName()) + '.' + std::to_string(member->GetBuild()) + ' ';
        }
        return text;
    }
};
} // namespace

TEST_F(StructFile, WhatCannotBeReadIsToldAndLeavesNoRows)
{
    const std::string schema = "in schema 'Bag', attribute 'Items':\n\n";
    const struct
    {
        std::string m_sData, m_sTitle, m_sText;
        std::size_t m_nAsserts;
    } cases[] = {
        {"Item", "Invalid Data Field",
         "The data field of the following 'Struct' attribute is invalid.\n\nAttribute:\t Items\nData:\t "
         "Item\nSchema:\t Bag",
         0},
        {"Item.enum", "Invalid Data Field",
         "The data field of the following 'Struct' attribute is invalid.\n\nAttribute:\t Items\nData:\t "
         "Item.enum\nSchema:\t Bag",
         0},
        {"Gone/../Lost.STRUCT", "Invalid Struct Path",
         "Cannot locate the following struct file specified " + schema + Path("Schemas/Lost.STRUCT"), 0},
        {"Ansi.struct", "Invalid Struct File Format",
         "The following struct file is not in Unicode format and cannot be parsed:\n\n" +
             Path("Schemas/Ansi.struct"),
         1},
        {"Empty.struct", "Invalid Struct File Format",
         "The following struct file is not in Unicode format and cannot be parsed:\n\n" +
             Path("Schemas/Empty.struct"),
         1},
        {"Folder.struct", "Unexpected Struct File Error",
         "An unexpected error occurred when parsing the following struct file:\n\n" +
             Path("Schemas/Folder.struct"),
         1},
    };
    for (const auto& row : cases)
    {
        WriteDatabase();
        WriteBytes("Schemas/Ansi.struct", "[Attrib.Name.0]\nType=Text\n");
        WriteBytes("Schemas/Empty.struct", "");
        Write("Schemas/Folder.struct/inner.txt", "");
        AddSchema("Bag", "[Attrib.Items.0]\nType=Struct\nValues=-1\nData=" + row.m_sData + "\n");
        AddRecord("Bags/One", "Bag", kOneRow);
        m_Questions.Clear();
        m_nExpectedAsserts += row.m_nAsserts;
        ASSERT_TRUE(Open());
        EXPECT_EQ(GetQuestion(row.m_sTitle), row.m_sText);
        EXPECT_EQ(GetTitles(), row.m_sTitle + ";");
        CCorvaneTypeStruct& items = Items("Bags/One");
        EXPECT_EQ(items.GetStructFile(), nullptr);
        EXPECT_EQ(items.GetValueCount(), 0u);
        EXPECT_FALSE(items.AddValue(u""));
        // A save while the file is missing loses nothing.
        ASSERT_TRUE(items.SetComment(u"changed"));
        ASSERT_TRUE(Record("Bags/One").SaveToFile(true));
        Get().SetDirty(false);
        EXPECT_THAT(
            Read("Bags/One.record"),
            HasSubstr("[Attrib.Items.0.0.Name]\nValue.0000=rope\nTodo=True\n\n[Attrib.Items.0.0.Count]\n"));
    }
    EXPECT_EQ(m_Asserts.Has(" [Forced Assert]"), true);
    WriteDatabase();
    ASSERT_TRUE(Open());
    EXPECT_EQ(Show("Bags/One"), "Name=rope Count=2 | ");
}

TEST_F(StructFile, MembersStandInFileOrderAndTheRestIsTold)
{
    WriteDatabase("Values=-1\n", "[Struct]\nHelp=x\n[Attrib.Z]\nType=Text\n[Attrib.Nothing.0]\nData=x\n"
                                 "[Attrib.Odd.0]\nType=Odd\n[Attrib.A.10]\nType=Integer\nDefault=4\n"
                                 "[Attrib.M.0]\nType=Boolean\n[Attrib.A.0]\nType=Integer\n"
                                 "[Attrib.Z.0]\nType=Integer\nHelp=number\n[Attrib.m.0]\nType=Text\n");
    AddRecord("Bags/One", "Bag");
    ASSERT_TRUE(Open());
    EXPECT_EQ(GetMembers("Bags/One"), "Z.0 A.10 M.0 A.0 ");
    EXPECT_EQ(Show("Bags/One"), "Z=0 A=4 M=True A=0 | ");
    EXPECT_EQ(GetTitles(), "Duplicate Attributes;Invalid Attribute;");
    EXPECT_EQ(GetQuestion("Invalid Attribute"),
              "Failed to create attribute of type 'Odd' in schema 'Bag'.  The attribute type may be "
              "invalid.\n\n" +
                  Path("Schemas/Item.struct"));
    EXPECT_THAT(GetQuestion("Duplicate Attributes"), HasSubstr("A: Attrib.M.0\nAttribute B: Attrib.m.0\n"));
    // Entries of one name are told apart wherever they stand.
    EXPECT_EQ(GetAvailable("Bags/One", 9), "Z.0 M.0 A.0 ");
    EXPECT_EQ(GetAvailable("Bags/One", 10), "Z.0 A.10 M.0 ");
    std::u16string help;
    Member("Bags/One", 0, 0).GetHelp(0, help);
    EXPECT_EQ(help, u"number");
}

TEST_F(StructFile, OneFileIsSharedByAllAndByNoOtherDatabase)
{
    WriteDatabase("Values=-1\n\n[Attrib.More.0]\nType=Struct\nData=..\\Schemas\\ITEM.struct\nValues=1\n");
    AddRecord("Bags/One", "Bag");
    ASSERT_TRUE(Open());
    const auto& more = dynamic_cast<const CCorvaneTypeStruct&>(Attrib("Bags/One", "More"));
    EXPECT_EQ(more.GetStructFile(), Items("Bags/One").GetStructFile());
    EXPECT_EQ(more.GetChildAttributeAt(0, 0)->GetGuid(), Member("Bags/One", 0, 0).GetGuid());
    const CGuid guid = Member("Bags/One", 0, 0).GetGuid();
    ASSERT_TRUE(Open());
    EXPECT_NE(Member("Bags/One", 0, 0).GetGuid(), guid);
    EXPECT_EQ(Get().GetTypeState<CStructFileRegistry>().GetFiles().size(), 1u);
    Close();
    EXPECT_TRUE(Get().GetTypeState<CStructFileRegistry>().GetFiles().empty());
}

TEST_F(StructFile, AFileThatReachesItselfIsCutWhereItDoes)
{
    WriteDatabase("Values=-1\n",
                  "[Attrib.Name.0]\nType=Text\n[Attrib.Self.0]\nType=Struct\nData=Item.struct\n"
                  "[Attrib.Sub.0]\nType=Struct\nData=Sub/Sub.struct\n");
    Write("Schemas/Sub/Sub.struct", "[Attrib.Word.0]\nType=Enum\nData=Words.enum\n"
                                    "[Attrib.Up.0]\nType=Struct\nData=../Item.struct\n");
    Write("Schemas/Sub/Words.enum", "[Enum]\n");
    AddRecord("Bags/One", "Bag");
    ASSERT_TRUE(Open());
    EXPECT_THAT(Show("Bags/One"),
                testing::MatchesRegex("Name= Self=\\[\\] Sub=\\[Word=.* Up=\\[\\] \\| \\] \\| "));
    std::vector<std::string> texts;
    for (const CQuestion& question : m_Questions.GetQuestions())
    {
        if (question.m_sTitle == u"Invalid Struct Path")
            texts.push_back(ToNarrow(question.m_sText));
    }
    const std::string item = Path("Schemas/Item.struct");
    const std::string way = " leads its struct file back to itself and is left without rows.  The files on "
                            "the way are:\n\n";
    EXPECT_THAT(texts, ElementsAre("The member 'Self'" + way + item + "\n" + item,
                                   "The member 'Up'" + way + item + "\n" + Path("Schemas/Sub/Sub.struct") +
                                       "\n" + item));
    // A circle that closes when a file is read again is cut too.
    Write("Schemas/Item.struct", "[Attrib.Name.0]\nType=Text\n");
    Write("Schemas/Sub/Sub.struct", "[Attrib.Up.0]\nType=Struct\nData=../Item.struct\n");
    AddSchema("Other", "[Attrib.Sub.0]\nType=Struct\nData=Sub/Sub.struct\n");
    ASSERT_TRUE(Open());
    Write("Schemas/Item.struct", "[Attrib.Sub.0]\nType=Struct\nData=Sub/Sub.struct\n");
    m_Questions.Clear();
    ASSERT_TRUE(File("Bags/One").Reload());
    EXPECT_EQ(GetTitles(), "Invalid Struct Path;");
    EXPECT_EQ(Show("Bags/One"), "Sub=[] | ");
}

TEST_F(StructFile, DeepAndMultiplyingNestsEndWithAMessage)
{
    WriteDatabase("Values=-1\n", "[Attrib.Next.0]\nType=Struct\nData=N0.struct\nValues=2\n");
    for (int i = 0; i < 200; ++i)
        Write("Schemas/N" + std::to_string(i) + ".struct",
              "[Attrib.Next.0]\nType=Struct\nValues=2\nData=N" + std::to_string(i + 1) + ".struct\n");
    AddSchema("Wide", "[Attrib.Wide.0]\nType=Struct\nValues=2000000000\nData=Wide.struct\n");
    Write("Schemas/Wide.struct", "[Attrib.Wider.0]\nType=Struct\nValues=65535\nData=Wider.struct\n");
    Write("Schemas/Wider.struct", "[Attrib.A.0]\nType=Text\nValues=1\n");
    AddRecord("Bags/One", "Bag",
              "[Attrib.Items.0]\n[Attrib.Items.0.0.Next.0]\n[Attrib.Items.0.0.Next.0.0]\n");
    ASSERT_TRUE(Open());
    EXPECT_EQ(Items("Bags/One").GetValueCount(), 1u);
    std::size_t tooDeep = 0;
    std::size_t tooMany = 0;
    for (const CQuestion& question : m_Questions.GetQuestions())
    {
        tooDeep +=
            ToNarrow(question.m_sText).find("nests struct files too deeply") != std::string::npos ? 1 : 0;
        tooMany +=
            ToNarrow(question.m_sText).find("make more than 65535 members") != std::string::npos ? 1 : 0;
    }
    EXPECT_EQ(tooDeep, 1u);
    EXPECT_GE(tooMany, 2u); // The chain of twos somewhere on its way up, and the wide one.
    EXPECT_EQ(tooDeep + tooMany, m_Questions.GetQuestions().size());
}

TEST_F(StructFile, BrokenFilesLoadOrAreTold)
{
    std::mt19937 random(3);
    std::string whole = "\xFF\xFE";
    for (const char unit : std::string(kItem) + "[Attrib.Sub.0]\nType=Struct\nData=Item.struct\nValues=9\n")
        whole += {unit, '\0'};
    WriteDatabase();
    AddRecord("Bags/One", "Bag", kOneRow);
    for (int round = 0; round < 150; ++round)
    {
        std::string bytes = whole;
        for (int i = round % 5; i > 0; --i)
            bytes[2 + random() % (bytes.size() - 2)] = static_cast<char>(random());
        bytes.resize(round % 3 == 0 ? random() % bytes.size() : bytes.size());
        WriteBytes("Schemas/Item.struct", bytes);
        ASSERT_TRUE(Open());
        EXPECT_LT(Show("Bags/One").size(), 10'000u);
        ASSERT_TRUE(Record("Bags/One").SaveToFile(true));
    }
    m_nExpectedAsserts = m_Asserts.GetEntries().size();
}

TEST_F(StructFile, ANewMemberAppearsInEachRowAndAGoneOneLeaves)
{
    WriteDatabase();
    AddRecord("Bags/One", "Bag", std::string(kOneRow) + "[Attrib.Items.0.1.Name]\nValue.0000=oil\n");
    AddRecord("Bags/Ref", "Bag", "[Hierarchy]\nRecord=Bags/One\n[Attrib.Items.0]\nInherit=True\n");
    ASSERT_TRUE(Open());
    const CCorvaneAttrib* name = &Member("Bags/One", 0, 0);
    Write("Schemas/Item.struct",
          "[Attrib.New.0]\nType=Float\nDefault=1.5\n[Attrib.Count.0]\nType=Text\n"
          "[Attrib.Name.20]\nType=Text\nDefault=late\n[Attrib.Name.0]\nType=Text\nDefault=n\n");
    m_Events.clear();
    ASSERT_TRUE(File("Bags/One").Reload());
    // The count has another type: it is another member of that name.
    const std::string shown =
        "New=1.500000 Count= Name=rope Name=rope | New=1.500000 Count= Name=oil Name=oil | ";
    EXPECT_EQ(Show("Bags/One"), shown);
    EXPECT_EQ(Show("Bags/Ref"), shown);
    EXPECT_EQ(&Member("Bags/One", 0, 3), name);
    EXPECT_TRUE(name->IsTodo());
    EXPECT_EQ(name->GetAttribData(), File("Bags/One").GetMembers()[3].m_pData.Get());
    // One event for each row: two in each record, one in the template.
    EXPECT_EQ(std::count(m_Events.begin(), m_Events.end(), 60), 5);
    EXPECT_EQ(Show(static_cast<CCorvaneTypeStruct&>(*Schema("Bag").GetTemplate()->GetAttributeList()[0])),
              "New=1.500000 Count= Name=late Name=n | ");
    WriteBytes("Schemas/Item.struct", "ansi");
    EXPECT_FALSE(File("Bags/One").Reload());
    EXPECT_EQ(Show("Bags/One"), shown);
}

TEST_F(StructFile, ASchemaThatNamesAnotherFileKeepsMembersByName)
{
    WriteDatabase();
    Write("Schemas/Other.struct", "[Attrib.Extra.0]\nType=Integer\n[Attrib.Name.0]\nType=Text\n");
    AddRecord("Bags/One", "Bag", kOneRow);
    ASSERT_TRUE(Open());
    AddSchema("Bag", "[Attrib.Items.0]\nType=Struct\nData=Other.struct\nValues=-1\n");
    ASSERT_TRUE(Schema("Bag").ReloadFromFile());
    EXPECT_EQ(Show("Bags/One"), "Extra=0 Name=rope | ");
    EXPECT_TRUE(Member("Bags/One", 0, 1).IsTodo());
    EXPECT_TRUE(Member("Bags/One", 0, 1).IsSameAttribute(*File("Bags/One").GetMembers()[1].m_pDefault));
    AddSchema("Bag", "[Attrib.Items.0]\nType=Struct\nData=Gone.struct\nValues=-1\n");
    ASSERT_TRUE(Schema("Bag").ReloadFromFile());
    EXPECT_EQ(Items("Bags/One").GetValueCount(), 0u);
}

TEST_F(StructFile, AMemberIsDeferredAndRemoved)
{
    WriteDatabase();
    AddRecord("Bags/One", "Bag", kOneRow);
    ASSERT_TRUE(Open());
    const CRef<CCorvaneAttrib> name(&Member("Bags/One", 0, 0));
    m_Events.clear();
    ASSERT_TRUE(Get().DeferDeprecateAttribute(name.Get(), 10));
    EXPECT_EQ(GetMembers("Bags/One"), "Name.10 Name.0 Count.0 ");
    EXPECT_EQ(Show("Bags/One"), "Name=rope Name=rope Count=2 | ");
    EXPECT_THAT(m_Events, ElementsAre(60, 60, 59)); // The template's row, the record's, then the member.
    SBuildRange range;
    ASSERT_TRUE(name->GetBuildRange(range));
    EXPECT_EQ(range.m_nLast, 9);
    EXPECT_TRUE(Items("Bags/One").IsChildDeferred(*name));
    EXPECT_FALSE(Items("Bags/One").IsChildDeferred(Member("Bags/One", 0, 0)));
    EXPECT_EQ(Member("Bags/One", 0, 0).GetGuid(), name->GetGuid());
    EXPECT_EQ(GetAvailable("Bags/One", 10), "Name.10 Count.0 ");
    // A change of the older one is marked, of the newer one is not.
    ASSERT_TRUE(Member("Bags/One", 0, 1).SetValue(0, u"old") && Member("Bags/One", 0, 0).SetValue(0, u"new"));
    EXPECT_TRUE(Member("Bags/One", 0, 1).IsModified());
    EXPECT_FALSE(Member("Bags/One", 0, 0).IsModified());

    m_Events.clear();
    ASSERT_TRUE(Get().DeferDeleteAttribute(&Member("Bags/One", 0, 2), 20));
    EXPECT_EQ(m_Events.back(), 58);
    EXPECT_EQ(GetAvailable("Bags/One", 20), "Name.10 ");
    EXPECT_EQ(GetAvailable("Bags/One", 5), "Name.0 Count.0 ");
    ASSERT_TRUE(Get().DeferDeprecateAttribute(&Member("Bags/One", 0, 3), 20));
    EXPECT_EQ(GetAvailable("Bags/One", 20), "Name.10 Count.20 ");
    ASSERT_TRUE(Get().DeferDeprecateAttribute(&Member("Bags/One", 0, 1), 5));
    EXPECT_EQ(GetMembers("Bags/One"), "Name.10 Name.5 Name.0 Count.20 Count.0 ");

    // The whole stands the same after a save of the database.
    ASSERT_TRUE(Get().SaveDatabase({}, false));
    EXPECT_THAT(Read("Schemas/Item.struct"),
                HasSubstr("[Attrib.Name.10]\nType=Text\nData=\nDefault=none\nUnicode=False\nDeleted=False\n"
                          "Values=1\nHelp=\n\n[Attrib.Name.5]\n"));
    const std::string shown = "Name=new Name=old Name=old Count=2 Count=2 | ";
    EXPECT_EQ(Show("Bags/One"), shown);
    EXPECT_EQ(ShowReloaded("Bags/One"), shown);
    EXPECT_TRUE(Member("Bags/One", 0, 2).IsModified());
    ASSERT_TRUE(Get().DeleteDeferredAttribute(Items("Bags/One").GetAttribData(), 2));
    EXPECT_EQ(GetMembers("Bags/One"), "Name.10 Name.5 Count.20 Count.0 ");
    EXPECT_EQ(Show("Bags/One"), "Name=new Name=old Count=2 Count=2 | ");
}

TEST_F(StructFile, ARefusedCheckOutLeavesTheFileAlone)
{
    struct CFileGate final : CSourceGate
    {
        bool IsConnected() const override { return true; }
        EControlledFileStatus GetFileStatus(std::u16string_view) override { return m_Status; }
        using CSourceGate::CheckOutForEdit;
        bool CheckOutForEdit(std::u16string_view) override { return m_bGrant; }
        bool CheckIn(std::u16string_view) override { return true; }
        bool UndoCheckOut(std::u16string_view) override { return true; }
        EControlledFileStatus m_Status = EControlledFileStatus::CheckedIn;
        bool m_bGrant = false;
    } gate;
    WriteDatabase();
    AddRecord("Bags/One", "Bag", kOneRow);
    const CCorvaneContext& context = Get().GetContext();
    CCorvaneMgr manager(context, m_Types, m_AttribData, gate, m_Undo);
    ASSERT_TRUE(manager.OpenDatabase(GetText("Root.Gamdb00s")));
    CCorvaneAttrib& items = *manager.FindRecord(u"Bags/One", nullptr)->GetAttributeList()[0];
    CCorvaneAttrib& name = *items.GetChildAttributeAt(0, 0);
    EXPECT_FALSE(manager.DeferDeprecateAttribute(&name, 10));
    EXPECT_FALSE(manager.DeferDeleteAttribute(&name, 10));
    EXPECT_EQ(GetTitles(), "Check Out Failed;Check Out Failed;");
    EXPECT_EQ(
        ToNarrow(m_Questions.GetQuestions()[0].m_sText),
        "Failed to check out the following 'struct' file.  The deprecation operation will be aborted.\n\n" +
            Path("Schemas/Item.struct"));
    EXPECT_EQ(
        ToNarrow(m_Questions.GetQuestions()[1].m_sText),
        "Failed to check out the following 'struct' file.  The deletion operation will be aborted.\n\n" +
            Path("Schemas/Item.struct"));

    std::vector<ICorvaneCustomFile*> files;
    manager.EnumerateCustomFiles([&](ICorvaneCustomFile& file) { files.push_back(&file); });
    ASSERT_EQ(files.size(), 1u);
    ICorvaneCustomFile& file = *files[0];
    std::u16string text;
    file.GetDisplayName(text);
    EXPECT_EQ(text, u"Item");
    file.GetFilePath(text);
    EXPECT_EQ(text, GetText("Schemas/Item.struct"));
    file.GetTypeName(text);
    EXPECT_EQ(text, u"Struct");
    EXPECT_TRUE(file.IsOpen() && file.CanSave());
    const struct
    {
        EControlledFileStatus m_Status;
        std::uint32_t m_nFlags;
        bool m_bSubmit, m_bCheckOut, m_bUndo;
    } cases[] = {{EControlledFileStatus::CheckedIn, 9, true, false, true},
                 {EControlledFileStatus::CheckedOutHere, 3, true, true, true},
                 {EControlledFileStatus::CheckedOutElsewhere, 1, false, false, false},
                 {EControlledFileStatus::NotControlled, 1, false, false, false}};
    for (const auto& row : cases)
    {
        gate.m_Status = row.m_Status;
        EXPECT_EQ(file.GetSourceControlFlags(), row.m_nFlags);
        EXPECT_EQ(file.Submit(), row.m_bSubmit);
        EXPECT_EQ(file.CheckOut(), row.m_bCheckOut);
        EXPECT_EQ(file.UndoCheckOut(), row.m_bUndo);
        EXPECT_TRUE(file.Revert());
        EXPECT_TRUE(file.SaveAndSubmit());
    }
    ASSERT_TRUE(manager.CloseDatabase());
}
