// Struct attributes in record files and in the hands of a user: rows, marks, inheritance, undo.
#include "CorvaneEvent.h"
#include "CorvaneMgr.h"
#include "CorvaneRecord.h"
#include "StructDatabase.h"
#include "UndoScope.h"
#include "Unicode.h"

#include <gmock/gmock.h>

#include <random>

using testing::HasSubstr;
using testing::Not;

namespace
{
constexpr std::string_view kTwoRows =
    "[Attrib.Items.0]\nInherit=False\n\n"
    "[Attrib.Items.0.0.Name]\nValue.0000=rope\n\n[Attrib.Items.0.0.Count]\nValue.0000=2\nValue.0001=4\n\n"
    "[Attrib.Items.0.1.Name]\nValue.0000=torch\n\n[Attrib.Items.0.1.Count]\nValue.0000=7\n\n";
constexpr std::string_view kTwoShown = "Name=rope Count=2,4 | Name=torch Count=7 | ";

class StructRecord : public CStructDatabase
{
};
} // namespace

TEST_F(StructRecord, ReadsTheRowsOfItsSections)
{
    const std::string own = "[Attrib.Items.0]\n";
    const struct
    {
        std::string m_sSections;
        std::string m_sShown;
    } cases[] = {
        {"", "Name=none Count=1 | "},
        {own, ""},
        {std::string(kTwoRows), std::string(kTwoShown)},
        {own + "[Attrib.Items.0.0.Name]\nValue.0000=a\n[Attrib.Items.0.2.Name]\nValue.0000=c\n",
         "Name=a Count=1 | "},
        {own + "[attrib.items.0.0]\n", "Name=none Count=1 | "},
        {own + "[Attrib.Items.0.0.Gone]\n[Attrib.Items.0.00.Name]\nValue.0000=b\n", "Name=none Count=1 | "},
        {own + "[Attrib.Items.0.0.Name]\nValue.0000=old\n[Attrib.Items.0.0.Name.0]\nValue.0000=new\n"
               "[Attrib.Items.0.0.Name.0]\nValue.0000=late\n",
         "Name=new Count=1 | "},
        {"[Attrib.Items]\n[Attrib.Items.0.0.Name]\nValue.0000=a\n", "Name=a Count=1 | "},
        {"[Attrib.Items.0.0.Name]\nValue.0000=z\n[Attrib.Size]\nValue.0000=5\n" + own, "Name=z Count=1 | "},
    };
    WriteDatabase();
    int number = 0;
    for (const auto& row : cases)
        AddRecord("Bags/" + std::to_string(number++), "Bag", row.m_sSections);
    ASSERT_TRUE(Open());
    EXPECT_EQ(GetTitles(), "");
    number = 0;
    for (const auto& row : cases)
    {
        const std::string record = "Bags/" + std::to_string(number++);
        EXPECT_EQ(Show(record), row.m_sShown) << row.m_sSections;
        EXPECT_EQ(ShowReloaded(record), row.m_sShown) << row.m_sSections;
    }
    EXPECT_EQ(Value("Bags/8", "Size"), "5");
}

TEST_F(StructRecord, AFixedCountIsTheTemplatesAndAFilesCountStands)
{
    WriteDatabase("Values=3\n");
    AddRecord("Bags/None", "Bag");
    AddRecord("Bags/Two", "Bag", kTwoRows);
    ASSERT_TRUE(Open());
    EXPECT_EQ(Items("Bags/None").GetValueCount(), 3u);
    EXPECT_EQ(Show("Bags/Two"), kTwoShown);
    EXPECT_FALSE(Items("Bags/Two").AddValue(u""));
    EXPECT_FALSE(Items("Bags/Two").RemoveValue(0));
    EXPECT_FALSE(Items("Bags/Two").MoveValueUp(1));
    EXPECT_EQ(Show("Bags/Two"), kTwoShown);
}

