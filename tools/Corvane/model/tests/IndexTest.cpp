// Every look-up answers as a scan in list order would, whatever happened to the tree before.
#include "NameCompare.h"
#include "TestDatabase.h"
#include "Unicode.h"

#include <gtest/gtest.h>

#include <random>

namespace
{
using Categories = std::span<const CRef<CCorvaneCategory>>;

CCorvaneCategory* ScanCategory(Categories list, std::u16string_view name)
{
    for (const CRef<CCorvaneCategory>& category : list)
    {
        if (EqualNames(category->GetName(), name))
            return category.Get();
    }
    return nullptr;
}

CCorvaneRecord* ScanOwn(const CCorvaneCategory& category, std::u16string_view text, bool file)
{
    for (const CRef<CCorvaneRecord>& record : category.GetRecords())
    {
        if (EqualNames(file ? record->GetFile() : record->GetName(), text))
            return record.Get();
    }
    return nullptr;
}

CCorvaneRecord* ScanNamespace(const CCorvaneCategory& category, std::u16string_view name)
{
    if (CCorvaneRecord* own = ScanOwn(category, name, false))
        return own;
    for (const CRef<CCorvaneCategory>& child : category.GetChildren())
    {
        CCorvaneRecord* found = child->IsSystem() ? nullptr : ScanNamespace(*child, name);
        if (found)
            return found;
    }
    return nullptr;
}

// `except` counts in the list of the system category only.
bool ScanTaken(const CCorvaneCategory& category, std::u16string_view name, const CCorvaneRecord* except)
{
    for (const CRef<CCorvaneRecord>& record : category.GetRecords())
    {
        if (record.Get() != except && EqualNames(record->GetName(), name))
            return true;
    }
    for (const CRef<CCorvaneCategory>& child : category.GetChildren())
    {
        if (!child->IsSystem() && ScanTaken(*child, name, nullptr))
            return true;
    }
    return false;
}

CCorvaneCategory* ScanCategoryFile(Categories list, std::u16string_view file)
{
    for (const CRef<CCorvaneCategory>& category : list)
    {
        if (EqualNames(category->GetFile(), file))
            return category.Get();
        if (CCorvaneCategory* found = ScanCategoryFile(category->GetChildren(), file))
            return found;
    }
    return nullptr;
}

// A tree that changes at random, with few names so that they collide often.
class CRandomTree
{
public:
    explicit CRandomTree(CTestDatabase& database) : m_Database(database), m_Schema(database.Schema("S")) {}

    void Step()
    {
        Collect();
        CCorvaneCategory& category = *m_Categories[Number(m_Categories.size())];
        CCorvaneRecord* record = m_Records.empty() ? nullptr : m_Records[Number(m_Records.size())];
        switch (Number(10))
        {
        case 0:
        case 1:
        case 2:
            AddRecord(category);
            break;
        case 3:
            if (record)
                Drop(*record);
            break;
        case 4:
            if (record)
                Rename(*record);
            break;
        case 5:
            if (record)
                record->SetFile(u"/d/" + Name() + u".record");
            break;
        case 6:
            if (record)
                static_cast<void>(m_Database.Get().MoveRecordUnchecked(&category, *record, true));
            break;
        case 7:
            AddCategory(category);
            break;
        case 8:
            category.SetName(Name());
            break;
        default:
            MoveCategory(category);
            break;
        }
    }

