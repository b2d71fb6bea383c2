// Deferred attributes on real trees. The measure of every operation is what a save and a load give: a second
// manager that opens the saved files must show the same lists and values.
#include "CorvaneSchemaAttribData.h"
#include "CorvaneType.h"
#include "DeferState.h"
#include "DeferredAttributes.h"
#include "MemberStore.h"
#include "TestDatabase.h"
#include "Unicode.h"
#include "boolean/CorvaneTypeBoolean.h"

#include <gmock/gmock.h>

#include <algorithm>

using testing::HasSubstr;
using testing::Not;

namespace
{
std::string DumpList(const CCorvaneRecord& record)
{
    std::string text;
    for (const CRef<CCorvaneAttrib>& attrib : record.GetAttributeList())
    {
        text += " " + ToNarrow(attrib->GetName()) + "." + std::to_string(attrib->GetBuild());
        text += attrib->GetAttribData()->GetBuild() == attrib->GetBuild() ? "" : "!";
        text += attrib->GetAttribData()->TestFlag(ATTRIB_FLAG_DELETED) ? "-=" : "=";
        text += ToNarrow(attrib->GetValue(0)) + (attrib->GetInherit() ? "i" : "") +
                (attrib->IsModified() ? "m" : "");
    }
    return text + "\n";
}

// Every schema with its own entries and its template, then every record.
std::string Dump(const CCorvaneMgr& manager)
{
    std::string text;
    for (const CRef<CCorvaneSchema>& schema : manager.GetSchemas())
    {
        text += ToNarrow(schema->GetName()) + ":";
        for (const CRef<CCorvaneSchemaAttribData>& data : schema->GetAttribDataList())
            text += " " + ToNarrow(data->GetBuildSection().m_sName);
        text += " |" + DumpList(*schema->GetTemplate());
    }
    manager.EnumerateRecords(
        [&text](CCorvaneRecord& record)
        {
            text += ToNarrow(record.GetName()) + ":" + DumpList(record);
            return true;
        });
    return text;
}

// Base <- Child <- Grand. Grand has a Mass of its own beside the inherited one. The record Alpha inherits
// from Omega, which comes after it; Beta hangs below Omega too and has its own Mass.
class Defer : public testing::Test, protected CTestDatabase
{
protected:
    void SetUp() override
    {
        AddSchema("Base", "[Attrib.A.0]\nType=Integer\nDefault=1\n\n"
                          "[Attrib.Mass.0]\nType=Integer\nData=max=100\nDefault=2\nHelp=Weight\n\n"
                          "[Attrib.Tail.0]\nType=Text\nDefault=t\nValues=2\n\n");
        AddSchema("Child", "[Attrib.Own.0]\nType=Integer\nDefault=3\n\n[Attrib.Own2.0]\nType=Integer\n\n",
                  "Base");
        AddSchema("Grand",
                  "[Attrib.Mass.5]\nType=Integer\nDefault=4\n\n[Attrib.Last.0]\nType=Integer\nDefault=9\n\n",
                  "Child");
        for (const char* name : {"Base", "Child", "Grand"})
            AddCategory(std::string(name) + "s", name);
        const auto inherit = [](std::string_view name)
        { return "[Attrib." + std::string(name) + "]\nInherit=True\n\n"; };
        const std::string parent = "[Hierarchy]\nRecord=Bases/Omega\n\n";
        AddRecord("Bases/Alpha", "Base", parent + inherit("A") + inherit("Mass") + inherit("Tail"));
        AddRecord("Bases/Beta", "Base",
                  parent + inherit("A") + "[Attrib.Mass]\nInherit=False\nValue.0000=50\n\n");
        AddRecord("Bases/Omega", "Base", "[Attrib.A]\nValue.0000=10\n\n[Attrib.Mass]\nValue.0000=20\n\n");
        AddRecord("Childs/C", "Child", "[Attrib.Mass]\nValue.0000=30\n\n[Attrib.Own]\nValue.0000=31\n\n");
        AddRecord("Grands/G", "Grand", "[Attrib.Mass]\nValue.0000=40\n\n[Attrib.Mass.5]\nValue.0000=41\n\n");
        ASSERT_TRUE(Open());
    }

