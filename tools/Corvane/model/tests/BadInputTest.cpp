// Files as they should not be: what is told, what survives, and that nothing is touched.
#include "TestDatabase.h"

#include <gmock/gmock.h>

#include <random>

namespace fs = std::filesystem;
using testing::HasSubstr;

namespace
{
struct SKind
{
    std::string m_sFile;
    std::string m_sInvalid;    // Title for a wrong encoding.
    std::string m_sUnreadable; // Title for a file that cannot be read.
    std::string m_sRecords;    // What is left without the file.
};

const SKind kKinds[] = {
    {"Root.Gamdb00s", "Invalid Game Database Root File", "Invalid Game Database Root File", "none"},
    {"Schemas/Bad.schema", "Invalid Schema File Format", "File Open Failed",
     "Bad/Bad Bad/Good Good/Bad Good/Good "},
    {"Bad/cvd.category", "Invalid Category File Format", "File Open Failed", "Good/Bad Good/Good "},
    {"Good/Bad.record", "Invalid Record File Format", "File Open Failed", "Bad/Bad Bad/Good Good/Good "},
};

// A tree with one file of each kind, and beside each a good one that must survive.
class CBadTree : public CTestDatabase
{
public:
    CBadTree()
    {
        AddSchema("Bad", "[Attrib.A.0]\nType=Text\n\n[Attrib.B.0]\nType=Text\n\n");
        AddSchema("Good", "[Attrib.A.0]\nType=Text\n\n");
        for (const std::string name : {"Good", "Bad"})
        {
            AddCategory(name, "Good");
            AddRecord(name + "/Good", "Good");
            AddRecord(name + "/Bad", "Good", "[Attrib.A]\nValue.0000=x\n");
        }
    }

    // Loads and closes; the files must stand as they did. Gives the records, none when there is no database.
    std::string Load()
    {
        const Snapshot before = TakeSnapshot();
        const std::string records = Open() ? GetRecordList() : "none";
        Close();
        EXPECT_EQ(GetChanges(before), "") << "a load changed a file";
        return records;
    }
    void Fail(EFileOperation operation, std::string_view file, EFileError code)
    {
        m_Failure = [=, path = GetText(file)](EFileOperation asked, std::u16string_view at)
        { return asked == operation && at.starts_with(path) ? code : EFileError::None; };
    }
};
} // namespace

TEST(BadInput, FilesThatCannotBeReadAreToldAndLeftOut)
{
    std::string texts;
    for (const SKind& kind : kKinds)
    {
        for (const std::string_view way : {"encoding", "directory", "denied", "gone"})
        {
            SCOPED_TRACE(kind.m_sFile + std::string(way));
            CBadTree tree;
            const std::string& file = kind.m_sFile;
            if (way == "encoding" || way == "directory")
                fs::remove(tree.GetPath(file));
            if (way == "encoding")
                tree.WriteBytes(file, "[General]\nDatabase={11111111-2222-3333-4444-555555555555}\n");
            else if (way == "directory")
                fs::create_directory(tree.GetPath(file));
            else
                tree.Fail(EFileOperation::ReadFile, file,
                          way == "gone" ? EFileError::NotFound : EFileError::AccessDenied);
            EXPECT_EQ(tree.Load(), kind.m_sRecords);
            // A directory named like a record or a schema is none, and is passed over without a word.
            const bool silent =
                way == "directory" && (file.ends_with(".record") || file.ends_with(".schema"));
            const std::string title = way == "encoding" ? kind.m_sInvalid : kind.m_sUnreadable;
            EXPECT_EQ(tree.GetTitles(), silent ? "" : title + ";");
            if (way == "encoding")
                texts += tree.GetQuestion(title).substr(
                             0, tree.GetQuestion(title).find("\n\n" + tree.GetPath(file).string())) +
                         "\n";
        }
    }
    EXPECT_EQ(
        texts,
        "The following file is not a valid game database root file (*.Gamdb00s) or the file may be corrupt\n"
        "The following schema file is not in Unicode format and cannot be parsed:\n"
        "The following category file is not in Unicode format and cannot be parsed:\n"
        "The following record file is not in Unicode format and cannot be parsed:\n");
}

TEST(BadInput, AMissingLocatorEndsTheLoad)
{
    CBadTree tree;
    fs::remove(tree.m_Scratch.GetPath() / "Game/Game.proj00");
    EXPECT_EQ(tree.Load(), "none");
    EXPECT_EQ(tree.GetTitles(), "Project Error;");
    EXPECT_EQ(
        tree.GetQuestion("Project Error"),
        "Failed to locate the locator file (*.proj00) for the following project.  The project could not "
        "be loaded.\n\n" +
            tree.GetPath("Root.Gamdb00s").string());
    EXPECT_FALSE(tree.m_Run.Test(APP_LOADING));
}

TEST(BadInput, AnUnreadableDirectoryIsToldAndLeftOut)
{
    CBadTree tree;
    tree.Fail(EFileOperation::ListDirectory, "Bad", EFileError::AccessDenied);
    EXPECT_EQ(tree.Load(), "Good/Bad Good/Good ");
    EXPECT_EQ(tree.GetTitles(), "Directory Error;");
    EXPECT_THAT(tree.GetQuestion("Directory Error"), HasSubstr(tree.GetPath("Bad").string()));
}

TEST(BadInput, NoCutAndNoNoiseHurts)
{
    std::mt19937 random(20240611);
    for (int round = 0; round < 120; ++round)
    {
        CBadTree tree;
        const SKind& kind = kKinds[random() % std::size(kKinds)];
        std::string bytes = tree.m_Scratch.ReadBytes("Game/Database/" + kind.m_sFile);
        // Cut anywhere, in the middle of a unit too; bytes flipped behind the mark; nothing but noise there.
        const std::size_t how = random() % 3;
        if (how == 0)
            bytes.resize(random() % bytes.size());
        if (how == 2)
            bytes.resize(2 + random() % 3000);
        for (std::size_t i = 2; how != 0 && i < bytes.size(); i += how == 2 ? 1 : 1 + random() % 20)
            bytes[i] = static_cast<char>(random() % 256);
        tree.WriteBytes(kind.m_sFile, bytes);
        tree.m_Questions.Prepare(u"Missing Referencer Record", {EAnswer::No});
        const std::string records = tree.Load();
        EXPECT_TRUE(records == "none" || records.ends_with("Good/Good ")) << round << records;
        tree.m_nExpectedAsserts = tree.m_Asserts.GetEntries().size();
    }
}
