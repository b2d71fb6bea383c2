// How a compile ends: bad creators, cancel, findings, targets that cannot be written.
#include "CompileFixture.h"

namespace
{
constexpr const char16_t* kNoLibrary = u"Error: Failed to locate the Game Database library.";
constexpr const char16_t* kNoDatabase = u"Error: Failed to create new database.";
constexpr const char16_t* kNoCategory = u"Error: Failed to compile category files";
constexpr const char16_t* kNoRecord = u"Error: Failed to compile record files";
constexpr const char16_t* kNoAttribute = u"Error: Failed to compile attribute files";
constexpr const char16_t* kNoSave = u"Error: Failed to save database to file.  The file may be locked.";

const std::vector<int> kInCategories{8, 20, -9};
const std::vector<int> kInRecords{8, 20, 21, 22, -9};
const std::vector<int> kInAttributes{8, 20, 21, 22, 23, 24, -9};
const std::vector<int> kInSave{8, 20, 21, 22, 23, 24, 25, -9};

class CCompileTest : public CCompileFixture
{
protected:
    // Fails with one box and leaves the old file.
    void ExpectFailure(const std::u16string& box)
    {
        EXPECT_FALSE(Compile());
        EXPECT_EQ(GetBoxes(), std::vector<std::u16string>{box});
        EXPECT_TRUE(IsClean());
    }
};

TEST_F(CCompileTest, BadCreatorsEndInTheWordsAndKeepTheOldFile)
{
    const struct
    {
        const char* library;
        const char* mode;
        std::u16string box;
        std::vector<int> events;
    } rows[] = {
        {"Missing.dll", "", kNoLibrary, {}},
        {EMPTY_CREATOR, "", kNoLibrary, {}},
        {RECORDING_CREATOR, "null", kNoLibrary, {}},
        {RECORDING_CREATOR, "throw-export", kNoLibrary, {}},
        {RECORDING_CREATOR, "refuse-database", kNoDatabase, {-9}},
        {RECORDING_CREATOR, "throw-database", kNoDatabase, {-9}},
        {RECORDING_CREATOR, "refuse-category", kNoCategory, kInCategories},
        {RECORDING_CREATOR, "throw-category", kNoCategory, kInCategories},
        {RECORDING_CREATOR, "refuse-record", kNoRecord, kInRecords},
        {RECORDING_CREATOR, "throw-record", kNoRecord, kInRecords},
        {RECORDING_CREATOR, "refuse-attribute", kNoAttribute, kInAttributes},
        {RECORDING_CREATOR, "throw-attribute", kNoAttribute, kInAttributes},
        {RECORDING_CREATOR, "throw-value", kNoAttribute, kInAttributes},
        {RECORDING_CREATOR, "refuse-save", kNoSave, kInSave},
        {RECORDING_CREATOR, "throw-save", kNoSave, kInSave},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.library + std::string(" ") + row.mode);
        WriteBytes(kPacked, kOldFile);
        ASSERT_TRUE(!m_pManager->IsOpen() || m_pManager->CloseDatabase());
        WriteLocator(row.library);
        SetCreatorMode(row.mode);
        ExpectFailure(row.box);
        EXPECT_EQ(m_Events, row.events);
        EXPECT_EQ(ReadPacked(), kOldFile);
        EXPECT_TRUE(m_pManager->GetCompiledRecords().IsEmpty());
        // The next compile of a creator that behaves finds everything released.
        SetCreatorMode("");
        const bool behaves = row.library == kRecordingCreator;
        EXPECT_EQ(Compile(), behaves);
        EXPECT_EQ(ReadPacked().starts_with("database 1\n"), behaves) << ReadPacked().substr(0, 12);
    }
}

TEST_F(CCompileTest, ThrowInReleaseHarmsNothing)
{
    SetCreatorMode("throw-release");
    EXPECT_TRUE(Compile());
    EXPECT_TRUE(ReadPacked().starts_with("database 1\n"));
}

TEST_F(CCompileTest, CancelInEachPhaseIsSilentAndKeepsTheOldFile)
{
    const std::pair<std::u16string, std::vector<int>> phases[] = {
        {u"Validating Database...", kInCategories},
        {u"Compiling Categories...", kInCategories},
        {u"Compiling Records...", kInRecords},
        {u"Compiling Attributes...", kInAttributes},
        {u"Saving to disk...", kInSave},
    };
    for (const auto& [phase, events] : phases)
    {
        m_Questions.m_Cancel = [phase = phase](std::u16string_view text) { return text == phase; };
        EXPECT_FALSE(Compile());
        EXPECT_EQ(m_Events, events);
        EXPECT_TRUE(GetBoxes().empty());
        EXPECT_EQ(ReadPacked(), kOldFile);
        EXPECT_TRUE(IsClean());
    }
}

TEST_F(CCompileTest, CancelInTheMiddleOfAPassEndsIt)
{
    for (int i = 0; i < 20; ++i)
        AddRecord("Land/R" + std::to_string(i), "Vehicle");
    int pumps = 0;
    m_Questions.m_Cancel = [&](std::u16string_view text)
    { return text == u"Compiling Records..." && ++pumps == 2; };
    EXPECT_FALSE(Compile());
    EXPECT_EQ(m_Events, kInRecords);
    EXPECT_TRUE(GetBoxes().empty());
}

