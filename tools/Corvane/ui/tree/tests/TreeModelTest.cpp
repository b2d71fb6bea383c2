// The item model against a plain walk of the database, while random operations run over it.
#include "CorvaneEvent.h"
#include "CorvaneTreeModel.h"
#include "NameCompare.h"
#include "QtText.h"
#include "TestDatabase.h"
#include "TreeFilterWalk.h"
#include "UndoScope.h"
#include "Unicode.h"

#include <QAbstractItemModelTester>
#include <algorithm>
#include <gtest/gtest.h>
#include <random>

namespace
{
using CNames = std::vector<std::string>;

// Names with their depth, in the order in which the tree has to show them.
class CPlainWalk
{
public:
    explicit CPlainWalk(std::u16string_view filter) : m_Filter(filter) {}

    CNames Walk(const CCorvaneMgr& manager)
    {
        CNames names{"0 " + ToNarrow(manager.GetRootFile().m_sName)};
        for (const CRef<CCorvaneCategory>& category : manager.GetRootCategories())
            if (category->GetParent() == nullptr)
                Append(names, WalkCategory(*category, 1));
        return names;
    }

private:
    static void Append(CNames& names, const CNames& more)
    {
        names.insert(names.end(), more.begin(), more.end());
    }

    template <class T> static std::vector<T*> Sort(std::span<const CRef<T>> list)
    {
        std::vector<T*> sorted;
        for (const CRef<T>& one : list)
            sorted.push_back(one.Get());
        std::stable_sort(sorted.begin(), sorted.end(),
                         [](const T* a, const T* b) { return ZRStrICmp(a->GetName(), b->GetName()) < 0; });
        return sorted;
    }

    CNames WalkCategory(const CCorvaneCategory& category, int depth)
    {
        CNames below;
        for (const CCorvaneCategory* child : Sort(category.GetChildren()))
            Append(below, WalkCategory(*child, depth + 1));
        for (const CCorvaneRecord* record : Sort(category.GetRecords()))
            if (m_Filter.Matches(record->GetName()))
                below.push_back(std::to_string(depth + 1) + " " + ToNarrow(record->GetName()));
        if (below.empty() && !m_Filter.Matches(category.GetName()))
            return {};
        below.insert(below.begin(), std::to_string(depth) + " " + ToNarrow(category.GetName()));
        return below;
    }

    CTreeFilter m_Filter;
};

CNames WalkModel(const QAbstractItemModel& model, const QModelIndex& parent = {}, int depth = 0)
{
    CNames names;
    for (int row = 0; row < model.rowCount(parent); ++row)
    {
        const QModelIndex index = model.index(row, 0, parent);
        names.push_back(std::to_string(depth) + " " + index.data().toString().toStdString());
        const CNames below = WalkModel(model, index, depth + 1);
        names.insert(names.end(), below.begin(), below.end());
    }
    return names;
}

void SetFilter(CCorvaneTreeModel& model, CCorvaneMgr& manager, std::u16string_view text)
{
    auto nodes = std::make_unique<CTreeNodes>(manager, CTreeFilter(text));
    CTreeFilterWalk walk(*nodes, manager);
    while (!walk.Run(CTreeFilterWalk::CClock::now() + std::chrono::microseconds(50)))
    {
    }
    model.SetFilteredNodes(std::move(nodes));
}

class CTreeModelTest : public testing::Test
{
protected:
    CTreeModelTest()
    {
        m_Database.AddSchema("Unit", "");
        for (const char* category : {"Beta", "alpha", "alpha/Inner"})
            m_Database.AddCategory(category, "Unit");
        for (const char* record : {"alpha/one", "alpha/Two", "alpha/Inner/three", "Beta/one"})
            m_Database.AddRecord(record, "Unit");
        EXPECT_TRUE(m_Database.Open());
        m_Database.m_Questions.Prepare(u"Virtual Category Rename", {EAnswer::Yes});
        m_Database.m_Questions.Prepare(u"Delete System Category", {EAnswer::Yes});
    }

    std::vector<CCorvaneCategory*> ListCategories() const
    {
        std::vector<CCorvaneCategory*> list;
        m_Database.Get().EnumerateCategories([&](CCorvaneCategory& one) { list.push_back(&one); });
        return list;
    }
    std::vector<CCorvaneRecord*> ListRecords() const
    {
        std::vector<CCorvaneRecord*> list;
        m_Database.Get().EnumerateRecords(
            [&](CCorvaneRecord& one)
            {
                list.push_back(&one);
                return true;
            });
        return list;
    }
    template <class T> T* Pick(const std::vector<T*>& list)
    {
        return list.empty() ? nullptr : list[m_Random() % list.size()];
    }
    std::u16string MakeName()
    {
        static constexpr std::u16string_view kParts[] = {u"one", u"TWO", u"b", u"Zo", u"a"};
        return std::u16string(kParts[m_Random() % 5]).append(ToWide(std::to_string(m_Random() % 40)));
    }