    void ExpectSameAfterLoad(const std::string& label)
    {
        EXPECT_TRUE(Get().SaveDatabase({}, false)) << label;
        CCorvaneMgr second(Get().GetContext(), m_Types, m_AttribData, m_Gate, m_Undo);
        EXPECT_TRUE(second.OpenDatabase(Get().GetRootFilePath()));
        EXPECT_EQ(Dump(Get()), Dump(second)) << label;
        EXPECT_TRUE(second.CloseDatabase());
    }
    [[nodiscard]] bool Deprecate(std::string_view record, std::string_view name, std::uint32_t build)
    {
        return Get().DeferDeprecateAttribute(&Attrib(record, name), build);
    }
    [[nodiscard]] bool Delete(std::string_view record, std::string_view name, std::uint32_t build)
    {
        return Get().DeferDeleteAttribute(&Attrib(record, name), build);
    }
    // The builds of `from` to `to` for which the entry is available.
    [[nodiscard]] std::string GetBuilds(const CCorvaneAttrib& attrib, std::uint32_t from,
                                        std::uint32_t to) const
    {
        std::string builds;
        for (std::uint32_t build = from; build <= to; ++build)
            builds += Get().IsAttributeAvailableForBuild(&attrib, build) ? std::to_string(build) + " " : "";
        return builds;
    }
};
} // namespace

TEST_F(Defer, EachStepGivesWhatASaveAndALoadGive)
{
    const std::string before = GetTemplateList("Grand");
    EXPECT_EQ(before, "A.0 Mass.0 Tail.0 Own.0 Own2.0 Mass.5 Last.0 ");
    m_Events.clear();
    ASSERT_TRUE(Deprecate("Bases/Alpha", "Mass", 10));
    EXPECT_EQ(std::count(m_Events.begin(), m_Events.end(), 59), 3) << "one for each schema";
    EXPECT_TRUE(Get().IsDirty() && Schema("Base").TestFlag(SCHEMA_FLAG_MODIFIED));
    EXPECT_FALSE(Schema("Child").TestFlag(SCHEMA_FLAG_MODIFIED));
    EXPECT_FALSE(Record("Bases/Omega").TestFlag(RECORD_FLAG_MODIFIED)) << "its file says enough";
    EXPECT_EQ(GetTemplateList("Grand"), "A.0 Mass.10 Mass.0 Tail.0 Own.0 Own2.0 Mass.5 Last.0 ");
    for (const auto& [record, value] :
         {std::pair{"Bases/Alpha", "20"}, {"Bases/Beta", "50"}, {"Bases/Omega", "20"}, {"Grands/G", "40"}})
        EXPECT_EQ(Value(record, "Mass", 10), value) << record;
    ExpectSameAfterLoad("deprecated");

    // Both versions go their own way, also where a child shows its parent's.
    ASSERT_TRUE(Attrib("Bases/Omega", "Mass", 10).SetValue(0, u"99"));
    EXPECT_EQ(Value("Bases/Alpha", "Mass", 10) + Value("Bases/Alpha", "Mass", 0), "9920");
    ExpectSameAfterLoad("edited");

    m_Events.clear();
    ASSERT_TRUE(Delete("Childs/C", "A", 4)) << "declared two schemas up from Grand";
    EXPECT_EQ(std::count(m_Events.begin(), m_Events.end(), 62), 3);
    ExpectSameAfterLoad("deleted");
    EXPECT_FALSE(Deprecate("Bases/Omega", "Mass", 5)) << "Grand has that section in its records";
    ASSERT_TRUE(Deprecate("Bases/Omega", "Mass", 6)) << "between two versions";
    EXPECT_EQ(GetTemplateList("Base"), "A.4 A.0 Mass.10 Mass.6 Mass.0 Tail.0 ");
    ExpectSameAfterLoad("between");
    ASSERT_TRUE(Deprecate("Grands/G", "Own", 2));
    EXPECT_EQ(GetTemplateList("Child"), GetTemplateList("Base") + "Own.2 Own.0 Own2.0 ");
    ExpectSameAfterLoad("in the middle schema");
    // Grand's own Mass, not the inherited one that stands ahead of it.
    ASSERT_TRUE(Get().DeferDeleteAttribute(&Attrib("Grands/G", "Mass", 5), 12));
    EXPECT_EQ(GetTemplateList("Grand"), GetTemplateList("Child") + "Mass.12 Mass.5 Last.0 ");
    ExpectSameAfterLoad("in the last schema");
}

