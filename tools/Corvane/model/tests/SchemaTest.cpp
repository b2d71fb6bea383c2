// Schemas: the order of their entries, parents, and the reload that keeps the values of every record.
#include "CorvaneSchemaAttribData.h"
#include "CorvaneType.h"
#include "TestDatabase.h"
#include "Unicode.h"

#include <gmock/gmock.h>

namespace fs = std::filesystem;
using testing::HasSubstr;

namespace
{
// A parent schema with two entries, a derived one, and records of both with values of their own.
void WriteFamily(const CTestDatabase& database)
{
    database.AddSchema("Base",
                       "[Attrib.A.0]\nType=Integer\nDefault=1\n\n[Attrib.B.0]\nType=Integer\nDefault=2\n\n");
    database.AddSchema("Derived", "[Attrib.C.0]\nType=Integer\nDefault=3\n\n", "Base");
    database.AddCategory("Bases", "Base");
    database.AddCategory("Deriveds", "Derived");
    database.AddRecord("Bases/R", "Base", "[Attrib.A]\nValue.0000=10\n\n[Attrib.B]\nValue.0000=20\n\n");
    database.AddRecord(
        "Deriveds/R", "Derived",
        "[Attrib.A]\nValue.0000=11\n\n[Attrib.B]\nValue.0000=21\n\n[Attrib.C]\nValue.0000=31\n\n");
}

std::string Dump(const CCorvaneRecord& record)
{
    std::string text;
    for (const CRef<CCorvaneAttrib>& attrib : record.GetAttributeList())
        text += ToNarrow(attrib->GetName()) + "." + std::to_string(attrib->GetBuild()) + "=" +
                ToNarrow(attrib->GetValue(0)) + " ";
    return text;
}

class SchemaFile : public testing::Test, protected CTestDatabase
{
};
} // namespace

TEST(SchemaOrder, GathersAndSortsItsEntries)
{
    // Sections in the order of the file, whose number is their default; entries with the default that they
    // take.
    const std::tuple<std::vector<const char*>, const char*, std::size_t> cases[] = {
        {{"A.10", "B", "A.20"}, "A.20=2 A.10=0 B.0=1 ", 0},
        {{"A", "A.0"}, "A.0=1 ", 0},
        {{"A.0", "A"}, "A.0=0 ", 0},
        {{"A.3", "A.3"}, "A.3=0 ", 1},
        {{"A", "a"}, "A.0=0 ", 1},
        {{"A.1", "B.2", "A.3", "B.4", "A.2"}, "A.3=2 A.2=4 A.1=0 B.4=3 B.2=1 ", 0},
        {{"A.1", "B", "B.5", "a.7", "B.0"}, "a.7=3 A.1=0 B.5=2 B.0=4 ", 0},
        {{"A.5", "A.5", "A.9", "A.5"}, "A.9=2 A.5=0 ", 2},
        {{"A", "A.0", "A", "B"}, "A.0=1 B.0=3 ", 0},
        {{"My.Name", "Other.x"}, "My.0=0 Other.0=1 ", 0},
    };
    for (const auto& [names, entries, duplicates] : cases)
    {
        CTestDatabase database;
        std::string sections;
        for (std::size_t i = 0; i < names.size(); ++i)
            sections +=
                "[Attrib." + std::string(names[i]) + "]\nType=Integer\nDefault=" + std::to_string(i) + "\n";
        database.AddSchema("S", sections);
        ASSERT_TRUE(database.Open());
        EXPECT_EQ(Dump(*database.Schema("S").GetTemplate()), entries);
        EXPECT_EQ(database.m_Questions.Count(u"Duplicate Attributes"), duplicates) << entries;
        database.m_nExpectedAsserts = duplicates;
    }
}