class CFindingsTest : public CCompileFixture, public ICompileView
{
protected:
    void ShowFindings(const CValidateCore&, bool modal) override { m_sShown += modal ? "modal" : "modeless"; }

    std::string m_sShown;
};

TEST_F(CFindingsTest, CriticalOnesAskAndASilentRunGoesOnWithStatusOne)
{
    const std::u16string head =
        u"Compile Error: Critical errors have been detected within the database.  All "
        u"critical errors ";
    const std::u16string seen = u"\n\nWould you like to see a list of these errors?";
    const std::u16string local = head + u"should be resolved prior to performing a database compile." + seen;
    const std::u16string server = head +
                                  u"must be resolved prior to performing a database compile.  The "
                                  u"compile process has been aborted." +
                                  seen;
    const std::u16string goOn = u"Continue Build?: Would you like to continue building the database anyway?";
    const struct
    {
        std::uint32_t flags;
        EAnswer answer;
        std::vector<std::u16string> boxes;
        const char* shown;
        bool built;
    } rows[] = {
        {0, EAnswer::No, {local, goOn}, "", false},
        {0, EAnswer::Yes, {local, goOn}, "modal", true},
        {COMPILE_SERVER, EAnswer::Yes, {server}, "modeless", false},
    };
    AddVehicle("Land/Car", "900", "<none>");
    Open();
    CDatabaseCompiler asking(*m_pManager, this);
    for (const auto& row : rows)
    {
        Listen();
        m_sShown.clear();
        m_Questions.Prepare(u"Compile Error", {row.answer});
        m_Questions.Prepare(u"Continue Build?", {row.answer});
        EXPECT_EQ(asking.CompileDatabase(row.flags, GetTarget(), 0), row.built);
        EXPECT_EQ(GetBoxes(), row.boxes);
        EXPECT_EQ(m_sShown, row.shown);
        EXPECT_EQ(m_Events.empty(), !row.built);
    }
    EXPECT_EQ(m_Run.m_nExitStatus, kExitOk);
    WriteBytes(kPacked, kOldFile);
    m_Run.m_bSilent = true;
    EXPECT_TRUE(Compile());
    EXPECT_EQ(m_Run.m_nExitStatus, kExitCriticalFindings);
    EXPECT_TRUE(GetBoxes().empty());
    EXPECT_NE(ReadPacked(), kOldFile);
}

TEST_F(CCompileTest, TargetThatCannotBeOpenedIsNamedWithItsCause)
{
    std::filesystem::remove(GetPath(kPacked));
    const auto box = [this](EFileError cause)
    {
        return u"Error: The packed database could not be opened for writing: " +
               CFileError{cause, 0}.GetText() + u".\n\n" + GetTarget();
    };
    std::filesystem::create_directory(GetPath(kPacked));
    ExpectFailure(box(EFileError::NotAFile));
    std::filesystem::remove(GetPath(kPacked));

    m_Failure = [](EFileOperation operation, std::u16string_view)
    { return operation == EFileOperation::OpenStream ? EFileError::AccessDenied : EFileError::None; };
    ExpectFailure(box(EFileError::AccessDenied));
    m_Failure = nullptr;

    Listen();
    EXPECT_FALSE(m_Compiler.CompileDatabase(0, m_Scratch.Text("gone/Packed.Gamdb00p"), 0));
    ASSERT_EQ(GetBoxes().size(), 1u);
    EXPECT_TRUE(GetBoxes()[0].ends_with(u"gone/Packed.Gamdb00p"));
    EXPECT_FALSE(m_Scratch.Exists("gone"));
}

TEST_F(CCompileTest, ReadOnlyTargetIsFreedByTheOuterProcedureOnly)
{
    Open();
    ASSERT_TRUE(m_Disk.SetReadOnly(GetTarget(), true).IsOk());
    EXPECT_FALSE(m_Compiler.BuildDatabase(GetTarget(), 0, 0));
    EXPECT_EQ(ReadPacked(), kOldFile);
    EXPECT_EQ(m_Questions.Count(u"Error"), 1u);
    EXPECT_TRUE(Compile());
    EXPECT_NE(ReadPacked(), kOldFile);
}

TEST_F(CCompileTest, DeviceIsNotReplacedByAFile)
{
    const std::filesystem::path pipe = GetPath(kPacked);
    std::filesystem::remove(pipe);
    std::filesystem::create_symlink("/dev/null", pipe);
    EXPECT_FALSE(Compile());
    EXPECT_TRUE(std::filesystem::is_symlink(pipe));
}

TEST_F(CCompileTest, FailedWriteKeepsTheOldFile)
{
    const auto failAt = [this](EFileOperation at)
    {
        m_Failure = [at](EFileOperation operation, std::u16string_view)
        { return operation == at ? EFileError::DiskFull : EFileError::None; };
        ExpectFailure(kNoSave);
        EXPECT_EQ(ReadPacked(), kOldFile);
        m_Failure = nullptr;
    };
    failAt(EFileOperation::CloseStream);
    failAt(EFileOperation::Rename);

    m_Files.SetStreamLimit(10);
    for (const char* mode : {"", "careless"})
    {
        SetCreatorMode(mode);
        ExpectFailure(kNoSave);
        EXPECT_EQ(ReadPacked(), kOldFile);
    }
}
} // namespace