TEST_F(Defer, ADeletionEndsAndRevives)
{
    ASSERT_TRUE(Delete("Bases/Omega", "Mass", 10));
    ASSERT_TRUE(Delete("Bases/Omega", "A", 4));
    const CCorvaneAttrib& old = Attrib("Bases/Omega", "Mass");
    const CCorvaneAttrib& mark = Attrib("Bases/Omega", "Mass", 10);
    EXPECT_EQ(GetBuilds(old, 0, 12), "0 1 2 3 4 5 6 7 8 9 ");
    EXPECT_EQ(GetBuilds(mark, 0, 12), "");

    using Row = std::tuple<const CCorvaneAttrib*, EDeferState, const char*, const char*, const char*>;
    const auto expectRows = [](const std::vector<Row>& rows)
    {
        for (const auto& [attrib, state, text, range, label] : rows)
        {
            EXPECT_EQ(GetDeferState(*attrib), state) << range;
            EXPECT_EQ(ToNarrow(GetDeferStateText(GetDeferState(*attrib))), text) << range;
            EXPECT_EQ(ToNarrow(GetBuildRangeText(*attrib).m_sRange), range);
            EXPECT_EQ(ToNarrow(GetBuildRangeText(*attrib).m_sLabel), label) << range;
        }
    };
    using enum EDeferState;
    expectRows({{&old, ToBeDeleted, "To Be Deleted", "  0 -   9", "Depre."},
                {&mark, None, "", " 10 +", "Delete"},
                {&Attrib("Bases/Omega", "A", 4), None, "", "  4 -   4", "Delete"},
                {&Attrib("Bases/Omega", "A"), ToBeDeleted, "To Be Deleted", "  0 -   3", "Depre."},
                {&Attrib("Bases/Omega", "Tail"), None, "", "  0 +", ""}});

    ASSERT_TRUE(Deprecate("Bases/Omega", "Mass", 10));
    EXPECT_EQ(GetTemplateList("Base"), "A.4 A.0 Mass.10 Mass.0 Tail.0 ") << "no second entry";
    EXPECT_EQ(GetBuilds(mark, 8, 12), "10 11 12 ");
    expectRows({{&old, Deprecated, "Deprecated", "  0 -   9", "Depre."}, {&mark, None, "", " 10 +", ""}});
    ASSERT_TRUE(Deprecate("Bases/Omega", "Mass", 1));
    expectRows({{&old, Deprecated, "Deprecated", "  0 -   0", "Depre."}});
    ASSERT_TRUE(Get().SaveSchema(&Schema("Base")));
    ExpectSameAfterLoad("revived");
}

TEST_F(Defer, ModifiedMarksOldVersionsOnly)
{
    ASSERT_TRUE(Deprecate("Bases/Omega", "Mass", 10));
    CCorvaneType& fresh = Attrib("Bases/Omega", "Mass", 10);
    CCorvaneType& old = Attrib("Bases/Omega", "Mass");
    ASSERT_TRUE(fresh.SetValue(0, u"7"));
    EXPECT_FALSE(fresh.IsModified());
    Record("Bases/Omega").SetFlag(RECORD_FLAG_MODIFIED, false);
    ASSERT_TRUE(old.SetValue(0, u"8"));
    EXPECT_TRUE(old.IsModified() && Record("Bases/Omega").TestFlag(RECORD_FLAG_MODIFIED));
    EXPECT_TRUE(fresh.SetModified(true));
    for (const auto& [attrib, build, modified] :
         {std::tuple{&old, 9U, false}, {&old, 10U, true}, {&fresh, 10U, false}, {&fresh, 9U, false}})
        EXPECT_EQ(Get().IsAttributeModifiedForBuild(attrib, build), modified) << build;
    const std::vector<SModifiedAttribute> found = FindModifiedAttributes(Get(), 10);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_TRUE(found[0].m_pAttrib == &old && found[0].m_pRecord == &Record("Bases/Omega"));
    EXPECT_TRUE(FindModifiedAttributes(Get(), 9).empty());

    CCorvaneAttrib& templateEntry = *Schema("Base").GetTemplate()->GetAttributeList()[0];
    EXPECT_TRUE(Get().MarkAttributeAsModified(&templateEntry)) << "the first of a list has nothing newer";
    EXPECT_FALSE(Get().DeferDeprecateAttribute(&templateEntry, 3)) << "it is in no category";
}