TEST_F(StructRecord, EachMarkOfAMemberSurvivesSaveLoadAndClone)
{
    WriteDatabase();
    AddRecord("Bags/One", "Bag", kTwoRows);
    ASSERT_TRUE(Open());
    for (int pass = 0; pass < 2; ++pass)
    {
        CCorvaneType& member = Member("Bags/One", 1, 0);
        if (pass == 0)
        {
            ASSERT_TRUE(member.SetComment(u"a\r\nb") && member.SetModified(true));
            member.SetLockUser(u"ann");
            member.SetTodo(true);
            member.SetPlaceHolder(true);
            member.SetOverride(true);
            CCorvaneAttrib& other = Member("Bags/One", 0, 1);
            other.SetInherit(true, false);
            ASSERT_TRUE(Items("Bags/One").SetComment(u"struct"));
        }
        EXPECT_EQ(member.GetComment(), u"a\r\nb");
        EXPECT_EQ(member.GetLockUser(), u"ann");
        EXPECT_TRUE(member.IsTodo() && member.IsPlaceHolder() && member.GetOverride() && member.IsModified());
        EXPECT_TRUE(Member("Bags/One", 0, 1).GetInherit());
        EXPECT_TRUE(Items("Bags/One").GetOverride());
        EXPECT_EQ(Items("Bags/One").GetComment(), u"struct");
        const CRef<CCorvaneType> copy = Items("Bags/One").Clone(nullptr);
        const CCorvaneAttrib& cloned = *copy->GetChildAttributeAt(1, 0);
        EXPECT_EQ(cloned.GetComment(), u"a\r\nb");
        EXPECT_TRUE(cloned.IsTodo() && cloned.IsPlaceHolder() && cloned.GetOverride());
        EXPECT_TRUE(cloned.IsSameAttribute(member));
        EXPECT_EQ(cloned.GetParentAttrib(), copy.Get());
        EXPECT_EQ(Show(static_cast<CCorvaneTypeStruct&>(*copy)), kTwoShown);
        EXPECT_EQ(ShowReloaded("Bags/One"), kTwoShown);
    }
    EXPECT_THAT(Read("Bags/One.record"),
                HasSubstr("[Attrib.Items.0.1.Name]\nInherit=False\nPlaceHolder=True\n"));
    EXPECT_THAT(Read("Bags/One.record"), Not(HasSubstr("[Attrib.Items.0]\nInherit=False\nPlaceHolder=False\n"
                                                       "Todo=False\nModified=False\nOverride=True\nLock=\n"
                                                       "Comment=struct\nValue")));
}

TEST_F(StructRecord, RowsAreAddedInsertedRemovedAndMoved)
{
    WriteDatabase();
    AddRecord("Bags/One", "Bag", kTwoRows);
    ASSERT_TRUE(Open());
    CCorvaneTypeStruct& items = Items("Bags/One");
    int told = 0;
    const CObserverHandle observer = Record("Bags/One")
                                         .GetChangeObservers()
                                         .Add(
                                             [&](CCorvaneAttrib&, std::size_t)
                                             {
                                                 ++told;
                                                 return 0;
                                             });
    EXPECT_TRUE(items.AddValue(u"ignored"));
    EXPECT_TRUE(items.InsertRow(1));
    EXPECT_EQ(told, 2);
    EXPECT_TRUE(Record("Bags/One").TestFlag(RECORD_FLAG_MODIFIED));
    EXPECT_EQ(Show(items),
              "Name=rope Count=2,4 | Name=none Count=1 | Name=torch Count=7 | Name=none Count=1 | ");
    EXPECT_FALSE(items.InsertRow(5));
    ASSERT_TRUE(Member("Bags/One", 1, 0).SetValue(0, u"oil"));
    EXPECT_TRUE(items.MoveValueUp(2));
    EXPECT_TRUE(items.MoveValueDown(0));
    EXPECT_FALSE(items.MoveValueUp(0));
    EXPECT_FALSE(items.MoveValueDown(3));
    EXPECT_TRUE(items.RemoveValue(3));
    EXPECT_FALSE(items.RemoveValue(3));
    const std::string shown = "Name=torch Count=7 | Name=rope Count=2,4 | Name=oil Count=1 | ";
    EXPECT_EQ(Show(items), shown);
    std::ptrdiff_t row = -1;
    EXPECT_EQ(items.FindChildAttribute(Member("Bags/One", 2, 1), row), 1);
    EXPECT_EQ(row, 2);

    m_nExpectedAsserts = 2;
    EXPECT_FALSE(items.SetValue(0, u"x"));
    EXPECT_FALSE(items.InsertValue(0, u"x"));
    EXPECT_TRUE(m_Asserts.Has("CCorvaneTypeStruct::SetValue - Not Supported"));
    EXPECT_TRUE(m_Asserts.Has("CCorvaneTypeStruct::InsertValue - Not Supported"));
    EXPECT_EQ(items.GetValue(0), u"");
    EXPECT_EQ(ShowReloaded("Bags/One"), shown);
    m_Gate.m_bConnected = true;
    m_Gate.m_bGrant = false;
    EXPECT_FALSE(Items("Bags/One").AddValue(u""));
    EXPECT_EQ(Show("Bags/One"), shown);
}