TEST_F(SchemaFile, ReadsFlagsAndCounts)
{
    AddSchema("S", "[Attrib.A]\nType=INTEGER\nValues=0\nInherit=true\nDeleted=yes\nHelp=h\n"
                   "[Attrib.B]\nType=Integer\nValues=-1\nInherit=FALSE\nDeleted=true\nUnicode=True\n"
                   "[Attrib.C]\nType=Integer\nInherit=no\nValues=-7\n[Attrib.D]\nData=without a type\n"
                   "[Attrib.E]\nType=Nonsense\n[Attrib.F]\nType=Integer\nValues=3\n");
    AddSchema("Greedy", "[Attrib.A.0]\nType=Text\nValues=2147483647\n[Attrib.B.0]\nType=Text\n");
    ASSERT_TRUE(Open());
    std::string text;
    for (const CRef<CCorvaneSchemaAttribData>& data : Schema("S").GetAttribDataList())
        text += ToNarrow(data->GetName()) + std::to_string(data->GetValues()) +
                (data->TestFlag(ATTRIB_FLAG_DELETED) ? "D" : "") +
                (data->TestFlag(ATTRIB_FLAG_INHERIT) ? "I" : "") +
                (data->TestFlag(ATTRIB_FLAG_UNICODE) ? "U " : " ");
    EXPECT_EQ(text, "A1I B-1DU C1I F3I ");
    ASSERT_EQ(GetTemplateList("S"), "A.0 B.0 C.0 F.0 ");
    EXPECT_EQ(Schema("S").GetTemplate()->GetAttributeList()[3]->GetValueCount(), 3U);
    // A count that no memory holds costs the attribute, not the program.
    EXPECT_EQ(GetTemplateList("Greedy"), "B.0 ");
    ASSERT_EQ(GetTitles(), "Invalid Attribute;Invalid Attribute;");
    EXPECT_EQ(ToNarrow(m_Questions.GetQuestions()[1].m_sText),
              "Failed to create attribute of type 'Nonsense' in schema 'S'.  The attribute type may be "
              "invalid.\n\n" +
                  GetPath("Schemas/S.schema").string());
}

TEST_F(SchemaFile, ConnectsParentsInAnyOrderOfFiles)
{
    const auto add = [&](std::string_view name, std::string_view parent)
    { AddSchema(name, "[Attrib." + std::string(name) + "x.0]\nType=Integer\n", parent); };
    add("A", "b");
    add("B", "C");
    add("C", "");
    add("Lost", "Nobody");
    add("Ring1", "Ring2");
    add("Ring2", "Ring1");
    add("Tail", "Ring1");
    Write("Z.schema", "[Schema]\nName=c\n");
    ASSERT_TRUE(Open());
    EXPECT_EQ(GetTemplateList("A"), "Cx.0 Bx.0 Ax.0 ");
    EXPECT_EQ(GetTemplateList("Ring1"), "Ring1x.0 ");
    EXPECT_EQ(GetTemplateList("Tail"), "Ring1x.0 Tailx.0 ");
    EXPECT_TRUE(Schema("A").IsDerivedFrom(Schema("C")));
    EXPECT_FALSE(Schema("C").IsDerivedFrom(Schema("A")));
    EXPECT_EQ(GetTitles(), "Schema Duplicates;Find Schema Failed;Find Schema Failed;Find Schema Failed;");
    EXPECT_EQ(m_Questions.GetQuestions()[1].m_sText,
              u"Failed to find schema 'Nobody'.  This schema is specified as the parent of schema 'Lost'.");
    EXPECT_EQ(GetQuestion("Schema Duplicates"),
              "Duplicate schemas have been detected.  A schema called 'c' already exist in the global schema "
              "namespace.\n\n" +
                  GetPath("Z.schema").string() + "\n\nv.s.\n\n" + GetPath("Schemas/C.schema").string());
}

