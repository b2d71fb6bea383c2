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

struct SBadCreator
{
    const char* m_sMode;
    std::string_view m_sLibrary;
    std::u16string m_sBox;
    std::vector<int> m_Events;
};

class CBadCreatorTest : public CCompileFixture, public ::testing::WithParamInterface<SBadCreator>
{
};

TEST_P(CBadCreatorTest, EndsInTheWordsAndKeepsTheOldFile)
{
    SetCreatorMode(GetParam().m_sMode);
    WriteLocator(GetParam().m_sLibrary);
    EXPECT_FALSE(Compile());
    EXPECT_EQ(GetBoxes(), std::vector<std::u16string>{GetParam().m_sBox});
    EXPECT_EQ(m_Events, GetParam().m_Events);
    EXPECT_EQ(ReadPacked(), kOldFile);
    EXPECT_TRUE(IsClean());
    EXPECT_TRUE(m_pManager->GetCompiledRecords().IsEmpty());

    // The next compile of a creator that behaves finds everything released.
    if (GetParam().m_sLibrary == kRecordingCreator)
    {
        SetCreatorMode("");
        EXPECT_TRUE(Compile());
        EXPECT_TRUE(ReadPacked().starts_with("database 1\n")) << ReadPacked().substr(0, 12);
    }
}

const std::vector<int> kNone;
const std::vector<int> kInCategories{8, 20, -9};
const std::vector<int> kInRecords{8, 20, 21, 22, -9};
const std::vector<int> kInAttributes{8, 20, 21, 22, 23, 24, -9};
const std::vector<int> kInSave{8, 20, 21, 22, 23, 24, 25, -9};

INSTANTIATE_TEST_SUITE_P(
    Creators, CBadCreatorTest,
    ::testing::Values(SBadCreator{"", "Missing.dll", kNoLibrary, kNone},
                      SBadCreator{"", kEmptyCreator, kNoLibrary, kNone},
                      SBadCreator{"null", kRecordingCreator, kNoLibrary, kNone},
                      SBadCreator{"throw-export", kRecordingCreator, kNoLibrary, kNone},
                      SBadCreator{"refuse-database", kRecordingCreator, kNoDatabase, {-9}},
                      SBadCreator{"throw-database", kRecordingCreator, kNoDatabase, {-9}},
                      SBadCreator{"refuse-category", kRecordingCreator, kNoCategory, kInCategories},
                      SBadCreator{"throw-category", kRecordingCreator, kNoCategory, kInCategories},
                      SBadCreator{"refuse-record", kRecordingCreator, kNoRecord, kInRecords},
                      SBadCreator{"throw-record", kRecordingCreator, kNoRecord, kInRecords},
                      SBadCreator{"refuse-attribute", kRecordingCreator, kNoAttribute, kInAttributes},
                      SBadCreator{"throw-attribute", kRecordingCreator, kNoAttribute, kInAttributes},
                      SBadCreator{"throw-value", kRecordingCreator, kNoAttribute, kInAttributes},
                      SBadCreator{"refuse-save", kRecordingCreator, kNoSave, kInSave},
                      SBadCreator{"throw-save", kRecordingCreator, kNoSave, kInSave}),
    [](const ::testing::TestParamInfo<SBadCreator>& row)
    {
        std::string name = row.param.m_sMode + std::to_string(row.index);
        std::replace(name.begin(), name.end(), '-', '_');
        return name;
    });

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
    void SetUp() override
    {
        CCompileFixture::SetUp();
        AddVehicle("Land/Car", "900", "<none>");
    }
    void ShowFindings(const CValidateCore&, bool modal) override { m_Shown.push_back(modal); }

    CDatabaseCompiler m_Asking{*m_pManager, this};
    std::vector<bool> m_Shown;
};

TEST_F(CFindingsTest, SilentRunGoesOnWithStatusOne)
{
    m_Run.m_bSilent = true;
    EXPECT_TRUE(Compile());
    EXPECT_EQ(m_Run.m_nExitStatus, kExitCriticalFindings);
    EXPECT_TRUE(GetBoxes().empty());
    EXPECT_NE(ReadPacked(), kOldFile);
}

TEST_F(CFindingsTest, LocalCompileAsksWhetherToGoOn)
{
    Open();
    for (const EAnswer goOn : {EAnswer::No, EAnswer::Yes})
    {
        Listen();
        m_Shown.clear();
        m_Questions.Prepare(u"Compile Error", {goOn});
        m_Questions.Prepare(u"Continue Build?", {goOn});
        const bool built = m_Asking.CompileDatabase(0, GetTarget(), 0);
        EXPECT_EQ(built, goOn == EAnswer::Yes);
        EXPECT_EQ(GetBoxes(),
                  (std::vector<std::u16string>{
                      u"Compile Error: Critical errors have been detected within the database.  All critical "
                      u"errors "
                      u"should be resolved prior to performing a database compile.\n\nWould you like to see "
                      u"a list of "
                      u"these errors?",
                      u"Continue Build?: Would you like to continue building the database anyway?"}));
        EXPECT_EQ(m_Shown, built ? std::vector<bool>{true} : std::vector<bool>{});
        EXPECT_EQ(m_Events.empty(), !built);
    }
    EXPECT_EQ(m_Run.m_nExitStatus, kExitOk);
}

TEST_F(CFindingsTest, ServerCompileEnds)
{
    Open();
    Listen();
    m_Questions.Prepare(u"Compile Error", {EAnswer::Yes});
    EXPECT_FALSE(m_Asking.CompileDatabase(COMPILE_SERVER, GetTarget(), 0));
    EXPECT_EQ(GetBoxes(),
              std::vector<std::u16string>{
                  u"Compile Error: Critical errors have been detected within the database.  All critical "
                  u"errors must be resolved prior to performing a database compile.  The compile process "
                  u"has been aborted.\n\nWould you like to see a list of these errors?"});
    EXPECT_EQ(m_Shown, std::vector<bool>{false});
    EXPECT_TRUE(m_Events.empty());
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
