#include "stringid/CorvaneTypeStringID.h"

#include "TestAttribute.h"
#include "Unicode.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace
{
constexpr const char* kMissingLibrary = "skipped GlossarRuntime.dll;";
constexpr const char* kInvalidKeeper = "skipped Invalid String Keeper Object;";

class CStringIDTest : public testing::Test
{
protected:
    CStringIDTest() { SetStringDatabase("StringDatabase=Text/Strings.mo\n"); }
    ~CStringIDTest() override { ::unsetenv("CORVANE_TEST_GLOSSAR"); }

    void SetStringDatabase(const std::string& key)
    {
        m_Test.Write("Root.Gamdb00s", "[General]\nDatabase={11111111-2222-3333-4444-555555555555}\n" + key);
    }
    void Install(const char* from, const char* to)
    {
        const fs::path target = m_Test.m_Scratch.GetPath() / to;
        fs::create_directories(target.parent_path());
        fs::remove(target); // A module that is loaded must not be written over.
        fs::copy_file(from, target);
    }
    void InstallLibrary(const char* from) { Install(from, "modules/libGlossarRuntime.so"); }
    void InstallTable() { Install(GLOSSAR_CATALOGUE, "Game/Database/Text/Strings.mo"); }

    // What a validation finds and then the titles of what it told; "skipped " for a check that did not run.
    std::string Validate()
    {
        m_Test.m_Questions.Clear();
        CRecordingSink sink;
        const bool checked = m_Test.Get().Validate(&sink);
        return (checked ? "" : "skipped ") + sink.m_sLines + m_Test.GetTitles();
    }
    std::string LoadAndValidate()
    {
        EXPECT_TRUE(m_Test.Open());
        return Validate();
    }

    CTestAttribute m_Test{u"StringID", {u"Values=-1", u"Default=IDS_MENU"}};
};
} // namespace

TEST_F(CStringIDTest, TellsEachIdentifierThatTheTableLacks)
{
    InstallTable();
    // Beside the table it goes before the module directory, where no library is.
    Install(GLOSSAR_LIBRARY, "Game/Database/Text/libGlossarRuntime.so");
    InstallLibrary(GLOSSAR_CATALOGUE);
    ASSERT_TRUE(m_Test.Open());
    m_Test.Set({u"IDS_MENU", u"<None>", u"IDS_menu", u"", u"IDS_GR\u00d6SSE", u"IDS_COINS"});
    EXPECT_EQ(Validate(), "0 Invalid String ID 2: Invalid StringID 'IDS_menu'\n"
                          "0 Invalid String ID 3: Invalid StringID ''\n"
                          "0 Invalid String ID 5: Invalid StringID 'IDS_COINS'\n");
}

TEST_F(CStringIDTest, AMissingLibraryIsToldOnceForEachLoad)
{
    for (int i = 0; i < 2; ++i)
    {
        EXPECT_EQ(LoadAndValidate(), kMissingLibrary);
        EXPECT_EQ(m_Test.GetQuestion("GlossarRuntime.dll"), "Failed to locate 'GlossarRuntime.dll'.");
        EXPECT_EQ(Validate(), "skipped ");
    }
    SetStringDatabase("");
    EXPECT_EQ(LoadAndValidate(), "skipped ") << "A database without a string table has nothing to look up.";
}

TEST_F(CStringIDTest, AMissingTableIsToldEachTimeAndABadOneOnce)
{
    InstallLibrary(GLOSSAR_LIBRARY);
    const auto check = [&](const char* title, const std::string& text, const char* again)
    {
        EXPECT_EQ(Validate(), std::string("skipped ") + title + ';');
        EXPECT_EQ(m_Test.GetQuestion(title), text + "\n\n" + m_Test.GetPath("Text/Strings.mo").string());
        EXPECT_EQ(Validate(), again);
    };
    ASSERT_TRUE(m_Test.Open());
    check("File Not Found",
          "The following packed string keeper database file was not found:", "skipped File Not Found;");
    m_Test.WriteBytes("Text/Strings.mo", "no catalogue");
    check("Invalid String Keeper Object", "Failed to create string keeper object from the folowing file.",
          "skipped ");
    m_Test.m_Failure = [](EFileOperation operation, std::u16string_view file)
    {
        const bool isTable = operation == EFileOperation::ReadFile && file.ends_with(u"Strings.mo");
        return isTable ? EFileError::AccessDenied : EFileError::None;
    };
    ASSERT_TRUE(m_Test.Open());
    check("Failed to open packed string keeper database",
          "Failed to open the following packed string database.", "skipped ");
}

TEST_F(CStringIDTest, AMisbehavingLibraryEndsInTheSameWords)
{
    InstallTable();
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {ENGINE_TEST_MODULE, "", kMissingLibrary},
        {GLOSSAR_TEST_MODULE, "null", kMissingLibrary},
        {GLOSSAR_TEST_MODULE, "throw", kMissingLibrary},
        {GLOSSAR_TEST_MODULE, "refuse", kInvalidKeeper},
        {GLOSSAR_TEST_MODULE, "throw open", kInvalidKeeper},
        {GLOSSAR_TEST_MODULE, "throw later", "0 Invalid String ID 0: Invalid StringID 'IDS_MENU'\n"}};
    for (const auto& [library, mode, told] : rows)
    {
        ::setenv("CORVANE_TEST_GLOSSAR", mode, 1);
        InstallLibrary(library);
        EXPECT_EQ(LoadAndValidate(), told) << mode;
    }
}

TEST_F(CStringIDTest, TheTableIsOpenFromItsFirstUseToTheNextLoadOrTheEnd)
{
    InstallTable();
    InstallLibrary(GLOSSAR_TEST_MODULE);
    const auto countOpen = [&]
    {
        std::u16string error;
        const CModule module = m_Test.m_Modules.Load(u"GlossarRuntime.dll", error);
        return module.FindFunction<int (*)()>("GetOpenCount")();
    };
    CCorvaneMgr& manager = m_Test.CTestDatabase::Get();
    auto gone = std::make_unique<CCorvaneMgr>(manager.GetContext(), m_Test.m_Types, m_Test.m_AttribData,
                                              m_Test.m_Gate, m_Test.m_Undo);
    ASSERT_TRUE(gone->OpenDatabase(m_Test.GetText("Root.Gamdb00s")));
    EXPECT_EQ(LoadAndValidate(), "");
    EXPECT_EQ(Validate(), "");
    EXPECT_EQ(countOpen(), 1);
    CRecordingSink sink;
    EXPECT_TRUE(gone->FindRecord(u"All/One", nullptr)->GetAttributeList()[0]->Validate(&sink));
    EXPECT_EQ(countOpen(), 2);
    ASSERT_TRUE(gone->CloseDatabase());
    gone.reset();
    EXPECT_EQ(countOpen(), 1);
    ASSERT_TRUE(m_Test.Open());
    EXPECT_EQ(countOpen(), 0);
}
