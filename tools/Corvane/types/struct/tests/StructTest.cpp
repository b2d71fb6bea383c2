// What of structs needs more than a script: hostile files, the undo list, copies of records, and reading held
// against a scan on random data.
#include "CorvaneMgr.h"
#include "CorvaneRecord.h"
#include "NameCompare.h"
#include "TestAttribute.h"
#include "UndoScope.h"
#include "Unicode.h"
#include "struct/CorvaneTypeStruct.h"
#include "struct/StructFileRegistry.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

namespace
{
constexpr std::string_view kItem = "[Attrib.Name.0]\nType=Text\nDefault=none\n\n"
                                   "[Attrib.Count.0]\nType=Integer\nDefault=1\nValues=-1\n\n";
constexpr std::string_view kTwoRows =
    "[Attrib.Items.0]\n[Attrib.Items.0.0.Name]\nValue.0000=rope\nTodo=True\nComment=long\n"
    "[Attrib.Items.0.0.Count]\nValue.0000=2\nValue.0001=4\n[Attrib.Items.0.1.Name]\nValue.0000=torch\n";
constexpr std::string_view kTwoShown = "[Name!=rope Count=2|4][Name=torch Count=1]";

// The struct file "Schemas/Item.struct" and the schema "Bag", whose records hold items.
class Struct : public testing::Test, protected CTestDatabase
{
protected:
    void WriteDatabase(std::string_view file = kItem) const
    {
        Write("Schemas/Item.struct", file);
        AddSchema("Bag", "[Attrib.Items.0]\nType=Struct\nData=Item.struct\nValues=-1\n");
        AddCategory("Bags", "Bag");
    }
    CCorvaneTypeStruct& Items(std::string_view record) const
    {
        return dynamic_cast<CCorvaneTypeStruct&>(Attrib(record, "Items"));
    }
    std::string Show(std::string_view record) const { return ShowValues(Items(record)); }
};
} // namespace

TEST_F(Struct, DeepAndMultiplyingNestsEndWithAMessage)
{
    WriteDatabase("[Attrib.Next.0]\nType=Struct\nData=N0.struct\nValues=2\n");
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
        const std::u16string& text = question.m_sText;
        tooDeep += text.find(u"nests struct files too deeply") != std::u16string::npos ? 1 : 0;
        tooMany += text.find(u"make more than 65535 members") != std::u16string::npos ? 1 : 0;
    }
    EXPECT_EQ(tooDeep, 1u);
    EXPECT_GE(tooMany, 2u); // The chain of twos somewhere on its way up, and the wide one.
    EXPECT_EQ(tooDeep + tooMany, m_Questions.GetQuestions().size());
}

