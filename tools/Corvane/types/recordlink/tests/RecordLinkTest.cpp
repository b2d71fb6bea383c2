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
    // The value, its record's display path and name as they show, and its findings.
    std::string lines;
    const auto tell = [&](std::u16string_view value)
    {
        ASSERT_TRUE(Link().SetValue(0, value));
        std::u16string path, name;
        if (const CCorvaneRecord* record = Link().GetRecord(0))
            m_Test.Get().GetRecordDisplayPath(record, path);
        Link().GetRecordName(0, name);
        CRecordingSink sink;
        const bool isValid = Link().Validate(&sink);
        EXPECT_EQ(isValid, sink.m_sLines.empty());
        lines += ShowValues(Link()) + "|" + ToNarrow(path) + "|" + ToNarrow(name) + "\n" + sink.m_sLines;
    };
    for (const std::u16string_view value : {u"", u"<NONE>", u"weapons/ONE", u"Items/One", u"Weapons/Gone",
                                            u"One", u"Pistols/Two", u"Pistols/Small/Old/Two", u"Foods/One"})
        tell(value);
    CCorvaneRecord& target = m_Test.Record("Weapons/One");
    const CRef<CCorvaneCategory> category(target.GetCategory());
    ASSERT_TRUE(target.SetCategory(nullptr, true));
    tell(u"Weapons/One");
    ASSERT_TRUE(target.SetCategory(category.Get(), true));
    EXPECT_EQ(lines, R"(<none>||<none>
<NONE>||<none>
weapons/ONE|Weapons/One|weapons/ONE
Items/One|Items/One|Items/One
Weapons/Gone||<none>
1 Invalid Record Link 0: Invalid record 'Weapons/Gone'
One||<none>
1 Invalid Record Link 0: Invalid record 'One'
Pistols/Two|Pistols/Small/Old/Two|Pistols/Two
1 Invalid Record Link 0: Invalid record 'Pistols/Two'.  The record is of an invalid schema type.
Pistols/Small/Old/Two|Pistols/Small/Old/Two|Pistols/Small/Old/Two
1 Invalid Record Link 0: Invalid record 'Pistols/Small/Old/Two'.  The record is of an invalid schema type.
Foods/One|Foods/One|Foods/One
1 Invalid Record Link 0: Invalid record 'Foods/One'
1 Invalid Record Link 0: Invalid record 'Foods/One'.  The record is of an invalid schema type.
Weapons/One|One|Weapons/One
1 Invalid Record Link 0: Invalid record 'Weapons/One'.  The record has an invalid parent category or schema.
)");
}

TEST_F(CLinkTest, TheLastRecordsOfAnAttributeAreKept)
{
    Open("Item");
    const CRecordLinkMru mru(&Link());
    std::string lists;
    const auto tell = [&](const CRecordLinkMru& list)
    {
        for (const std::u16string& path : list.Load())
            lists += ToNarrow(path) + " ";
        lists += "\n";
    };
    for (const std::u16string_view path : {u"Items/One", u"items/one", u"Weapons/One", u"Foods/One",
                                           u"Weapons/One", u"Foods/Gone", u"Pistols/One"})
    {
        mru.Save(path);
        tell(mru);
    }
    EXPECT_EQ(lists, "Items/One \nitems/one \nWeapons/One items/one \nFoods/One Weapons/One items/one \n"
                     "Weapons/One Foods/One items/one \nWeapons/One Foods/One items/one \n"
                     "Pistols/One Weapons/One Foods/One \n");
    EXPECT_NE(m_Test.GetPerUserFile().find("[RecordLinkMRU]\nItem@Link_0=Pistols/One\n"
                                           "Item@Link_1=Foods/Gone\nItem@Link_2=Weapons/One\n"
                                           "Item@Link_3=Foods/One\n"),
              std::string::npos)
        << m_Test.GetPerUserFile();
    // A record of a derived schema has a list of its own; the template's record is in no category.
    lists.clear();
    tell(CRecordLinkMru(&dynamic_cast<CCorvaneTypeRecordLink&>(m_Test.Attrib("Weapons/One", "Link"))));
    m_Test.m_nExpectedAsserts = 2;
    CRecordLinkMru(nullptr).Save(u"Items/One");
    tell(CRecordLinkMru(dynamic_cast<CCorvaneTypeRecordLink*>(
        m_Test.Schema("Item").GetTemplate()->GetAttributeList()[0].Get())));
    EXPECT_EQ(lists, "\n\n");
    EXPECT_TRUE(m_Test.m_Asserts.Has("m_pRecordLink") && m_Test.m_Asserts.Has("pCategory"));
}
} // namespace
