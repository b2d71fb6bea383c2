// Every look-up answers as a scan in list order would, whatever happened to the tree before.
#include "FormatText.h"
#include "NameCompare.h"
#include "NumberedNames.h"
#include "TestDatabase.h"
#include "UndoScope.h"
#include "Unicode.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace
{
using Categories = std::span<const CRef<CCorvaneCategory>>;

// The first of a list whose text, as this function reads it, is `text`.
template <class L, class F> auto* Scan(const L& list, F read, std::u16string_view text)
{
    const auto found =
        std::find_if(list.begin(), list.end(), [&](const auto& one) { return EqualNames(read(*one), text); });
    return found == list.end() ? nullptr : found->Get();
}
constexpr auto kName = [](const auto& object) { return object.GetName(); };
constexpr auto kFile = [](const auto& object) { return object.GetFile(); };

// The first record of the name space of `category`, but for `except`, which counts in its own list only.
CCorvaneRecord* ScanNamespace(const CCorvaneCategory& category, std::u16string_view name,
                              const CCorvaneRecord* except = nullptr)
{
    for (const CRef<CCorvaneRecord>& record : category.GetRecords())
    {
        if (record.Get() != except && EqualNames(record->GetName(), name))
            return record.Get();
    }
    for (const CRef<CCorvaneCategory>& child : category.GetChildren())
    {
        if (CCorvaneRecord* found = child->IsSystem() ? nullptr : ScanNamespace(*child, name))
            return found;
    }
    return nullptr;
}

std::u16string ScanUniqueName(const CCorvaneCategory& system, std::u16string_view name,
                              const CCorvaneRecord* except)
{
    std::u16string unique(name);
    for (int number = 2; ScanNamespace(system, unique, except); ++number)
        unique = FormatText(u"%s (%d)", name, number);
    return unique;
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
        constexpr void (CRandomTree::*kSteps[])() = {
            &CRandomTree::AddRecord,    &CRandomTree::AddRecord,    &CRandomTree::AddRecord,
            &CRandomTree::DropRecord,   &CRandomTree::RenameRecord, &CRandomTree::SetFile,
            &CRandomTree::MoveRecord,   &CRandomTree::AddCategory,  &CRandomTree::RenameCategory,
            &CRandomTree::MoveCategory, &CRandomTree::MoveAsUser,   &CRandomTree::DeleteAsUser,
            &CRandomTree::CopyAsUser,   &CRandomTree::Replay,       &CRandomTree::Replay};
        Collect();
        if (m_Categories.empty())
            return InsertRoot();
        m_pCategory = Pick(m_Categories);
        m_pRecord = m_Records.empty() ? nullptr : Pick(m_Records);
        (this->*kSteps[m_pRecord ? Number(std::size(kSteps)) : 0])();
    }

    void Check()
    {
        Collect();
        CCorvaneMgr& manager = m_Database.Get();
        for (const std::u16string_view name : kNames)
        {
            const std::u16string text(name);
            EXPECT_EQ(manager.FindCategory(name, nullptr), Scan(manager.GetRootCategories(), kName, name));
            for (CCorvaneCategory* category : m_Categories)
            {
                EXPECT_EQ(category->FindRecordByName(name), Scan(category->GetRecords(), kName, name));
                EXPECT_EQ(category->FindRecordByFile(u"/D/" + text + u".record"),
                          Scan(category->GetRecords(), kFile, u"/d/" + text + u".record"));
                EXPECT_EQ(manager.FindRecord(name, category), ScanNamespace(*category, name));
                EXPECT_EQ(category->FindChild(name), Scan(category->GetChildren(), kName, name));
                std::u16string free = text;
                for (int number = 2; Scan(category->GetChildren(), kName, free); ++number)
                    free = MakeNumberedName(text, number);
                EXPECT_EQ(manager.MakeCategoryNameUnique(category, name), free);
                const CCorvaneCategory& system = *manager.GetSystemCategory(category);
                CCorvaneRecord* except = m_Records.empty() ? nullptr : Pick(m_Records);
                EXPECT_EQ(manager.IsRecordNameFree(*category, name, except),
                          ScanNamespace(system, name, except) == nullptr);
                EXPECT_EQ(manager.MakeRecordNameUnique(*category, name, except),
                          ScanUniqueName(system, name, except));
                const std::u16string file = u"/d/" + text + u"/cvd.category";
                EXPECT_EQ(manager.FindCategoryByFile(file),
                          ScanCategoryFile(manager.GetRootCategories(), file));
            }
        }
    }

private:
    static constexpr std::u16string_view kNames[] = {u"a",     u"A",       u"b",       u"B (2)",
                                                     u"b (3)", u"\u00e4x", u"\u00c4X", u"c"};

    std::size_t Number(std::size_t below) { return m_Random() % below; }
    template <class T> T* Pick(const std::vector<T*>& list) { return list[Number(list.size())]; }
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

    void AddRecord()
    {
        const CRef<CCorvaneRecord> record = m_Schema.CloneRecordFromTemplate();
        EXPECT_TRUE(record->SetCategory(m_pCategory, true) && record->SetName(Name()));
        record->SetFile(u"/d/" + Name() + u".record");
        m_pCategory->AddRecord(*record);
        m_pCategory->AddRecord(*record); // Once more changes nothing.
    }
    void RenameRecord() { EXPECT_TRUE(m_pRecord->SetName(Name())); }
    void SetFile() { m_pRecord->SetFile(u"/d/" + Name() + u".record"); }
    void MoveRecord()
    {
        static_cast<void>(m_Database.Get().MoveRecordUnchecked(m_pCategory, *m_pRecord, true));
    }
    void DropRecord()
    {
        const CRef<CCorvaneRecord> keepAlive(m_pRecord);
        EXPECT_TRUE(m_pRecord->GetCategory()->RemoveRecord(*m_pRecord));
        EXPECT_FALSE(m_pRecord->GetCategory()->RemoveRecord(*m_pRecord));
        m_pRecord->Clear();
    }
    void RenameCategory()
    {
        Do([this](CCorvaneMgr& manager) { EXPECT_TRUE(manager.RenameCategory(*m_pCategory, Name())); });
    }
    void AddCategory()
    {
        if (m_Categories.size() > 25)
            return;
        if (Number(2) == 0)
            return static_cast<void>(m_Database.Get().CreateVirtualRelativeCategory(m_pCategory, Name()));
        CCorvaneCategory* above = Number(3) == 0 ? nullptr : m_pCategory;
        const CRef<CCorvaneCategory> category(
            new CCorvaneCategory(m_Database.Get(), Name(), {}, {}, &m_Schema, above, CATEGORY_FLAG_SYSTEM));
        category->SetFile(u"/d/" + Name() + u"/cvd.category");
        static_cast<void>(m_Database.Get().AddCategory(category));
    }
    void MoveCategory()
    {
        CCorvaneCategory& target = *Pick(m_Categories);
        bool below = m_pCategory->GetParent() == nullptr;
        for (const CCorvaneCategory* above = &target; above != nullptr; above = above->GetParent())
            below = below || above == m_pCategory;
        if (below)
            return;
        const CRef<CCorvaneCategory> keepAlive(m_pCategory);
        EXPECT_TRUE(m_pCategory->GetParent()->RemoveChildCategory(*m_pCategory));
        target.AddChildCategory(*m_pCategory);
    }

    void InsertRoot() { EXPECT_NE(m_Database.Get().InsertCategory(nullptr, &m_Schema), nullptr); }
    // What a user does, in undo groups, whatever the other steps do to the objects that those remember.
    template <class Command> void Do(Command command)
    {
        CUndoScope scope(m_Database.m_Undo);
        command(m_Database.Get());
        scope.Accept(u"command");
    }
    void MoveAsUser()
    {
        Do([this](CCorvaneMgr& manager)
           { static_cast<void>(manager.MoveCategory(Pick(m_Categories), m_pCategory)); });
    }
    void DeleteAsUser()
    {
        Do([this](CCorvaneMgr& manager) { static_cast<void>(manager.DeleteCategory(*m_pCategory, false)); });
    }
    void CopyAsUser()
    {
        if (m_Categories.size() < 25)
            Do([this](CCorvaneMgr& manager)
               { manager.CopyCategory_Clone(Pick(m_Categories), m_pCategory, false); });
    }
    void Replay()
    {
        CUndoMgr& undo = m_Database.m_Undo;
        static_cast<void>(Number(2) == 0 ? undo.Redo(1) : undo.Undo(1));
    }

    CTestDatabase& m_Database;
    CCorvaneSchema& m_Schema;
    std::mt19937 m_Random{7};
    CCorvaneCategory* m_pCategory = nullptr;
    CCorvaneRecord* m_pRecord = nullptr;
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
    database.m_Questions.Prepare(u"Virtual Category Rename", {EAnswer::Yes});
    CRandomTree tree(database);
    for (int step = 0; step < 1500 && !testing::Test::HasFailure(); ++step)
    {
        tree.Step();
        if (step % 5 == 0)
            tree.Check();
    }
}