    void Check()
    {
        Collect();
        CCorvaneMgr& manager = m_Database.Get();
        for (const std::u16string_view name : kNames)
        {
            const std::u16string text(name);
            EXPECT_EQ(manager.FindCategory(name, nullptr), ScanCategory(manager.GetRootCategories(), name));
            for (CCorvaneCategory* category : m_Categories)
            {
                EXPECT_EQ(category->FindRecordByName(name), ScanOwn(*category, name, false));
                EXPECT_EQ(category->FindRecordByFile(u"/D/" + text + u".record"),
                          ScanOwn(*category, u"/d/" + text + u".record", true));
                EXPECT_EQ(manager.FindRecord(name, category), ScanNamespace(*category, name));
                EXPECT_EQ(category->FindChild(name), ScanCategory(category->GetChildren(), name));
                const CCorvaneCategory& system = *manager.GetSystemCategory(category);
                CCorvaneRecord* except = m_Records.empty() ? nullptr : m_Records[Number(m_Records.size())];
                EXPECT_EQ(manager.IsRecordNameFree(*category, name, except),
                          !ScanTaken(system, name, except));
                const std::u16string file = u"/d/" + text + u"/cvd.category";
                EXPECT_EQ(manager.FindCategoryByFile(file),
                          ScanCategoryFile(manager.GetRootCategories(), file));
            }
        }
    }

private:
    static constexpr std::u16string_view kNames[] = {u"a",       u"A",       u"b", u"B (2)",
                                                     u"\u00e4x", u"\u00c4X", u"c"};

    std::size_t Number(std::size_t below)
    {
        return std::uniform_int_distribution<std::size_t>(0, below - 1)(m_Random);
    }
    std::u16string Name() { return std::u16string(kNames[Number(std::size(kNames))]); }

    void Collect()
    {
        m_Categories.clear();
        m_Records.clear();
        m_Database.Get().EnumerateCategories([this](CCorvaneCategory& category)
                                             { m_Categories.push_back(&category); });
        m_Database.Get().EnumerateRecords([this](CCorvaneRecord& record)
                                          { return m_Records.push_back(&record), true; });
    }

    void AddRecord(CCorvaneCategory& category)
    {
        const CRef<CCorvaneRecord> record = m_Schema.CloneRecordFromTemplate();
        EXPECT_TRUE(record->SetCategory(&category, true) && record->SetName(Name()));
        record->SetFile(u"/d/" + Name() + u".record");
        category.AddRecord(*record);
        category.AddRecord(*record); // Once more changes nothing.
    }

    void Rename(CCorvaneRecord& record) { EXPECT_TRUE(record.SetName(Name())); }

    static void Drop(CCorvaneRecord& record)
    {
        const CRef<CCorvaneRecord> keepAlive(&record);
        EXPECT_TRUE(record.GetCategory()->RemoveRecord(record));
        EXPECT_FALSE(record.GetCategory()->RemoveRecord(record));
        record.Clear();
    }

    void AddCategory(CCorvaneCategory& parent)
    {
        if (m_Categories.size() > 25)
            return;
        if (Number(2) == 0)
        {
            static_cast<void>(m_Database.Get().CreateVirtualRelativeCategory(&parent, Name()));
            return;
        }
        CCorvaneCategory* above = Number(3) == 0 ? nullptr : &parent;
        const CRef<CCorvaneCategory> category(
            new CCorvaneCategory(m_Database.Get(), Name(), {}, {}, &m_Schema, above, CATEGORY_FLAG_SYSTEM));
        category->SetFile(u"/d/" + Name() + u"/cvd.category");
        static_cast<void>(m_Database.Get().AddCategory(category));
    }

    void MoveCategory(CCorvaneCategory& category)
    {
        CCorvaneCategory& target = *m_Categories[Number(m_Categories.size())];
        for (const CCorvaneCategory* above = &target; above != nullptr; above = above->GetParent())
        {
            if (above == &category)
                return;
        }
        if (category.GetParent() == nullptr)
            return;
        const CRef<CCorvaneCategory> keepAlive(&category);
        EXPECT_TRUE(category.GetParent()->RemoveChildCategory(category));
        target.AddChildCategory(category);
    }

    CTestDatabase& m_Database;
    CCorvaneSchema& m_Schema;
    std::mt19937 m_Random{7};
    std::vector<CCorvaneCategory*> m_Categories;
    std::vector<CCorvaneRecord*> m_Records;
};
} // namespace

TEST(Index, AnswersAsAScanWould)
{
    CTestDatabase database;
    database.AddSchema("S", "");
    database.AddCategory("a", "S");
    database.AddCategory("b", "S");
    ASSERT_TRUE(database.Open());
    CRandomTree tree(database);
    for (int step = 0; step < 1500 && !testing::Test::HasFailure(); ++step)
    {
        tree.Step();
        if (step % 5 == 0)
            tree.Check();
    }
}
