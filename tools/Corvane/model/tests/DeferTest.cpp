// Deferred attributes on real trees. The measure of every operation is what a save and a load give: a second
// manager that opens the saved files must show the same lists and values.
#include "CorvaneSchemaAttribData.h"
#include "CorvaneType.h"
#include "DeferState.h"
#include "DeferredAttributes.h"
#include "FormatText.h"
#include "MemberStore.h"
#include "TestDatabase.h"
#include "UndoScope.h"
#include "Unicode.h"

#include <gmock/gmock.h>

#include <algorithm>

using testing::HasSubstr;
using testing::Not;

namespace
{
std::string DumpList(const CCorvaneRecord& record)
{
    std::string text = ToNarrow(record.GetName()) + ":";
    for (const CRef<CCorvaneAttrib>& attrib : record.GetAttributeList())
    {
        const CCorvaneSchemaAttribData& data = *attrib->GetAttribData();
        text += " " + ToNarrow(attrib->GetName()) + "." + std::to_string(attrib->GetBuild());
        text += data.GetBuild() == attrib->GetBuild() ? "" : "!";
        text += data.TestFlag(ATTRIB_FLAG_DELETED) ? "-=" : "=";
        text += ToNarrow(attrib->GetValue(0)) + (attrib->GetInherit() ? "i" : "") +
                (attrib->IsModified() ? "m" : "");
    }
    return text + "\n";
}

// Every schema's own entries and its template, then every record.
std::string Dump(const CCorvaneMgr& manager)
{
    std::string text;
    for (const CRef<CCorvaneSchema>& schema : manager.GetSchemas())
    {
        for (const CRef<CCorvaneSchemaAttribData>& data : schema->GetAttribDataList())
            text += ToNarrow(data->GetBuildSection().m_sName) + " ";
        text += DumpList(*schema->GetTemplate());
    }
    manager.EnumerateRecords([&text](CCorvaneRecord& record) { return text += DumpList(record), true; });
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
        const std::string child = "[Hierarchy]\nRecord=Bases/Omega\n\n[Attrib.A]\nInherit=True\n\n";
        AddRecord("Bases/Alpha", "Base",
                  child + "[Attrib.Mass]\nInherit=True\n[Attrib.Tail]\nInherit=True\n");
        AddRecord("Bases/Beta", "Base", child + "[Attrib.Mass]\nInherit=False\nValue.0000=50\n\n");
        AddRecord("Bases/Omega", "Base", "[Attrib.A]\nValue.0000=10\n\n[Attrib.Mass]\nValue.0000=20\n\n");
        AddRecord("Childs/C", "Child", "[Attrib.Mass]\nValue.0000=30\n\n[Attrib.Own]\nValue.0000=31\n\n");
        AddRecord("Grands/G", "Grand", "[Attrib.Mass]\nValue.0000=40\n\n[Attrib.Mass.5]\nValue.0000=41\n\n");
        ASSERT_TRUE(Open());
    }