TEST_F(SchemaFile, AReloadKeepsEveryValue)
{
    WriteFamily(*this);
    ASSERT_TRUE(Open());
    const auto entry = [](const char* name, const char* rest)
    { return "[Attrib." + std::string(name) + "]\nType=Integer\n" + rest + "\n"; };
    const std::tuple<std::string, const char*, const char*> cases[] = {
        {entry("A.0", "Default=1") + entry("B.0", "Default=2"), "A.0=10 B.0=20 ", "A.0=11 B.0=21 C.0=31 "},
        {entry("A.0", "") + entry("N.0", "Default=5") + entry("B.0", ""), "A.0=10 N.0=5 B.0=20 ",
         "A.0=11 N.0=5 B.0=21 C.0=31 "},
        {entry("B", "") + entry("N.0", "") + entry("A", ""), "B.0=20 N.0=5 A.0=10 ",
         "B.0=21 N.0=5 A.0=11 C.0=31 "},
        {entry("A.7", "") + entry("A.0", "") + entry("B.0", ""), "A.7=10 A.0=10 B.0=20 ",
         "A.7=11 A.0=11 B.0=21 C.0=31 "},
        // Another type is another entry.
        {entry("A.0", "") + "[Attrib.B.0]\nType=Text\nDefault=t\n", "A.0=10 B.0=t ", "A.0=11 B.0=t C.0=31 "},
    };
    for (const auto& [sections, base, derived] : cases)
    {
        AddSchema("Base", sections);
        ASSERT_TRUE(Schema("Base").ReloadFromFile());
        EXPECT_EQ(Dump(Record("Bases/R")), base) << sections;
        EXPECT_EQ(Dump(Record("Deriveds/R")), derived) << sections;
        EXPECT_EQ(Schema("Base").GetAttribDataList().size(),
                  Schema("Base").GetTemplate()->GetAttributeList().size());
    }
    // A record that had no value of its own sees the new default.
    EXPECT_EQ(Attrib("Bases/R", "B").GetValue(9), u"t");
    // The repair can write what it repaired, changed or not.
    EXPECT_FALSE(Record("Bases/R").TestFlag(RECORD_FLAG_MODIFIED));
    EXPECT_TRUE(Get().FixRecords(Schema("Base"), true));
    EXPECT_THAT(Read("Bases/R.record"), HasSubstr("Value.0000=10\n\n[Attrib.B]\n"));
    EXPECT_THAT(Read("Bases/R.record"), HasSubstr("Value.0000=t\n"));
    EXPECT_EQ(GetTitles(), "");
}

TEST_F(SchemaFile, AFailedReloadLeavesItAsItWasAndAGoodOneFollowsNewNames)
{
    WriteFamily(*this);
    ASSERT_TRUE(Open());
    ASSERT_TRUE(Get().SaveSchema(&Schema("Derived")));
    EXPECT_EQ(Read("Schemas/Derived.schema"),
              "[Schema]\nName=Derived\nHelp=\nParent=Base\n\n[Attrib.C.0]\nType=Integer\nData=\nDefault=3\n"
              "Unicode=False\nDeleted=False\nInherit=True\nValues=1\nHelp=\n\n");
    WriteBytes("Schemas/Base.schema", "[Schema]\nName=Base\n");
    EXPECT_FALSE(Schema("Base").ReloadFromFile());
    Write("Schemas/Base.schema", "[Schema]\nName=Derived\n");
    EXPECT_FALSE(Schema("Base").ReloadFromFile());
    fs::remove(GetPath("Schemas/Base.schema"));
    EXPECT_FALSE(Schema("Base").ReloadFromFile());
    EXPECT_EQ(Dump(Record("Deriveds/R")), "A.0=11 B.0=21 C.0=31 ");
    EXPECT_EQ(GetTitles(), "Invalid Schema File Format;Schema Duplicates;File Open Failed;");
    m_Questions.Clear();
    Write("Schemas/Base.schema", "[Schema]\nName=Renamed\n\n[Attrib.A.0]\nType=Integer\n\n");
    ASSERT_TRUE(Schema("Base").ReloadFromFile());
    EXPECT_EQ(Get().FindSchema(u"Base"), nullptr);
    EXPECT_EQ(Dump(Record("Bases/R")), "A.0=10 ");
    EXPECT_EQ(Dump(Record("Deriveds/R")), "C.0=31 ");
    EXPECT_EQ(GetTitles(), "Find Schema Failed;");
    AddSchema("Derived", "[Attrib.C.0]\nType=Integer\nDefault=3\n\n", "renamed");
    ASSERT_TRUE(Schema("Derived").ReloadFromFile());
    EXPECT_EQ(Dump(Record("Deriveds/R")), "A.0=0 C.0=31 ");
}