TEST_F(Defer, FindsThePlaceForANewEntry)
{
    AddSchema("S", "[Attrib.A.5]\nType=Text\n[Attrib.A.0]\nType=Text\n[Attrib.B.3]\nType=Text\n"
                   "[Attrib.B.1]\nType=Text\n");
    ASSERT_TRUE(Open());
    const CCorvaneRecord& templateRecord = *Schema("S").GetTemplate();
    using Row = std::tuple<const char16_t*, std::uint32_t, int>;
    for (const auto& [name, build, place] : {Row{u"A", 10, 0}, Row{u"a", 3, 1}, Row{u"A", 0, 2},
                                             Row{u"B", 2, 3}, Row{u"B", 0, -1}, Row{u"C", 1, -1}})
    {
        std::size_t index = 99;
        EXPECT_EQ(CCorvaneMgr::ComputeDeferAttributeLocation(templateRecord, name, build, &index),
                  place >= 0);
        EXPECT_EQ(index, place >= 0 ? static_cast<std::size_t>(place) : 99U) << ToNarrow(name) << build;
    }
}

TEST_F(Defer, ARefusedCheckOutLeavesNothingThatGrows)
{
    const auto before = TakeSnapshot();
    m_Gate.m_bConnected = true;
    m_Gate.m_bGrant = false;
    for (int i = 0; i < 2; ++i)
    {
        EXPECT_FALSE(Delete("Bases/Omega", "Mass", 10));
        // The copy stays in this template, and nowhere else, until the next attempt or reload.
        EXPECT_EQ(GetTemplateList("Base"), "A.0 Mass.10 Mass.0 Tail.0 ");
        EXPECT_EQ(GetTemplateList("Child"), "A.0 Mass.0 Tail.0 Own.0 Own2.0 ");
        EXPECT_EQ(Schema("Base").GetAttribDataList().size(), 3U);
        EXPECT_EQ(GetBuilds(Attrib("Bases/Omega", "Mass"), 8, 11), "8 9 10 11 ");
    }
    EXPECT_FALSE(Get().UpdateAttributeBuild(&Attrib("Bases/Omega", "Mass"), 3, true));
    EXPECT_EQ(Attrib("Bases/Omega", "Mass").GetBuild(), 0U);
    EXPECT_FALSE(Get().DeleteDeferredAttribute(&Schema("Base"), 1));
    EXPECT_EQ(GetTitles(), "Deferred Delete Aborted;Deferred Delete Aborted;Deferred Delete Aborted;"
                           "Delete Aborted;");
    EXPECT_EQ(GetQuestion("Delete Aborted"),
              "Failed to check the schema 'Base' for edit.  Deletion of this attribute has been aborted.");
    EXPECT_EQ(GetChanges(before), "");
    EXPECT_FALSE(Get().IsDirty());

    m_Gate.m_bGrant = true;
    EXPECT_TRUE(Delete("Bases/Omega", "Tail", 7));
    EXPECT_EQ(GetTemplateList("Child"), "A.0 Mass.0 Tail.7 Tail.0 Own.0 Own2.0 ");
    EXPECT_TRUE(Delete("Bases/Omega", "Mass", 10));
    EXPECT_EQ(GetBuilds(Attrib("Bases/Omega", "Mass"), 8, 11), "8 9 ");
    ExpectSameAfterLoad("granted");
    m_Gate.m_bGrant = false;
    EXPECT_FALSE(Delete("Bases/Omega", "A", 10));
    EXPECT_TRUE(Schema("Base").ReloadFromFile());
    ExpectSameAfterLoad("reloaded");
    // The copy that a refusal leaves is not mistaken for the entry.
    EXPECT_FALSE(Delete("Bases/Omega", "A", 10));
    m_Gate.m_bGrant = true;
    EXPECT_TRUE(Get().DeleteDeferredAttribute(&Schema("Base"), 0));
    EXPECT_EQ(GetTemplateList("Child"), "Mass.10 Mass.0 Tail.7 Tail.0 Own.0 Own2.0 ");
    ExpectSameAfterLoad("removed");
}