TEST_F(StructRecord, AnInsertedRowIsTakenBackWithItsMembers)
{
    WriteDatabase();
    AddRecord("Bags/One", "Bag", kTwoRows);
    ASSERT_TRUE(Open());
    CCorvaneTypeStruct& items = Items("Bags/One");
    {
        CUndoScope scope(m_Undo);
        ASSERT_TRUE(items.InsertRow(1));
        ASSERT_TRUE(Member("Bags/One", 1, 0).SetValue(0, u"oil"));
        scope.Accept(u"");
    }
    const CRef<CCorvaneAttrib> member(&Member("Bags/One", 1, 0));
    const std::string after = Show(items);
    EXPECT_TRUE(m_Undo.Refers(items));
    for (int round = 0; round < 2; ++round)
    {
        EXPECT_TRUE(m_Undo.Undo(1));
        EXPECT_EQ(Show(items), kTwoShown);
        EXPECT_EQ(member->GetOwnerRecord(), nullptr);
        EXPECT_TRUE(m_Undo.Refers(*member));
        EXPECT_TRUE(m_Undo.Redo(1));
        EXPECT_EQ(Show(items), after);
        EXPECT_EQ(items.GetChildAttributeAt(1, 0), member.Get());
    }
    // A member that came meanwhile is missing in the row that is held.
    ASSERT_TRUE(m_Undo.Undo(1));
    Write("Schemas/Item.struct", std::string(kItem) + "[Attrib.New.0]\nType=Boolean\n");
    ASSERT_TRUE(File("Bags/One").Reload());
    EXPECT_FALSE(m_Undo.Redo(1));
}

namespace
{
// A parent with two rows, a child that inherits, and a grandchild that inherits from it.
class StructInherit : public StructRecord
{
protected:
    static constexpr std::string_view kInherit = "[Hierarchy]\nRecord=Bags/";

    void OpenFamily(std::string_view childSections = "[Attrib.Items.0]\nInherit=True\n")
    {
        WriteDatabase();
        AddRecord("Bags/Parent", "Bag", kTwoRows);
        AddRecord("Bags/Child", "Bag", std::string(kInherit) + "Parent\n\n" + std::string(childSections));
        AddRecord("Bags/Grand", "Bag", std::string(kInherit) + "Child\n\n");
        ASSERT_TRUE(Open());
        ASSERT_EQ(GetTitles(), "");
    }
    std::string ShowFamily() const
    {
        return Show("Bags/Parent") + "/ " + Show("Bags/Child") + "/ " + Show("Bags/Grand");
    }
    static std::string Thrice(std::string_view rows)
    {
        const std::string text(rows);
        return text + "/ " + text + "/ " + text;
    }
};
} // namespace

TEST_F(StructInherit, ShowsTheParentsRowsAndFollowsThem)
{
    OpenFamily();
    EXPECT_EQ(ShowFamily(), Thrice(kTwoShown));
    CCorvaneTypeStruct& parent = Items("Bags/Parent");
    ASSERT_TRUE(parent.AddValue(u""));
    ASSERT_TRUE(Member("Bags/Parent", 2, 1).AddValue(u"8"));
    ASSERT_TRUE(parent.MoveValueUp(2));
    EXPECT_EQ(ShowFamily(), Thrice("Name=rope Count=2,4 | Name=none Count=1,8 | Name=torch Count=7 | "));
    EXPECT_TRUE(Member("Bags/Grand", 1, 0).GetInherit());
    EXPECT_FALSE(Member("Bags/Grand", 1, 0).IsEditable());
    ASSERT_TRUE(parent.RemoveValue(0));
    ASSERT_TRUE(parent.RemoveValue(0));
    EXPECT_EQ(ShowFamily(), Thrice("Name=torch Count=7 | "));

    CCorvaneAttrib* found = nullptr;
    ASSERT_TRUE(Get().FindSymmetricAttribute(&Record("Bags/Grand"), &Member("Bags/Grand", 0, 1),
                                             &Record("Bags/Parent"), found));
    EXPECT_EQ(found, &Member("Bags/Parent", 0, 1));
    ASSERT_TRUE(Get().FindSymmetricAttribute(&Record("Bags/Parent"), found, &Record("Bags/Child"), found));
    EXPECT_EQ(found, &Member("Bags/Child", 0, 1));

    // Saved as it shows, and a mark of the child's own with it.
    Member("Bags/Child", 0, 0).SetTodo(true);
    ASSERT_TRUE(Record("Bags/Parent").SaveToFile(true) && Record("Bags/Grand").SaveToFile(true));
    EXPECT_EQ(ShowReloaded("Bags/Child"), "Name=torch Count=7 | ");
    EXPECT_TRUE(Member("Bags/Child", 0, 0).IsTodo());
    EXPECT_TRUE(Items("Bags/Child").GetInherit());
    EXPECT_THAT(Read("Bags/Child.record"), HasSubstr("Value.0000=torch"));
}

