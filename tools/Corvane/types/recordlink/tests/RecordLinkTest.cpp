// The type and its attribute data: what a link may name, what it is checked for and what reaches the outputs.
#include "recordlink/CorvaneTypeRecordLink.h"

#include "CorvaneMgr.h"
#include "TestAttribute.h"
#include "Unicode.h"
#include "recordlink/RecordLinkMru.h"

#include <gtest/gtest.h>

namespace
{
// Item, Weapon below it, Pistol below that, and Food; one category of each schema.
class CLinkTest : public testing::Test
{
protected:
    CLinkTest()
    {
        WriteSchemas("Item", "");
        for (const char* name : {"Item", "Weapon", "Pistol", "Food"})
        {
            m_Test.AddCategory(std::string(name) + "s", name);
            m_Test.AddRecord(std::string(name) + "s/One", name);
        }
        m_Test.AddRecord("Pistols/Two", "Pistol", {}, "VirtualRelativeCategory=Small/Old\n");
    }

    void WriteSchemas(std::string_view weaponParent, std::string_view data)
    {
        m_Test.AddSchema("Item", "[Attrib.Link.0]\nType=RecordLink\nValues=-1\nDefault=\nData=" +
                                     std::string(data) + "\n");
        m_Test.AddSchema("Weapon", "", weaponParent);
        m_Test.AddSchema("Pistol", "", "wEAPON");
        m_Test.AddSchema("Food", "");
    }
    void Open(std::string_view data)
    {
        WriteSchemas("Item", data);
        ASSERT_TRUE(m_Test.Open());
    }

    CCorvaneTypeRecordLink& Link()
    {
        return dynamic_cast<CCorvaneTypeRecordLink&>(m_Test.Attrib("Items/One", "Link"));
    }
    CCorvaneTypeRecordLinkData& Data()
    {
        return static_cast<CCorvaneTypeRecordLinkData&>(*Link().GetAttribData());
    }
    // "Schema Schema | category category".
    std::string GetLists()
    {
        std::string lists;
        for (const CCorvaneSchema* schema : Data().GetSchemaList())
            lists += ToNarrow(schema->GetName()) + " ";
        lists += "|";
        for (const CCorvaneCategory* category : Data().GetCategoryList())
        {
            std::u16string path;
            m_Test.Get().GetCategoryPath(category, path);
            lists += " " + ToNarrow(path);
        }
        return lists;
    }