TEST_F(Defer, AnotherFirstBuildKeepsTheValuesOfRecords)
{
    ASSERT_TRUE(Deprecate("Bases/Omega", "Mass", 10));
    CCorvaneType& fresh = Attrib("Bases/Omega", "Mass", 10);
    ASSERT_TRUE(fresh.SetValue(0, u"77"));
    EXPECT_FALSE(Get().UpdateAttributeBuild(&fresh, 0, false)) << "the older entry stands there";
    EXPECT_TRUE(Get().UpdateAttributeBuild(&fresh, 20, false));
    EXPECT_EQ(GetTemplateList("Child"), "A.0 Mass.20 Mass.0 Tail.0 Own.0 Own2.0 ");
    EXPECT_EQ(Value("Bases/Omega", "Mass", 20) + Value("Childs/C", "Mass", 20), "7730");
    ExpectSameAfterLoad("later");
    EXPECT_TRUE(Get().UpdateAttributeBuild(&fresh, 20, true));
    EXPECT_EQ(GetBuilds(Attrib("Bases/Omega", "Mass"), 18, 22) + GetBuilds(fresh, 18, 22), "18 19 ");
    ExpectSameAfterLoad("deleted");
}

TEST_F(Defer, AFinalRemovalTakesTheEntryOutOfEveryFile)
{
    ASSERT_TRUE(Deprecate("Bases/Omega", "Mass", 10));
    ASSERT_TRUE(Attrib("Bases/Omega", "Mass", 10).SetValue(0, u"70"));
    ASSERT_TRUE(Get().SaveDatabase({}, true));
    EXPECT_THAT(Read("Grands/G.record"), HasSubstr("[Attrib.Mass]"));
    m_Undo.m_bRecording = true;
    ASSERT_TRUE(Attrib("Bases/Omega", "Mass").SetValue(0, u"21"));
    ASSERT_TRUE(m_Undo.HasEntries());
    EXPECT_FALSE(Get().DeleteDeferredAttribute(&Schema("Base"), 4)) << "past the end";
    m_Events.clear();
    ASSERT_TRUE(Get().DeleteDeferredAttribute(&Schema("Base"), 2));
    EXPECT_FALSE(m_Undo.HasEntries()) << "no restore point may refer to what is gone";
    EXPECT_EQ(std::count(m_Events.begin(), m_Events.end(), 62), 3);
    EXPECT_EQ(GetTemplateList("Grand"), "A.0 Mass.10 Tail.0 Own.0 Own2.0 Mass.5 Last.0 ");
    EXPECT_EQ(Value("Bases/Alpha", "Mass", 10), "70");
    for (const char* file : {"Bases/Alpha", "Bases/Omega", "Childs/C", "Grands/G"})
        EXPECT_THAT(Read(std::string(file) + ".record"), Not(HasSubstr("[Attrib.Mass]"))) << file;
    EXPECT_TRUE(Schema("Base").TestFlag(SCHEMA_FLAG_MODIFIED));
    ExpectSameAfterLoad("removed");
}

TEST_F(Defer, ARecordThatWasAwayIsBroughtInLine)
{
    const CRef<CCorvaneRecord> away = Record("Bases/Omega").Clone();
    ASSERT_TRUE(Deprecate("Bases/Omega", "Mass", 10));
    ASSERT_TRUE(Get().DeleteDeferredAttribute(&Schema("Base"), 0));
    Get().FixRecord(*away);
    EXPECT_EQ(DumpList(*away), " Mass.10=20 Mass.0=20 Tail.0=t\n");
    away->Clear();
}