TEST_F(StructInherit, AWrittenMemberTakesTheRowsOutOfInheritance)
{
    OpenFamily();
    CCorvaneType& name = Member("Bags/Child", 1, 0);
    ASSERT_TRUE(name.SetValue(0, u"lamp"));
    EXPECT_EQ(&Member("Bags/Child", 1, 0), &name);
    EXPECT_FALSE(Items("Bags/Child").GetInherit());
    const std::string changed = "Name=rope Count=2,4 | Name=lamp Count=7 | ";
    EXPECT_EQ(ShowFamily(), std::string(kTwoShown) + "/ " + changed + "/ " + changed);
    // What the child shows is its own by now.
    ASSERT_TRUE(Items("Bags/Parent").RemoveValue(0));
    ASSERT_TRUE(Member("Bags/Parent", 0, 1).SetValue(0, u"9"));
    EXPECT_EQ(ShowFamily(), "Name=torch Count=9 | / " + changed + "/ " + changed);
    // So does a change of the rows, of any value in a list, and an end of a member's inheritance.
    ASSERT_TRUE(Member("Bags/Grand", 0, 1).SetValue(1, u"5"));
    EXPECT_EQ(Show("Bags/Grand"), "Name=rope Count=2,5 | Name=lamp Count=7 | ");
    Items("Bags/Grand").SetInherit(true, false);
    ASSERT_TRUE(Items("Bags/Grand").AddValue(u""));
    EXPECT_EQ(Show("Bags/Grand"), changed + "Name=none Count=1 | ");
    Items("Bags/Grand").SetInherit(true, false);
    Member("Bags/Grand", 0, 0).SetInherit(false, false);
    EXPECT_FALSE(Items("Bags/Grand").GetInherit());
    EXPECT_EQ(Show("Bags/Grand"), changed);
}

TEST_F(StructInherit, ItsOwnRowsWaitBehindTheParents)
{
    OpenFamily("[Attrib.Items.0]\nInherit=False\n[Attrib.Items.0.0.Name]\nValue.0000=own\n"
               "[Attrib.Items.0.1.Name]\n[Attrib.Items.0.2.Name]\nValue.0000=third\n");
    const std::string own = "Name=own Count=1 | Name=none Count=1 | Name=third Count=1 | ";
    EXPECT_EQ(ShowFamily(), std::string(kTwoShown) + "/ " + own + "/ " + own);
    Member("Bags/Child", 0, 0).SetTodo(true);
    Items("Bags/Child").SetInherit(true, false);
    EXPECT_EQ(ShowFamily(), Thrice(kTwoShown));
    Items("Bags/Child").SetInherit(false, false);
    EXPECT_EQ(Show("Bags/Grand"), own);
    EXPECT_TRUE(Member("Bags/Child", 0, 0).IsTodo());
    // One member follows the parent's row of the same number, until its row gets another one.
    Member("Bags/Child", 1, 0).SetInherit(true, false);
    EXPECT_EQ(Show("Bags/Child"), "Name=own Count=1 | Name=torch Count=1 | Name=third Count=1 | ");
    Member("Bags/Child", 2, 0).SetInherit(true, false);
    EXPECT_EQ(Member("Bags/Child", 2, 0).GetValue(0), u"third");
    ASSERT_TRUE(Items("Bags/Child").InsertRow(0));
    EXPECT_EQ(Show("Bags/Child"),
              "Name=none Count=1 | Name=own Count=1 | Name=torch Count=1 | Name=third Count=1 | ");
    EXPECT_FALSE(Member("Bags/Child", 2, 0).GetInherit());

    // A parent that goes leaves the child its own rows; without one nothing is shown, and nothing is lost.
    Items("Bags/Child").SetInherit(true, false);
    Record("Bags/Parent").Clear();
    EXPECT_EQ(Items("Bags/Child").GetValueCount(), 4u);
    Items("Bags/Child").SetInherit(true, false);
    EXPECT_EQ(Items("Bags/Child").GetValueCount(), 0u);
    ASSERT_TRUE(Record("Bags/Child").SaveToFile(true));
    EXPECT_THAT(Read("Bags/Child.record"), HasSubstr("[Attrib.Items.0.3.Name]"));
}

