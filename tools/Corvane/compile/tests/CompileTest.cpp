// How a compile ends: bad creators, cancel, findings, targets that cannot be written.
#include "CompileFixture.h"

namespace
{
using CCompileTest = CCompileFixture;

const std::string kBuilt = "built new 8 20 21 22 23 24 25 9";
const std::string kNoLibrary = "; Error: Failed to locate the Game Database library.";
const std::string kNoSave =
    "failed, old 8 20 21 22 23 24 25 -9; Error: Failed to save database to file.  The "
    "file may be locked.";

TEST_F(CCompileTest, BadCreatorsEndInTheWordsAndKeepTheOldFile)
{
    const std::pair<std::string, std::string> rows[] = {
        {"export", "failed, old" + kNoLibrary},
        {"database", "failed, old -9; Error: Failed to create new database."},
        {"category", "failed, old 8 20 -9; Error: Failed to compile category files"},
        {"record", "failed, old 8 20 21 22 -9; Error: Failed to compile record files"},
        {"attribute", "failed, old 8 20 21 22 23 24 -9; Error: Failed to compile attribute files"},
        {"save", kNoSave},
        {"release", kBuilt},
    };
    for (const auto& [call, outcome] : rows)
    {
        for (const std::string verb : {"refuse ", "throw "})
        {
            WriteBytes(kPacked, "old");
            SetCreatorMode(verb + call);
            EXPECT_EQ(Compile(), outcome) << verb << call;
            // The next compile of a creator that behaves finds everything released.
            SetCreatorMode("");
            EXPECT_EQ(Compile(), kBuilt) << verb << call;
        }
    }
    SetCreatorMode("throw value");
    EXPECT_EQ(Compile(), "failed, new 8 20 21 22 23 24 -9; Error: Failed to compile attribute files");
    for (const char* library : {"Missing.dll", OTHER_LIBRARY})
    {
        EXPECT_TRUE(m_pManager->CloseDatabase());
        WriteLocator(library);
        EXPECT_EQ(Compile(), "failed, new" + kNoLibrary) << library;
    }
}

TEST_F(CCompileTest, CancelInEachPhaseIsSilentAndKeepsTheOldFile)
{
    for (int i = 0; i < 10; ++i)
        AddRecord("Land/R" + std::to_string(i), "Vehicle");
    const struct
    {
        std::u16string text;
        int pump; // The first is at the begin of the phase.
        std::string outcome;
    } rows[] = {
        {u"Validating Database...", 1, "failed, old 8 20 -9"},
        {u"Compiling Categories...", 1, "failed, old 8 20 -9"},
        {u"Compiling Records...", 1, "failed, old 8 20 21 22 -9"},
        {u"Compiling Records...", 2, "failed, old 8 20 21 22 -9"},
        {u"Compiling Attributes...", 1, "failed, old 8 20 21 22 23 24 -9"},
        {u"Saving to disk...", 1, "failed, old 8 20 21 22 23 24 25 -9"},
    };
    for (const auto& row : rows)
    {
        int pumps = 0;
        m_Questions.m_Cancel = [&](std::u16string_view text)
        { return text == row.text && ++pumps == row.pump; };
        EXPECT_EQ(Compile(), row.outcome) << ToNarrow(row.text);
    }
}

TEST_F(CCompileTest, CriticalFindingsAskAndASilentRunGoesOnWithStatusOne)
{
    const std::string head = "; Compile Error: Critical errors have been detected within the database.  All "
                             "critical errors ";
    const std::string seen = "\n\nWould you like to see a list of these errors?";
    const std::string local = head + "should be resolved prior to performing a database compile." + seen +
                              "; Continue Build?: Would you like to continue building the database anyway?";
    const std::string server = head +
                               "must be resolved prior to performing a database compile.  The compile "
                               "process has been aborted." +
                               seen;
    const std::tuple<std::uint32_t, EAnswer, std::string> rows[] = {
        {0, EAnswer::No, "failed, old" + local},
        {COMPILE_SERVER, EAnswer::Yes, "failed, old pane" + server},
        {0, EAnswer::Yes, kBuilt + " modal" + local},
    };
    AddVehicle("Land/Car", "900", "<none>");
    for (const auto& [flags, answer, outcome] : rows)
    {
        m_Questions.Prepare(u"Compile Error", {answer});
        m_Questions.Prepare(u"Continue Build?", {answer});
        EXPECT_EQ(Compile(flags), outcome);
    }
    EXPECT_EQ(m_Run.m_nExitStatus, kExitOk);
    WriteBytes(kPacked, "old");
    m_Run.m_bSilent = true;
    EXPECT_EQ(Compile(), kBuilt);
    EXPECT_EQ(m_Run.m_nExitStatus, kExitCriticalFindings);
}

TEST_F(CCompileTest, TargetThatCannotBeOpenedIsNamedWithItsCause)
{
    const auto path = GetPath(kPacked);
    const auto outcome = [&](const std::string& cause)
    {
        return "failed, none 8 20 21 22 23 24 25 -9; Error: The packed database could not be opened for "
               "writing: " +
               cause + ".\n\n" + path.string();
    };
    std::filesystem::remove(path);
    std::filesystem::create_directory(path);
    EXPECT_EQ(Compile(), outcome("not a file of the wanted kind"));
    std::filesystem::remove(path);
    // A device is not replaced by a file.
    std::filesystem::create_symlink("/dev/null", path);
    EXPECT_EQ(Compile(), outcome("not a file of the wanted kind"));
    std::filesystem::remove(path);
    m_Failure = [](EFileOperation operation, std::u16string_view)
    { return operation == EFileOperation::OpenStream ? EFileError::AccessDenied : EFileError::None; };
    EXPECT_EQ(Compile(), outcome("permission denied"));
    m_Failure = nullptr;
    EXPECT_FALSE(m_Compiler.CompileDatabase(0, m_Scratch.Text("gone/Packed.Gamdb00p"), 0));
    EXPECT_FALSE(m_Scratch.Exists("gone"));
}

TEST_F(CCompileTest, ReadOnlyTargetIsFreedByTheOuterProcedureOnly)
{
    Open();
    ASSERT_TRUE(m_Disk.SetReadOnly(GetText(kPacked), true).IsOk());
    EXPECT_FALSE(m_Compiler.BuildDatabase(GetText(kPacked), 0, 0));
    EXPECT_EQ(ReadPacked(), "old");
    EXPECT_EQ(Compile(), kBuilt);
}

TEST_F(CCompileTest, FailedWriteKeepsTheOldFile)
{
    for (const EFileOperation at : {EFileOperation::CloseStream, EFileOperation::Rename})
    {
        m_Failure = [at](EFileOperation operation, std::u16string_view)
        { return operation == at ? EFileError::DiskFull : EFileError::None; };
        EXPECT_EQ(Compile(), kNoSave);
    }
    m_Failure = nullptr;
    m_Files.SetStreamLimit(10);
    for (const char* mode : {"", "refuse look"})
    {
        SetCreatorMode(mode);
        EXPECT_EQ(Compile(), kNoSave) << mode;
    }
}
} // namespace