namespace
{
// Attribute data with members, as a struct file gives them to each attribute that uses it.
class CGroupData final : public CCorvaneSchemaAttribData, public IMemberStore
{
public:
    explicit CGroupData(const SAttribDataConstruct& construct) : CCorvaneSchemaAttribData(construct)
    {
        for (const std::uint32_t build : {8U, 3U, 0U})
        {
            SAttribDataConstruct member = construct;
            member.m_sName = u"M";
            member.m_nBuild = build;
            member.m_bDeleted = build == 8;
            member.m_pSchema = nullptr;
            m_Members.emplace_back(new CCorvaneSchemaAttribData(member));
        }
    }
    [[nodiscard]] IMemberStore* GetMemberStore() override { return this; }
    [[nodiscard]] std::size_t GetMemberCount() const override { return m_Members.size(); }
    [[nodiscard]] CCorvaneSchemaAttribData& GetMemberData(std::size_t index) const override
    {
        return *m_Members[index];
    }
    [[nodiscard]] const std::u16string& GetFile() const override { return m_sFile; }
    void RemoveMember(std::size_t index) override
    {
        m_Members.erase(m_Members.begin() + static_cast<std::ptrdiff_t>(index));
    }

private:
    std::u16string m_sFile = u"Group.struct";
    std::vector<CRef<CCorvaneSchemaAttribData>> m_Members;
};
} // namespace

TEST_F(Defer, ListsWhatIsDueAndWhoUsesIt)
{
    m_AttribData.RegisterAttribData(u"Group", &CreateCorvaneAttribData<CGroupData>);
    m_Types.RegisterType(u"Group", &CreateCorvaneType<CCorvaneTypeBoolean>);
    AddSchema("Users", "[Attrib.G.0]\nType=Group\n\n[Attrib.H.0]\nType=Group\n\n");
    ASSERT_TRUE(Open());
    ASSERT_TRUE(Deprecate("Bases/Omega", "Mass", 10));
    ASSERT_TRUE(Deprecate("Childs/C", "Own", 5));
    ASSERT_TRUE(Delete("Bases/Omega", "Tail", 12));
    ASSERT_TRUE(Attrib("Bases/Beta", "Mass").SetValue(0, u"51"));
    const auto list = [this](EDeferOperation operation, std::uint32_t build)
    {
        const SDeferredAttributes found = FindDeferredAttributes(Get(), operation, build);
        std::string text;
        for (const SDeferredEntry& entry : found.m_Entries)
            text += ToNarrow(entry.m_sOwner) + "[" + std::to_string(entry.m_nIndex) + "]" +
                    ToNarrow(entry.m_pData->GetName()) + "." + std::to_string(entry.m_pData->GetBuild()) +
                    ToNarrow(entry.m_sType) + (entry.m_bModified ? "* " : " ");
        text += "|";
        for (const SAttributeUse& use : found.m_Uses)
            text += " " + ToNarrow(use.m_pRecord->GetName()) + std::to_string(use.m_nEntry);
        return text;
    };
    using enum EDeferOperation;
    EXPECT_EQ(list(Deprecated, 2), "|");
    EXPECT_EQ(list(Deprecated, 9), "Child[1]Own.0Integer Group.struct[2]M.0 | C0 G0");
    EXPECT_EQ(list(Deprecated, 10), "Base[2]Mass.0Integer* Child[1]Own.0Integer Group.struct[2]M.0 |"
                                    " Alpha0 Beta0 Omega0 C0 C1 G0 G1");
    EXPECT_EQ(list(Deleted, 7), "|");
    EXPECT_EQ(list(Deleted, 12),
              "Base[3]Tail.12Text Base[4]Tail.0Text Group.struct[0]M.8 Group.struct[1]M.3 |"
              " Alpha1 Beta1 Omega1 C1 G1");

    CCorvaneSchemaAttribData* group = Schema("Users").GetAttribDataList()[0].Get();
    m_Gate.m_bConnected = true;
    m_Gate.m_bGrant = false;
    EXPECT_FALSE(Get().DeleteDeferredAttribute(group, 2));
    EXPECT_EQ(GetQuestion("Delete Aborted"), "Failed to check the following struct.  Deletion of this "
                                             "attribute has been aborted.\n\nGroup.struct");
    m_Gate.m_bGrant = true;
    EXPECT_FALSE(Get().DeleteDeferredAttribute(group, 3) ||
                 Get().DeleteDeferredAttribute(Schema("Base").GetAttribDataList()[0].Get(), 0));
    EXPECT_TRUE(Get().DeleteDeferredAttribute(group, 2));
    EXPECT_EQ(group->GetMemberStore()->GetMemberCount(), 2U);
}