TEST_F(StructInherit, AReferenceAndAReadAgainFollowToo)
{
    OpenFamily();
    const CRef<CCorvaneRecord> reference = Record("Bags/Parent").CreateReference();
    const auto& items = static_cast<const CCorvaneTypeStruct&>(*reference->GetAttributeList()[0]);
    EXPECT_EQ(Show(items), kTwoShown);
    ASSERT_TRUE(Items("Bags/Parent").AddValue(u""));
    EXPECT_EQ(items.GetValueCount(), 3u);
    const CRef<CCorvaneRecord> copy = Record("Bags/Child").Clone();
    EXPECT_EQ(Show(static_cast<const CCorvaneTypeStruct&>(*copy->GetAttributeList()[0])),
              Show("Bags/Parent"));

    AddRecord("Bags/Parent", "Bag", "[Attrib.Items.0]\n[Attrib.Items.0.0.Count]\nValue.0000=6\n");
    ASSERT_TRUE(Record("Bags/Parent").ReloadFromFile());
    EXPECT_EQ(ShowFamily(), Thrice("Name=none Count=6 | "));
    ASSERT_TRUE(Record("Bags/Child").ReloadFromFile());
    EXPECT_EQ(ShowFamily(), Thrice("Name=none Count=6 | "));
    reference->Clear();
    copy->Clear();
}

// Links in rows take part in the operations on records as any link does: those that show, and only those.
TEST_F(StructInherit, LinksInRowsKnowTheirTargets)
{
    const auto row = [](int number, const std::string& target)
    { return "[Attrib.Items.0." + std::to_string(number) + ".Owner]\nValue.0000=Bags/" + target + "\n"; };
    // A repair goes from link to link in the order of their making: the parent's comes first.
    WriteDatabase("Values=-1\n", "[Attrib.Owner.0]\nType=RecordLink\nData=Bag\n");
    AddRecord("Bags/Big", "Bag", "[Attrib.Items.0]\n" + row(0, "Shown"));
    AddRecord("Bags/Small", "Bag",
              std::string(kInherit) + "Big\n[Attrib.Items.0]\nInherit=True\n" + row(0, "Big") +
                  row(1, "Hidden"));
    AddRecord("Bags/Shown", "Bag");
    AddRecord("Bags/Hidden", "Bag");
    ASSERT_TRUE(Open());
    const auto ask = [&](const char* record)
    { return Get().Notify(CCorvaneEvent(ECorvaneEvent::RecordDeleting, &Record(record))); };
    EXPECT_NE(ask("Bags/Shown"), 0);
    EXPECT_EQ(ask("Bags/Hidden"), 0);
    ASSERT_TRUE(Record("Bags/Shown").SetName(u"Other"));
    const SRecordRenamed renamed{&Record("Bags/Other"), u"Bags/Shown", u"Bags/Other"};
    Get().Notify(CCorvaneEvent(ECorvaneEvent::RecordRenamed, renamed));
    EXPECT_EQ(Show("Bags/Big"), "Owner=Bags/Other | ");
    EXPECT_EQ(Show("Bags/Small"), "Owner=Bags/Other | ");
    EXPECT_TRUE(Items("Bags/Small").GetInherit());
    Items("Bags/Small").SetInherit(false, false);
    EXPECT_NE(ask("Bags/Hidden"), 0);
}

TEST_F(StructRecord, AnOlderEntryHandsItsRowsOn)
{
    Write("Schemas/Item.struct", kItem);
    Write("Schemas/Other.struct",
          "[Attrib.Count.0]\nType=Integer\n[Attrib.Extra.0]\nType=Boolean\nDefault=True\n");
    AddSchema("Bag", "[Attrib.Items.10]\nType=Struct\nData=Other.struct\nValues=-1\n"
                     "[Attrib.Items.0]\nType=Struct\nData=Item.struct\nValues=-1\n");
    AddCategory("Bags", "Bag");
    AddRecord("Bags/One", "Bag", kTwoRows);
    ASSERT_TRUE(Open());
    EXPECT_EQ(Show(Items("Bags/One", 10)), "Count=2,4 Extra=True | Count=7 Extra=True | ");
    ASSERT_TRUE(Member("Bags/One", 0, 0).SetValue(0, u"x"));
    EXPECT_TRUE(Items("Bags/One").IsModified()); // An older entry changed behind the newer one.
}

