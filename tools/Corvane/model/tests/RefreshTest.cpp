// Refreshes: what they cost, what they tell a window, and that a failing disk loses nothing. What they do to
// the objects stands in Refresh.script.
#include "RecordDocument.h"
#include "TestDatabase.h"

#include <gtest/gtest.h>

#include <map>

namespace fs = std::filesystem;

namespace
{
class CRefreshedDatabase : public CTestDatabase
{
public:
    CRefreshedDatabase()
    {
        AddSchema("S", "[Attrib.A.0]\nType=Text\nDefault=\n\n");
        for (const std::string category : {"C", "C/D", "E"})
        {
            AddCategory(category, "S");
            for (const std::string record : {"/a", "/b", "/c"})
                AddRecord(category + record, "S");
        }
        AddRecord("C/v", "S", "", "VirtualRelativeCategory=V/W\n");
        EXPECT_TRUE(Open());
    }
    void ChangeDisk()
    {
        Write("Schemas/S.schema",
              "[Schema]\nName=S\n[Attrib.A]\nType=Text\n[Attrib.B]\nType=Text\nDefault=d\n");
        AddSchema("T", "", "S");
        AddCategory("C/New", "T");
        AddRecord("C/New/n", "T");
        AddRecord("C/a", "S", "[Attrib.A]\nValue.0000=changed\n", "VirtualRelativeCategory=V\n");
        AddRecord("C/D/new", "S");
        fs::remove(GetPath("C/b.record"));
        fs::remove_all(GetPath("E"));
    }
};
} // namespace

TEST(Refresh, WithoutChangesEachFileIsLookedAtOnce)
{
    std::map<EFileOperation, std::size_t> counts;
    std::map<std::u16string, int> looks;
    CRefreshedDatabase database;
    database.m_Failure = [&](EFileOperation operation, std::u16string_view path)
    {
        ++counts[operation];
        looks[std::u16string(path)] += operation == EFileOperation::GetInfo ? 1 : 0;
        return EFileError::None;
    };
    EXPECT_TRUE(database.Get().RefreshDatabase());
    const std::size_t files = 1 + 3 + 10;
    EXPECT_EQ(counts[EFileOperation::GetInfo], files + 2) << "the root as a directory, twice";
    EXPECT_EQ(counts[EFileOperation::ListDirectory], 5U);
    EXPECT_EQ(counts.size(), 2U) << "nothing is opened";
    for (const auto& [path, count] : looks)
        EXPECT_LE(count, path == database.Get().GetDirectory() ? 2 : 1);
}

TEST(Refresh, WhicheverOperationFailsTheNextRefreshCompletesIt)
{
    const std::string wanted = "C/c C/D/a C/D/b C/D/c C/D/new C/V/a C/V/W/v C/New/n ";
    for (int failing = 1, operations = 1; failing <= operations; ++failing)
    {
        SCOPED_TRACE(failing);
        int count = 0;
        CRefreshedDatabase database;
        database.ChangeDisk();
        database.m_Failure = [&](EFileOperation, std::u16string_view)
        { return ++count == failing ? EFileError::AccessDenied : EFileError::None; };
        const bool done = database.Get().RefreshDatabase();
        operations = count;
        EXPECT_TRUE(failing > operations || !done || !database.GetTitles().empty());
        EXPECT_TRUE(database.Get().RefreshDatabase());
        EXPECT_EQ(database.GetRecordList(), wanted);
        EXPECT_EQ(database.Value("C/V/a", "A") + database.Value("C/c", "B") + database.Value("C/New/n", "B"),
                  "changeddd");
        EXPECT_FALSE(database.Get().IsDirty());
    }
}
