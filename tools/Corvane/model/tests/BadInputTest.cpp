// Files as they should not be: what is told, what survives, and that nothing is touched.
#include "TestDatabase.h"
#include "Unicode.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <random>

namespace fs = std::filesystem;
using testing::HasSubstr;

namespace
{
// One file of each kind, and beside each a good one that must survive.
void WriteTree(const CTestDatabase& database)
{
    database.AddSchema("Bad", "[Attrib.A.0]\nType=Text\n\n[Attrib.B.0]\nType=Text\n\n");
    database.AddSchema("Good", "[Attrib.A.0]\nType=Text\n\n");
    for (const char* name : {"Good", "Bad"})
    {
        database.AddCategory(name, "Good");
        database.AddRecord(std::string(name) + "/Good", "Good");
        database.AddRecord(std::string(name) + "/Bad", "Good", "[Attrib.A]\nValue.0000=x\n");
    }
}

struct SKind
{
    const char* m_szFile;
    const char* m_szInvalid; // Title and text for a wrong encoding.
    const char* m_szInvalidText;
    const char* m_szUnreadable; // Title for a file that cannot be read.
    const char* m_szRecords;    // What is left without the file.
};

constexpr const char* kAll = "Bad/Bad Bad/Good Good/Bad Good/Good ";
constexpr const char* kRootTitle = "Invalid Game Database Root File";
constexpr SKind kKinds[] = {
    {"Root.Gamdb00s", kRootTitle,
     "not a valid game database root file (*.Gamdb00s) or the file may be corrupt\n\n", kRootTitle, ""},
    {"Schemas/Bad.schema", "Invalid Schema File Format",
     "The following schema file is not in Unicode format and cannot be parsed:\n\n", "File Open Failed",
     kAll},
    {"Bad/cvd.category", "Invalid Category File Format",
     "The following category file is not in Unicode format and cannot be parsed:\n\n", "File Open Failed",
     "Good/Bad Good/Good "},
    {"Good/Bad.record", "Invalid Record File Format",
     "The following record file is not in Unicode format and cannot be parsed:\n\n", "File Open Failed",
     "Bad/Bad Bad/Good Good/Good "},
};

// Opens and closes; the files must stand as they did.
bool LoadUntouched(CTestDatabase& database, const std::function<void()>& look)
{
    const CTestDatabase::Snapshot before = database.TakeSnapshot();
    const bool opened = database.Open();
    look();
    database.Close();
    EXPECT_EQ(database.GetChanges(before), "") << "a load changed a file";
    return opened;
}
} // namespace

TEST(BadInput, FilesThatCannotBeReadAreToldAndLeftOut)
{
    for (const SKind& kind : kKinds)
    {
        for (const std::string_view way : {"encoding", "directory", "denied", "gone"})
        {
            CTestDatabase database;
            WriteTree(database);
            const std::string_view file = kind.m_szFile;
            if (way == "encoding" || way == "directory")
                fs::remove(database.GetPath(file));
            if (way == "encoding")
                database.WriteBytes(file, "[General]\nDatabase={11111111-2222-3333-4444-555555555555}\n");
            else if (way == "directory")
                fs::create_directory(database.GetPath(file));
            else
                database.m_Failure = [&, way](EFileOperation operation, std::u16string_view path)
                {
                    const bool hit = operation == EFileOperation::ReadFile && path == database.GetText(file);
                    return !hit            ? EFileError::None
                           : way == "gone" ? EFileError::NotFound
                                           : EFileError::AccessDenied;
                };
            const bool opened = LoadUntouched(
                database, [&] { EXPECT_EQ(database.GetRecordList(), kind.m_szRecords) << file << way; });
            EXPECT_EQ(opened, file != "Root.Gamdb00s") << file << way;
            // A directory named like a record or a schema is none, and is passed over without a word.
            const bool silent =
                way == "directory" && (file.ends_with(".record") || file.ends_with(".schema"));
            const std::string title = way == "encoding" ? kind.m_szInvalid : kind.m_szUnreadable;
            EXPECT_EQ(database.GetTitles(), silent ? "" : title + ";") << file << way;
            if (way != "encoding")
                continue;
            EXPECT_THAT(database.GetQuestion(title),
                        HasSubstr(kind.m_szInvalidText + database.GetPath(file).string()));
        }
    }
}

TEST(BadInput, AMissingLocatorEndsTheLoad)
{
    CTestDatabase database;
    WriteTree(database);
    fs::remove(database.m_Scratch.GetPath() / "Game/Game.proj00");
    EXPECT_FALSE(LoadUntouched(database, [] {}));
    EXPECT_EQ(database.GetTitles(), "Project Error;");
    EXPECT_EQ(
        database.GetQuestion("Project Error"),
        "Failed to locate the locator file (*.proj00) for the following project.  The project could not "
        "be loaded.\n\n" +
            database.GetPath("Root.Gamdb00s").string());
    EXPECT_EQ(database.m_Events.size() > 1 ? database.m_Events[2] : -1, 0);
    EXPECT_FALSE(database.m_Run.Test(APP_LOADING));
}

TEST(BadInput, AnUnreadableDirectoryIsToldAndLeftOut)
{
    CTestDatabase database;
    WriteTree(database);
    database.m_Failure = [&](EFileOperation operation, std::u16string_view path)
    {
        const bool hit = operation == EFileOperation::ListDirectory &&
                         path.substr(0, database.GetText("Bad").size()) == database.GetText("Bad");
        return hit ? EFileError::AccessDenied : EFileError::None;
    };
    EXPECT_TRUE(LoadUntouched(database, [&] { EXPECT_EQ(database.GetRecordList(), "Good/Bad Good/Good "); }));
    EXPECT_EQ(database.GetTitles(), "Directory Error;");
    EXPECT_THAT(ToNarrow(database.m_Questions.GetQuestions()[0].m_sText),
                HasSubstr(database.GetPath("Bad").string()));
}

TEST(BadInput, NoCutAndNoNoiseHurts)
{
    std::mt19937 random(20240611);
    const auto number = [&random](std::size_t below)
    { return std::uniform_int_distribution<std::size_t>(0, below - 1)(random); };
    for (int round = 0; round < 120; ++round)
    {
        CTestDatabase database;
        WriteTree(database);
        const SKind& kind = kKinds[number(std::size(kKinds))];
        std::string bytes = database.m_Scratch.ReadBytes("Game/Database/" + std::string(kind.m_szFile));
        // Cut anywhere, in the middle of a unit too; bytes flipped behind the mark; nothing but noise there.
        const std::size_t how = number(3);
        if (how == 0)
            bytes.resize(number(bytes.size()));
        else if (how == 1)
            for (int i = 0; i < 12; ++i)
                bytes[2 + number(bytes.size() - 2)] = static_cast<char>(number(256));
        else
        {
            bytes.resize(2 + number(3000));
            std::generate(bytes.begin() + 2, bytes.end(), [&] { return static_cast<char>(number(256)); });
        }
        database.WriteBytes(kind.m_szFile, bytes);
        database.m_Questions.Prepare(u"Missing Referencer Record", {EAnswer::No});
        LoadUntouched(database,
                      [&]
                      {
                          if (!database.Get().IsOpen())
                              return;
                          EXPECT_EQ(database.Record("Good/Good").GetAttributeList().size(), 1U) << round;
                          EXPECT_NE(database.Get().FindSchema(u"Good"), nullptr);
                      });
        database.m_nExpectedAsserts = database.m_Asserts.GetEntries().size();
    }
}