    void ExpectSameAfterLoad(const char* label)
    {
        EXPECT_TRUE(Get().SaveDatabase({}, false)) << label;
        CCorvaneMgr second(Get().GetContext(), m_Types, m_AttribData, m_Gate, m_Undo);
        EXPECT_TRUE(second.OpenDatabase(Get().GetRootFilePath()));
        EXPECT_EQ(Dump(Get()), Dump(second)) << label;
        EXPECT_TRUE(second.CloseDatabase());
    }
    // Looks at the events, at the list of Grand's template, and at what a load makes of the files.
    void ExpectStep(bool done, int event, std::ptrdiff_t count, const char* list)
    {
        EXPECT_TRUE(done) << list;
        EXPECT_EQ(GetTemplateList("Grand"), list);
        EXPECT_EQ(std::count(m_Events.begin(), m_Events.end(), event), count) << list;
        ExpectSameAfterLoad(list);
        m_Events.clear();
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
    ASSERT_TRUE(Get().SaveDatabase({}, true));
    const Snapshot before = TakeSnapshot();
    ExpectStep(Deprecate("Bases/Alpha", "Mass", 10), 59, 3,
               "A.0 Mass.10 Mass.0 Tail.0 Own.0 Own2.0 Mass.5 Last.0 ");
    // Only Beta's file does not say enough: without a section the new entry would inherit.
    EXPECT_EQ(GetChanges(before), "Game/Database/Bases/Beta.record;Game/Database/Schemas/Base.schema;");
    for (const auto& [record, value] :
         {std::pair{"Bases/Alpha", "20"}, {"Bases/Beta", "50"}, {"Bases/Omega", "20"}, {"Grands/G", "40"}})
        EXPECT_EQ(Value(record, "Mass", 10), value) << record;
    // Both versions go their own way, also where a child shows its parent's.
    ASSERT_TRUE(Attrib("Bases/Omega", "Mass", 10).SetValue(0, u"99"));
    EXPECT_EQ(Value("Bases/Alpha", "Mass", 10) + Value("Bases/Alpha", "Mass", 0), "9920");
    // Declared two schemas up from Grand.
    ExpectStep(Delete("Childs/C", "A", 4), 62, 3,
               "A.4 A.0 Mass.10 Mass.0 Tail.0 Own.0 Own2.0 Mass.5 Last.0 ");
    EXPECT_FALSE(Deprecate("Bases/Omega", "Mass", 5)) << "Grand has that section in its records";
    ExpectStep(Deprecate("Bases/Omega", "Mass", 6), 59, 3,
               "A.4 A.0 Mass.10 Mass.6 Mass.0 Tail.0 Own.0 Own2.0 Mass.5 Last.0 ");
    ExpectStep(Deprecate("Grands/G", "Own", 2), 59, 2,
               "A.4 A.0 Mass.10 Mass.6 Mass.0 Tail.0 Own.2 Own.0 Own2.0 Mass.5 Last.0 ");
    // Grand's own Mass, not the inherited one that stands ahead of it.
    ExpectStep(Get().DeferDeleteAttribute(&Attrib("Grands/G", "Mass", 5), 12), 62, 1,
               "A.4 A.0 Mass.10 Mass.6 Mass.0 Tail.0 Own.2 Own.0 Own2.0 Mass.12 Mass.5 Last.0 ");
    for (const auto& [name, build, place] : {std::tuple(u"own", 4U, 6U),
                                             {u"Own", 1U, 7U},
                                             {u"Own", 0U, 8U},
                                             {u"Last", 0U, 99U},
                                             {u"C", 1U, 99U}})
    {
        std::size_t index = 99;
        EXPECT_EQ(
            CCorvaneMgr::ComputeDeferAttributeLocation(*Schema("Grand").GetTemplate(), name, build, &index),
            place != 99);
        EXPECT_EQ(index, place) << ToNarrow(name) << build;
    }
}

TEST_F(Defer, ADeletionEndsAndRevives)
{
    ASSERT_TRUE(Delete("Bases/Omega", "Mass", 10));
    ASSERT_TRUE(Delete("Bases/Omega", "A", 4));
    const CCorvaneAttrib& old = Attrib("Bases/Omega", "Mass");
    const CCorvaneAttrib& mark = Attrib("Bases/Omega", "Mass", 10);
    EXPECT_EQ(GetBuilds(old, 0, 12), "0 1 2 3 4 5 6 7 8 9 ");
    EXPECT_EQ(GetBuilds(mark, 0, 12), "");
    const auto show = [](const CCorvaneAttrib& attrib)
    {
        const SBuildRangeText text = GetBuildRangeText(attrib);
        return FormatText(u"%s|%s|%s", GetDeferStateText(GetDeferState(attrib)), text.m_sRange,
                          text.m_sLabel);
    };
    EXPECT_EQ(show(old), u"To Be Deleted|  0 -   9|Depre.");
    EXPECT_EQ(show(mark), u"| 10 +|Delete");
    EXPECT_EQ(show(Attrib("Bases/Omega", "A", 4)), u"|  4 -   4|Delete");
    EXPECT_EQ(show(Attrib("Bases/Omega", "Tail")), u"|  0 +|");

    ASSERT_TRUE(Deprecate("Bases/Omega", "Mass", 10));
    EXPECT_EQ(GetTemplateList("Base"), "A.4 A.0 Mass.10 Mass.0 Tail.0 ") << "no second entry";
    EXPECT_EQ(GetBuilds(mark, 8, 12), "10 11 12 ");
    EXPECT_EQ(show(old), u"Deprecated|  0 -   9|Depre.");
    EXPECT_EQ(show(mark), u"| 10 +|");
    ASSERT_TRUE(Deprecate("Bases/Omega", "Mass", 1));
    EXPECT_EQ(show(old), u"Deprecated|  0 -   0|Depre.");
    ExpectSameAfterLoad("revived");
}

TEST_F(Defer, ModifiedMarksOldVersionsOnly)
{
    ASSERT_TRUE(Deprecate("Bases/Omega", "Mass", 10));
    CCorvaneType& fresh = Attrib("Bases/Omega", "Mass", 10);
    CCorvaneType& old = Attrib("Bases/Omega", "Mass");
    ASSERT_TRUE(fresh.SetValue(0, u"7"));
    ASSERT_TRUE(old.SetValue(0, u"8"));
    EXPECT_TRUE(old.IsModified() && !fresh.IsModified());
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
    EXPECT_FALSE(Get().DeleteDeferredAttribute(&Schema("Base"), 1));
    EXPECT_EQ(GetTitles(), "Deferred Delete Aborted;Deferred Delete Aborted;Deferred Delete Aborted;"
                           "Delete Aborted;");
    EXPECT_EQ(GetQuestion("Delete Aborted"),
              "Failed to check the schema 'Base' for edit.  Deletion of this attribute has been aborted.");
    EXPECT_EQ(GetChanges(before), "");
    EXPECT_FALSE(Get().IsDirty());

    m_Gate.m_bGrant = true;
    EXPECT_TRUE(Delete("Bases/Omega", "Tail", 7) && Delete("Bases/Omega", "Mass", 10));
    EXPECT_EQ(GetTemplateList("Child"), "A.0 Mass.10 Mass.0 Tail.7 Tail.0 Own.0 Own2.0 ");
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
    {
        CUndoScope scope(m_Undo);
        ASSERT_TRUE(Attrib("Bases/Omega", "Mass").SetValue(0, u"21"));
        scope.Accept(u"");
    }
    EXPECT_FALSE(Get().DeleteDeferredAttribute(&Schema("Base"), 4)) << "past the end";
    ASSERT_TRUE(m_Undo.HasEntries());
    ExpectStep(Get().DeleteDeferredAttribute(&Schema("Base"), 2), 62, 3,
               "A.0 Mass.10 Tail.0 Own.0 Own2.0 Mass.5 Last.0 ");
    EXPECT_FALSE(m_Undo.HasEntries()) << "no restore point may refer to what is gone";
    EXPECT_EQ(Value("Bases/Alpha", "Mass", 10), "70");
    for (const char* file : {"Bases/Alpha", "Bases/Omega", "Childs/C", "Grands/G"})
        EXPECT_THAT(Read(std::string(file) + ".record"), Not(HasSubstr("[Attrib.Mass]"))) << file;
}

TEST_F(Defer, ARecordThatWasAwayIsBroughtInLine)
{
    const CRef<CCorvaneRecord> away = Record("Bases/Omega").Clone();
    ASSERT_TRUE(Deprecate("Bases/Omega", "Mass", 10) && Get().DeleteDeferredAttribute(&Schema("Base"), 0));
    Get().FixRecord(*away);
    EXPECT_EQ(DumpList(*away), "Omega: Mass.10=20 Mass.0=20 Tail.0=t\n");
    away->Clear();
}

TEST_F(Defer, ListsWhatIsDueAndWhoUsesIt)
{
    Write("Schemas/Group.struct", "[Attrib.M.8]\nType=Text\nDeleted=True\n[Attrib.M.3]\nType=Text\n"
                                  "[Attrib.M.0]\nType=Text\n");
    AddSchema("Users", "[Attrib.G.0]\nType=Struct\nData=Group.struct\n\n"
                       "[Attrib.H.0]\nType=Struct\nData=Group.struct\n\n");
    ASSERT_TRUE(Open());
    ASSERT_TRUE(Deprecate("Bases/Omega", "Mass", 10) && Deprecate("Childs/C", "Own", 5) &&
                Delete("Bases/Omega", "Tail", 12) && Attrib("Bases/Beta", "Mass").SetValue(0, u"51"));
    const auto list = [this](EDeferOperation operation, std::uint32_t build)
    {
        const SDeferredAttributes found = FindDeferredAttributes(Get(), operation, build);
        std::string text;
        for (const SDeferredEntry& entry : found.m_Entries)
            text += std::filesystem::path(entry.m_sOwner).filename().string() + "[" +
                    std::to_string(entry.m_nIndex) + "]" + ToNarrow(entry.m_pData->GetName()) + "." +
                    std::to_string(entry.m_pData->GetBuild()) + ToNarrow(entry.m_sType) +
                    (entry.m_bModified ? "* " : " ");
        for (const SAttributeUse& use : found.m_Uses)
            text += "|" + ToNarrow(use.m_pRecord->GetName()) + std::to_string(use.m_nEntry);
        return text;
    };
    using enum EDeferOperation;
    EXPECT_EQ(list(Deprecated, 2) + list(Deleted, 7), "");
    EXPECT_EQ(list(Deprecated, 9), "Child[1]Own.0Integer Group.struct[2]M.0 |C0|G0");
    EXPECT_EQ(list(Deprecated, 10), "Base[2]Mass.0Integer* Child[1]Own.0Integer Group.struct[2]M.0 "
                                    "|Alpha0|Beta0|Omega0|C0|C1|G0|G1");
    EXPECT_EQ(list(Deleted, 12), "Base[3]Tail.12Text Base[4]Tail.0Text Group.struct[0]M.8 "
                                 "Group.struct[1]M.3 |Alpha1|Beta1|Omega1|C1|G1");

    CCorvaneSchemaAttribData* group = Schema("Users").GetAttribDataList()[0].Get();
    m_Gate.m_bConnected = true;
    m_Gate.m_bGrant = false;
    EXPECT_FALSE(Get().DeleteDeferredAttribute(group, 2));
    EXPECT_EQ(GetQuestion("Delete Aborted"), "Failed to check the following struct.  Deletion of this "
                                             "attribute has been aborted.\n\n" +
                                                 GetPath("Schemas/Group.struct").string());
    m_Gate.m_bGrant = true;
    EXPECT_FALSE(Get().DeleteDeferredAttribute(group, 3) ||
                 Get().DeleteDeferredAttribute(Schema("Base").GetAttribDataList()[0].Get(), 0));
    EXPECT_TRUE(Get().DeleteDeferredAttribute(group, 2));
    EXPECT_EQ(group->GetMemberStore()->GetMemberCount(), 2U);
}