    void Run(unsigned what);
    // A file that comes and goes outside the program.
    void ChangeDisk();

    CTestDatabase m_Database;
    std::mt19937 m_Random{20240607};
};

void CTreeModelTest::Run(unsigned what)
{
    CCorvaneMgr& manager = m_Database.Get();
    CUndoMgr& undo = m_Database.m_Undo;
    CCorvaneCategory* category = Pick(ListCategories());
    CCorvaneCategory* other = Pick(ListCategories());
    CCorvaneRecord* record = Pick(ListRecords());
    const std::u16string name = MakeName();
    if (what < 2)
        static_cast<void>(what == 0 ? undo.Undo(1) : undo.Redo(1));
    else if (what == 2)
        ChangeDisk();
    if (what <= 2 || category == nullptr || record == nullptr)
        return;
    CUndoScope scope(undo);
    bool done = true;
    switch (what)
    {
    case 3:
    case 4:
        manager.InsertRecord(category);
        break;
    case 5:
        static_cast<void>(manager.CreateVirtualRelativeCategory(category, name));
        break;
    case 6:
        manager.CopyRecord_Clone(category, record, true);
        break;
    case 7:
        done = manager.DeleteRecord(*record, false);
        break;
    case 8:
        done = manager.IsRecordNameFree(*record->GetCategory(), name, nullptr) &&
               manager.RenameRecord(*record, name);
        break;
    case 9:
        done = !category->IsSystem() && manager.IsCategoryNameFree(category->GetParent(), name) &&
               manager.RenameCategory(*category, name);
        break;
    case 10:
        done = manager.MoveRecord(category, *record, false);
        break;
    case 11:
        done = manager.MoveCategory(category, other);
        break;
    case 12:
        done = !category->IsSystem() && manager.DeleteCategory(*category, false);
        break;
    default:
        if (!other->IsSystem())
            manager.CopyCategory_Clone(category, other, true);
        break;
    }
    if (done)
        scope.Accept(u"step");
}

void CTreeModelTest::ChangeDisk()
{
    const std::string name = ToNarrow(MakeName());
    if (m_Random() % 2 == 0 && !std::filesystem::exists(m_Database.GetPath("Beta/" + name + ".record")))
        m_Database.AddRecord("Beta/" + name, "Unit");
    else if (CCorvaneRecord* record = Pick(ListRecords()))
        std::filesystem::remove(std::filesystem::path(record->GetFile()));
    m_Database.Get().RefreshDatabase();
}
} // namespace

TEST_F(CTreeModelTest, FollowsARandomScript)
{
    CCorvaneMgr& manager = m_Database.Get();
    CCorvaneTreeModel model(manager, nullptr);
    CCorvaneTreeModel lazy(manager, nullptr);
    CCorvaneTreeModel filtered(manager, nullptr);
    SetFilter(filtered, manager, u"O");
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    const QAbstractItemModelTester filteredTester(&filtered,
                                                  QAbstractItemModelTester::FailureReportingMode::Fatal);
    for (int step = 0; step < 2000; ++step)
    {
        const unsigned what = static_cast<unsigned>(m_Random() % 14);
        // Copies of whole categories and refreshes are the exception, or the database would only grow.
        if ((what != 13 && what != 2) || step % 7 == 0)
            Run(what);
        // The lazy one looks at one category now and then.
        if (CCorvaneCategory* category = Pick(ListCategories()); category && step % 5 == 0)
            static_cast<void>(lazy.rowCount(lazy.Locate(CTreeItem(*category))));
        if (step % 50 != 0)
            continue;
        ASSERT_EQ(WalkModel(model), CPlainWalk(u"").Walk(manager)) << step;
        ASSERT_EQ(WalkModel(filtered), CPlainWalk(u"O").Walk(manager)) << step;
        ASSERT_EQ(WalkModel(lazy), CPlainWalk(u"").Walk(manager)) << step;
        lazy.ClearFilter();
    }
    EXPECT_GT(ListRecords().size(), 10U);
    m_Database.Close();
    EXPECT_EQ(model.rowCount(), 0);
}