    CTestDatabase m_Test;
};

TEST_F(CLinkTest, TheDataTextAllowsSchemasAndTheirCategories)
{
    const std::pair<const char*, const char*> cases[] = {
        {"", "|"},
        {"Nothing;public ;private", "|"},
        {"Food", "Food | Foods"},
        {"public weapon", "Weapon Pistol | Pistols Weapons Pistols/Small Pistols/Small/Old"},
        {"PRIVATE Weapon;food;Weapons", "Weapon Food | Foods Weapons"},
        {"private Pistol;public Item;Pistol",
         "Pistol Item Weapon | Items Pistols Weapons Pistols/Small Pistols/Small/Old"},
    };
    for (const auto& [data, lists] : cases)
    {
        Open(data);
        EXPECT_EQ(GetLists(), lists) << data;
    }
}

TEST_F(CLinkTest, TheListsFollowTheTreeAndSchemasThatAreReadAgain)
{
    Open("Weapon");
    EXPECT_EQ(GetLists(), "Weapon Pistol | Pistols Weapons Pistols/Small Pistols/Small/Old");
    CCorvaneMgr& manager = m_Test.Get();
    CCorvaneCategory& pistols = m_Test.Category("Pistols");
    CCorvaneCategory& small = m_Test.Category("Pistols/Small");
    ASSERT_TRUE(manager.CreateVirtualRelativeCategory(&small, u"New"));
    EXPECT_FALSE(Data().AddCategory(&small));
    EXPECT_FALSE(Data().AddCategory(&m_Test.Category("Foods")));
    // A tree goes and comes back as a whole.
    const CRef<CCorvaneCategory> held(&small);
    ASSERT_TRUE(pistols.RemoveChildCategory(small));
    manager.Notify(CCorvaneEvent(ECorvaneEvent::CategoryDeleted, &small));
    EXPECT_EQ(GetLists(), "Weapon Pistol | Pistols Weapons");
    EXPECT_FALSE(Data().RemoveCategory(&small));
    pistols.AddChildCategory(small);
    manager.Notify(CCorvaneEvent(ECorvaneEvent::CategoryAdded, &small));
    EXPECT_EQ(GetLists(),
              "Weapon Pistol | Pistols Weapons Pistols/Small Pistols/Small/Old Pistols/Small/New");

    // The data of a schema that is read again is new, and another schema's parent may be, too.
    WriteSchemas("Item", "Pistol;Weapon");
    ASSERT_TRUE(m_Test.Schema("Item").ReloadFromFile());
    EXPECT_EQ(GetLists().substr(0, 15), "Pistol Weapon |");
    WriteSchemas("Item", "Item");
    ASSERT_TRUE(m_Test.Schema("Item").ReloadFromFile());
    EXPECT_EQ(GetLists().substr(0, 20), "Item Pistol Weapon |");
    WriteSchemas("Food", "Item");
    ASSERT_TRUE(m_Test.Schema("Weapon").ReloadFromFile());
    EXPECT_EQ(GetLists(), "Item | Items");

    m_Test.m_nExpectedAsserts = 2;
    EXPECT_FALSE(Data().AddCategory(nullptr));
    EXPECT_FALSE(Data().RemoveCategory(nullptr));
    const CRef<CCorvaneSchemaAttribData> copy = Data().Clone();
    manager.Notify(CCorvaneEvent(ECorvaneEvent::CategoryDeleted, &m_Test.Category("Items")));
    EXPECT_TRUE(static_cast<CCorvaneTypeRecordLinkData&>(*copy).GetCategoryList().empty());
}

TEST_F(CLinkTest, ValuesNameRecordsAndAreCheckedAgainstTheSchema)
{
    Open("private Weapon;Item");
    WriteSchemas("", "private Weapon;Item");
    ASSERT_TRUE(m_Test.Schema("Weapon").ReloadFromFile());
    m_Test.m_Gate.m_pDeletePending = &m_Test.Record("Foods/One");
    struct SCase
    {
        std::string_view m_sValue;
        std::string_view m_sRecord; // Display path; empty for none.
        std::string_view m_sErrors;
    };
    const SCase cases[] = {
        {"", "", ""},
        {"<NONE>", "", ""},
        {"weapons/ONE", "Weapons/One", ""},
        {"Items/One", "Items/One", ""}, // A link to itself is as good as any.
        {"Weapons/Gone", "", "Invalid record '%s'"},
        {"One", "", "Invalid record '%s'"},
        {"Pistols/Two", "Pistols/Small/Old/Two",
         "Invalid record '%s'.  The record is of an invalid schema type."},
        {"Pistols/Small/Old/Two", "Pistols/Small/Old/Two",
         "Invalid record '%s'.  The record is of an invalid schema type."},
        {"Foods/One", "Foods/One",
         "Invalid record '%s'|Invalid record '%s'.  The record is of an invalid schema type."},
    };
    for (const SCase& entry : cases)
    {
        ASSERT_TRUE(Link().SetValue(0, ToWide(entry.m_sValue)));
        std::u16string path, name;
        const CCorvaneRecord* record = Link().GetRecord(0);
        if (record)
            m_Test.Get().GetRecordDisplayPath(record, path);
        EXPECT_EQ(ToNarrow(path), entry.m_sRecord);
        Link().GetRecordName(0, name);
        EXPECT_EQ(ToNarrow(name), record ? entry.m_sValue : "<none>");
        EXPECT_EQ(Link().GetValue(0), entry.m_sValue.empty() ? u"<none>" : ToWide(entry.m_sValue));

        std::string expected = entry.m_sErrors.empty() ? "" : std::string(entry.m_sErrors) + "\n";
        for (std::size_t at; (at = expected.find('|')) != std::string::npos;)
            expected[at] = '\n';
        for (std::size_t at = 0; (at = expected.find("Invalid record", at)) != std::string::npos; at += 30)
            expected.insert(at, "1 Invalid Record Link 0: ");
        for (std::size_t at; (at = expected.find("%s")) != std::string::npos;)
            expected.replace(at, 2, entry.m_sValue);
        CRecordingSink sink;
        EXPECT_EQ(Link().Validate(&sink), expected.empty()) << entry.m_sValue;
        EXPECT_EQ(sink.m_sErrors, expected);
    }
}

TEST_F(CLinkTest, ARecordWithoutASchemaIsReported)
{
    Open("Weapon");
    ASSERT_TRUE(Link().SetValue(0, u"Weapons/One"));
    CCorvaneRecord& target = m_Test.Record("Weapons/One");
    const CRef<CCorvaneCategory> category(target.GetCategory());
    ASSERT_TRUE(target.SetCategory(nullptr, true));
    CRecordingSink sink;
    EXPECT_FALSE(Link().Validate(&sink));
    EXPECT_EQ(sink.m_sErrors,
              "1 Invalid Record Link 0: Invalid record 'Weapons/One'.  The record has an invalid "
              "parent category or schema.\n");
    ASSERT_TRUE(target.SetCategory(category.Get(), true));
}

TEST(RecordLink, OutputsTellPathsAndHandles)
{
    CTestAttribute test(u"RecordLink", {u"Values=3", u"Data=Thing", u"Help=Who"});
    CCorvaneType& link = test.Get();
    ASSERT_TRUE(link.SetValue(0, u"all/one"));
    ASSERT_TRUE(link.SetValue(1, u"All/Gone"));
    // Outside a compile no record has a handle; a value that finds nothing makes no call.
    EXPECT_EQ(test.GetOutputs(), "CreateAttribute 7 Value 9 0 3\nSetRecordLink 42 0 0\n"
                                 "CreateAttribute 9 Who 9 Value Thing RecordLink 1 3\nSetText 42 All/One\n"
                                 "SetText 42 All/Gone\nSetText 42 <none>\n");
    EXPECT_EQ(test.GetDependencies(), "All/One All/One Record\nAll/One All/Gone Record\n");
}

TEST_F(CLinkTest, TheLastRecordsOfAnAttributeAreKept)
{
    Open("Item");
    const CRecordLinkMru mru(&Link());
    const auto load = [&](const CRecordLinkMru& list)
    {
        std::string paths;
        for (const std::u16string& path : list.Load())
            paths += ToNarrow(path) + " ";
        return paths;
    };
    const std::pair<const char16_t*, const char*> steps[] = {
        {u"Items/One", "Items/One "},
        {u"items/one", "items/one "},
        {u"Weapons/One", "Weapons/One items/one "},
        {u"Foods/One", "Foods/One Weapons/One items/one "},
        {u"Weapons/One", "Weapons/One Foods/One items/one "},
        {u"Foods/Gone", "Weapons/One Foods/One items/one "},
        {u"Pistols/One", "Pistols/One Weapons/One Foods/One "},
    };
    for (const auto& [path, expected] : steps)
    {
        mru.Save(path);
        EXPECT_EQ(load(mru), expected);
    }
    EXPECT_NE(m_Test.GetPerUserFile().find("[RecordLinkMRU]\nItem@Link_0=Pistols/One\n"
                                           "Item@Link_1=Foods/Gone\nItem@Link_2=Weapons/One\n"
                                           "Item@Link_3=Foods/One\n"),
              std::string::npos)
        << m_Test.GetPerUserFile();
    // A record of a derived schema has a list of its own; the template's record is in no category.
    EXPECT_EQ(
        load(CRecordLinkMru(&static_cast<CCorvaneTypeRecordLink&>(m_Test.Attrib("Weapons/One", "Link")))),
        "");
    m_Test.m_nExpectedAsserts = 2;
    CRecordLinkMru(nullptr).Save(u"Items/One");
    EXPECT_EQ(load(CRecordLinkMru(static_cast<CCorvaneTypeRecordLink*>(
                  m_Test.Schema("Item").GetTemplate()->GetAttributeList()[0].Get()))),
              "");
    EXPECT_TRUE(m_Test.m_Asserts.Has("m_pRecordLink") && m_Test.m_Asserts.Has("pCategory"));
}
} // namespace