// Random trees of nested rows in random places of the file, read against a scan that looks every name up.
TEST_F(StructRecord, SectionsInAnyOrderReadAsALookUpByNameWould)
{
    Write("Schemas/Inner.struct",
          "[Attrib.V.10]\nType=Text\nDefault=d\n[Attrib.V.0]\nType=Text\nDefault=d\n");
    Write("Schemas/Item.struct", "[Attrib.A.0]\nType=Text\nDefault=d\n"
                                 "[Attrib.Sub.0]\nType=Struct\nData=Inner.struct\nValues=2\n");
    AddSchema("Bag",
              "[Attrib.Items.0]\nType=Struct\nData=Item.struct\nValues=-1\n[Attrib.Size.0]\nType=Text\n");
    AddCategory("Bags", "Bag");
    std::mt19937 random(5);
    constexpr int kRounds = 300;
    std::vector<std::vector<std::string>> files;
    for (int round = 0; round < kRounds; ++round)
    {
        std::vector<std::string>& names = files.emplace_back(1, "Attrib.Items.0");
        for (std::size_t i = random() % 20; i > 0; --i)
        {
            std::string name = "Attrib.Items.0." + std::to_string(random() % 3);
            static constexpr std::string_view kTails[] = {
                "",         ".A",         ".A.0",          ".Sub",         ".Sub.0",   ".sub.0",
                ".Sub.0.0", ".Sub.0.1.V", ".Sub.0.0.V.10", ".Sub.0.0.V.0", ".Sub.0.1", ".Sub.0.1.V.10"};
            names.push_back(name.append(kTails[random() % std::size(kTails)]));
        }
        std::shuffle(names.begin(), names.end(), random);
        std::string sections;
        for (std::size_t i = 0; i < names.size(); ++i)
            sections += "[" + names[i] + "]\nValue.0000=" + std::to_string(i) + "\n";
        AddRecord("Bags/" + std::to_string(round), "Bag", sections);
    }
    ASSERT_TRUE(Open());
    for (int round = 0; round < kRounds; ++round)
    {
        const std::vector<std::string>& names = files[static_cast<std::size_t>(round)];
        const auto lower = [](std::string text)
        {
            std::transform(text.begin(), text.end(), text.begin(), [](char c) { return c == 'S' ? 's' : c; });
            return text;
        };
        const auto find = [&](const std::string& name)
        {
            const auto at = std::find_if(names.begin(), names.end(),
                                         [&](const auto& known) { return lower(known) == lower(name); });
            return at != names.end() ? std::to_string(at - names.begin()) : std::string();
        };
        const auto exists = [&](const std::string& name)
        {
            return std::any_of(names.begin(), names.end(),
                               [&](const auto& known) {
                                   return lower(known) == lower(name) ||
                                          lower(known).starts_with(lower(name) + ".");
                               });
        };
        const auto first = [](const std::string& a, const std::string& b) { return a.empty() ? b : a; };
        std::string expected;
        for (int row = 0; exists("Attrib.Items.0." + std::to_string(row)); ++row)
        {
            const std::string at = "Attrib.Items.0." + std::to_string(row);
            expected += "A=" + first(first(find(at + ".A.0"), find(at + ".A")), "d") + " Sub=[";
            const bool hasSub = !find(at + ".Sub.0").empty() || !find(at + ".Sub").empty();
            for (int inner = 0; hasSub ? exists(at + ".Sub.0." + std::to_string(inner)) : inner < 2; ++inner)
            {
                const std::string below = at + ".Sub.0." + std::to_string(inner) + ".V";
                const bool read = hasSub;
                const std::string old = first(read ? first(find(below + ".0"), find(below)) : "", "d");
                expected += "V=" + first(read ? find(below + ".10") : "", old) + " V=" + old + " | ";
            }
            expected += "] | ";
        }
        ASSERT_EQ(Show("Bags/" + std::to_string(round)), expected) << testing::PrintToString(names);
    }
}