TEST_F(Struct, BrokenFilesLoadOrAreTold)
{
    std::mt19937 random(3);
    std::string whole = "\xFF\xFE";
    for (const char unit : std::string(kItem) + "[Attrib.Sub.0]\nType=Struct\nData=Item.struct\nValues=9\n")
        whole += {unit, '\0'};
    WriteDatabase();
    AddRecord("Bags/One", "Bag", kTwoRows);
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

TEST_F(Struct, AnInsertedRowIsTakenBackWithItsMembers)
{
    WriteDatabase();
    AddRecord("Bags/One", "Bag", kTwoRows);
    ASSERT_TRUE(Open());
    CCorvaneTypeStruct& items = Items("Bags/One");
    CRef<CCorvaneAttrib> member;
    {
        CUndoScope scope(m_Undo);
        ASSERT_TRUE(items.InsertRow(1));
        member = items.GetChildAttributeAt(1, 0);
        ASSERT_TRUE(member->SetValue(0, u"oil"));
        scope.Accept(u"");
    }
    const std::string after = Show("Bags/One");
    for (int round = 0; round < 2; ++round)
    {
        EXPECT_TRUE(m_Undo.Undo(1));
        EXPECT_EQ(Show("Bags/One"), kTwoShown);
        EXPECT_EQ(member->GetOwnerRecord(), nullptr);
        EXPECT_TRUE(m_Undo.Refers(items) && m_Undo.Refers(*member));
        EXPECT_TRUE(m_Undo.Redo(1));
        EXPECT_EQ(Show("Bags/One"), after);
        EXPECT_EQ(items.GetChildAttributeAt(1, 0), member.Get());
    }
    // A member that came meanwhile is missing in the row that is held.
    ASSERT_TRUE(m_Undo.Undo(1));
    Write("Schemas/Item.struct", std::string(kItem) + "[Attrib.New.0]\nType=Boolean\n");
    ASSERT_TRUE(items.GetStructFile()->Reload());
    EXPECT_FALSE(m_Undo.Redo(1));
}

TEST_F(Struct, ReferencesAndCopiesOfRecordsKeepTheirPlaces)
{
    WriteDatabase();
    AddRecord("Bags/Parent", "Bag", kTwoRows);
    ASSERT_TRUE(Open());
    CCorvaneRecord& parent = Record("Bags/Parent");
    const CRef<CCorvaneRecord> reference = parent.CreateReference();
    const CRef<CCorvaneRecord> copy = parent.Clone();
    CCorvaneAttrib& cloned = *copy->GetAttributeList()[0];
    EXPECT_EQ(ShowValues(cloned), kTwoShown);
    EXPECT_EQ(cloned.GetChildAttributeAt(0, 0)->GetComment(), u"long");
    EXPECT_EQ(cloned.GetChildAttributeAt(0, 0)->GetParentAttrib(), &cloned);
    ASSERT_TRUE(Items("Bags/Parent").AddValue(u""));
    EXPECT_EQ(ShowAttrib(*reference->GetAttributeList()[0]),
              "Items^=[Name!^=rope Count^=2|4][Name^=torch Count^=1][Name^=none Count^=1]");
    EXPECT_EQ(ShowValues(cloned), kTwoShown);

    CCorvaneAttrib* const count = Items("Bags/Parent").GetChildAttributeAt(1, 1);
    CCorvaneAttrib* found = nullptr;
    ASSERT_TRUE(Get().FindSymmetricAttribute(&parent, count, reference.Get(), found));
    EXPECT_EQ(found, reference->GetAttributeList()[0]->GetChildAttributeAt(1, 1));
    ASSERT_TRUE(Get().FindSymmetricAttribute(reference.Get(), found, &parent, found));
    EXPECT_EQ(found, count);
    reference->Clear();
    copy->Clear();
}

TEST_F(Struct, OneFileServesAllAttributesAndIsAFileOfItsOwn)
{
    struct CFileGate final : CSourceGate
    {
        bool IsConnected() const override { return true; }
        EControlledFileStatus GetFileStatus(std::u16string_view) override { return m_Status; }
        using CSourceGate::CheckOutForEdit;
        bool CheckOutForEdit(std::u16string_view) override { return false; }
        bool CheckIn(std::u16string_view) override { return true; }
        bool UndoCheckOut(std::u16string_view) override { return true; }
        EControlledFileStatus m_Status = EControlledFileStatus::CheckedIn;
    } gate;
    WriteDatabase();
    AddSchema("Box", "[Attrib.Items.0]\nType=Struct\nData=..\\Schemas\\ITEM.struct\n");
    CCorvaneMgr manager(Get().GetContext(), m_Types, m_AttribData, gate, m_Undo);
    ASSERT_TRUE(manager.OpenDatabase(GetText("Root.Gamdb00s")));
    std::vector<ICorvaneCustomFile*> files;
    manager.EnumerateCustomFiles([&](ICorvaneCustomFile& file) { files.push_back(&file); });
    ASSERT_EQ(files.size(), 1u);
    ICorvaneCustomFile& file = *files[0];
    std::u16string name, path;
    file.GetDisplayName(name);
    file.GetFilePath(path);
    EXPECT_EQ(name + path, u"Item" + GetText("Schemas/Item.struct"));
    std::string told; // The flags, and whether Submit, CheckOut and UndoCheckOut are done, for each status.
    for (const auto status :
         {EControlledFileStatus::CheckedIn, EControlledFileStatus::CheckedOutHere,
          EControlledFileStatus::CheckedOutElsewhere, EControlledFileStatus::NotControlled})
    {
        gate.m_Status = status;
        told += std::to_string(file.GetSourceControlFlags()) + (file.Submit() ? " submit" : "") +
                (file.CheckOut() ? " out" : "") + (file.UndoCheckOut() ? " undo" : "") + "; ";
    }
    EXPECT_EQ(told, "9 submit undo; 3 submit out undo; 1; 1; ");
    ASSERT_TRUE(manager.CloseDatabase());
    EXPECT_TRUE(manager.GetTypeState<CStructFileRegistry>().GetFiles().empty());
}

namespace
{
// The sections of a record, and what a reader that looks every name up finds in them.
class CNamedSections
{
public:
    explicit CNamedSections(std::mt19937& random)
    {
        for (std::size_t i = random() % 20; i > 0; --i)
        {
            static constexpr std::string_view kTails[] = {
                "",         ".A",         ".A.0",          ".Sub",         ".Sub.0",   ".sub.0",
                ".Sub.0.0", ".Sub.0.1.V", ".Sub.0.0.V.10", ".Sub.0.0.V.0", ".Sub.0.1", ".Sub.0.1.V.10"};
            const std::string row = "Attrib.Items.0." + std::to_string(random() % 3);
            m_Names.push_back(ToWide(row + std::string(kTails[random() % std::size(kTails)])));
        }
        std::shuffle(m_Names.begin(), m_Names.end(), random);
    }
    std::string GetText() const
    {
        std::string text;
        for (std::size_t i = 0; i < m_Names.size(); ++i)
            text += "[" + ToNarrow(m_Names[i]) + "]\nValue.0000=" + std::to_string(i) + "\n";
        return text;
    }
    std::string Show() const
    {
        std::string shown;
        std::string at = "Attrib.Items.0.0";
        for (; Exists(at); ++at.back())
        {
            shown += "[A=" + Find({at + ".A.0", at + ".A"}, "d") + " Sub=";
            const bool hasSub = !Find({at + ".Sub.0", at + ".Sub"}, "").empty();
            std::string inner = at + ".Sub.0.0";
            for (; hasSub ? Exists(inner) : inner.back() < '2'; ++inner.back())
            {
                const std::string old = hasSub ? Find({inner + ".V.0", inner + ".V"}, "d") : "d";
                shown += "[V@10=" + (hasSub ? Find({inner + ".V.10"}, old) : old) + " V=" + old + "]";
            }
            shown += "]";
        }
        return shown;
    }

private:
    bool Exists(const std::string& name) const
    {
        return std::any_of(m_Names.begin(), m_Names.end(),
                           [&](const std::u16string& known) {
                               return EqualNames(known, ToWide(name)) ||
                                      BeginsWithName(known, ToWide(name + "."));
                           });
    }
    // The value of the first of these sections that is there.
    std::string Find(const std::vector<std::string>& names, const std::string& otherwise) const
    {
        for (const std::string& name : names)
        {
            for (std::size_t i = 0; i < m_Names.size(); ++i)
            {
                if (EqualNames(m_Names[i], ToWide(name)))
                    return std::to_string(i);
            }
        }
        return otherwise;
    }

    std::vector<std::u16string> m_Names{u"Attrib.Items.0"};
};
} // namespace

TEST_F(Struct, SectionsInAnyOrderReadAsALookUpByNameWould)
{
    WriteDatabase("[Attrib.A.0]\nType=Text\nDefault=d\n"
                  "[Attrib.Sub.0]\nType=Struct\nData=Inner.struct\nValues=2\n");
    Write("Schemas/Inner.struct",
          "[Attrib.V.10]\nType=Text\nDefault=d\n[Attrib.V.0]\nType=Text\nDefault=d\n");
    std::mt19937 random(5);
    std::vector<CNamedSections> records;
    for (int round = 0; round < 300; ++round)
    {
        records.emplace_back(random);
        AddRecord("Bags/" + std::to_string(round), "Bag", records.back().GetText());
    }
    ASSERT_TRUE(Open());
    for (std::size_t round = 0; round < records.size(); ++round)
        ASSERT_EQ(Show("Bags/" + std::to_string(round)), records[round].Show()) << records[round].GetText();
}
