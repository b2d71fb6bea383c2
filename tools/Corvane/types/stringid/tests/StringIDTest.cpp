#include "stringid/CorvaneTypeStringID.h"

#include "TestAttribute.h"
#include "Unicode.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace
{
constexpr const char* kMissingLibrary = "skipped GlossarRuntime.dll;";

class CStringIDTest : public testing::Test
{
protected:
    CStringIDTest()
    {
        m_Test.AddSchema("S", "[Attrib.A.0]\nType=StringID\nValues=-1\nDefault=IDS_MENU\n");
        m_Test.AddCategory("All", "S");
        m_Test.AddRecord("All/R", "S");
        SetStringDatabase("StringDatabase=Text/Strings.mo\n");
    }
    ~CStringIDTest() override { ::unsetenv("CORVANE_TEST_GLOSSAR"); }

    void SetStringDatabase(const std::string& key)
    {
        m_Test.Write("Root.Gamdb00s", "[General]\nDatabase={11111111-2222-3333-4444-555555555555}\n" + key);
    }
    void Copy(const std::string& from, const fs::path& to)
    {
        fs::create_directories(to.parent_path());
        fs::copy_file(from, to, fs::copy_options::overwrite_existing);
    }
    void InstallLibrary(const char* file)
    {
        Copy(file, m_Test.m_Scratch.GetPath() / "modules/libGlossarRuntime.so");
    }
    void InstallTable() { Copy(GLOSSAR_CATALOGUE, m_Test.GetPath("Text/Strings.mo")); }

    // What a validation finds and then the titles of what it told; "skipped " for a check that did not run.
    std::string Validate()
    {
        m_Test.m_Questions.Clear();
        CRecordingSink sink;
        const bool checked = m_Test.Attrib("All/R", "A").Validate(&sink);
        return (checked ? "" : "skipped ") + sink.m_sErrors + m_Test.GetTitles();
    }

    CTestDatabase m_Test;
};
} // namespace

TEST_F(CStringIDTest, TellsEachIdentifierThatTheTableLacks)
{
    InstallTable();
    // Beside the table it goes before the module directory, where no library is.
    Copy(GLOSSAR_LIBRARY, m_Test.GetPath("Text/libGlossarRuntime.so"));
    InstallLibrary(GLOSSAR_CATALOGUE);
    ASSERT_TRUE(m_Test.Open());
    CCorvaneType& attrib = m_Test.Attrib("All/R", "A");
    for (const std::u16string_view value : {u"<None>", u"IDS_menu", u"", u"IDS_GR\u00d6SSE", u"IDS_COINS"})
        ASSERT_TRUE(attrib.AddValue(value));
    EXPECT_EQ(Validate(), "0 Invalid String ID 2: Invalid StringID 'IDS_menu'\n"
                          "0 Invalid String ID 3: Invalid StringID ''\n"
                          "0 Invalid String ID 5: Invalid StringID 'IDS_COINS'\n");
}

TEST_F(CStringIDTest, AMissingLibraryIsToldOnceForEachLoad)
{
    ASSERT_TRUE(m_Test.Open());
    EXPECT_EQ(Validate(), kMissingLibrary);
    EXPECT_EQ(m_Test.GetQuestion("GlossarRuntime.dll"), "Failed to locate 'GlossarRuntime.dll'.");
    EXPECT_EQ(Validate(), "skipped ");
    ASSERT_TRUE(m_Test.Open());
    EXPECT_EQ(Validate(), kMissingLibrary);

    SetStringDatabase("");
    ASSERT_TRUE(m_Test.Open());
    EXPECT_EQ(Validate(), "skipped ") << "A database without a string table has nothing to look up.";
}

TEST_F(CStringIDTest, AMissingTableIsToldEachTimeAndABadOneOnce)
{
    InstallLibrary(GLOSSAR_LIBRARY);
    ASSERT_TRUE(m_Test.Open());
    const std::string path = m_Test.GetPath("Text/Strings.mo").string();
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(Validate(), "skipped File Not Found;");
    EXPECT_EQ(m_Test.GetQuestion("File Not Found"),
              "The following packed string keeper database file was not found:\n\n" + path);

    m_Test.WriteBytes("Text/Strings.mo", "no catalogue");
    EXPECT_EQ(Validate(), "skipped Invalid String Keeper Object;");
    EXPECT_EQ(m_Test.GetQuestion("Invalid String Keeper Object"),
              "Failed to create string keeper object from the folowing file.\n\n" + path);
    EXPECT_EQ(Validate(), "skipped ");

    m_Test.m_Failure = [](EFileOperation operation, std::u16string_view file)
    {
        const bool isTable = operation == EFileOperation::ReadFile && file.ends_with(u"Strings.mo");
        return isTable ? EFileError::AccessDenied : EFileError::None;
    };
    ASSERT_TRUE(m_Test.Open());
    EXPECT_EQ(Validate(), "skipped Failed to open packed string keeper database;");
    EXPECT_EQ(m_Test.GetQuestion("Failed to open packed string keeper database"),
              "Failed to open the following packed string database.\n\n" + path);
    EXPECT_EQ(Validate(), "skipped ");
}

TEST_F(CStringIDTest, AMisbehavingLibraryEndsInTheSameWords)
{
    InstallTable();
    struct SRow
    {
        const char* library;
        const char* mode;
        std::string told;
    };
    const std::string missing = kMissingLibrary;
    const std::string invalid = "skipped Invalid String Keeper Object;";
    for (const SRow& row :
         {SRow{ENGINE_TEST_MODULE, "", missing}, SRow{GLOSSAR_TEST_MODULE, "null", missing},
          SRow{GLOSSAR_TEST_MODULE, "throw", missing}, SRow{GLOSSAR_TEST_MODULE, "refuse", invalid},
          SRow{GLOSSAR_TEST_MODULE, "throw open", invalid},
          SRow{GLOSSAR_TEST_MODULE, "throw later", "0 Invalid String ID 0: Invalid StringID 'IDS_MENU'\n"}})
    {
        ::setenv("CORVANE_TEST_GLOSSAR", row.mode, 1);
        fs::remove_all(m_Test.m_Scratch.GetPath() / "modules");
        InstallLibrary(row.library);
        ASSERT_TRUE(m_Test.Open());
        EXPECT_EQ(Validate(), row.told) << row.mode;
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
    auto gone = std::make_unique<CCorvaneMgr>(m_Test.Get().GetContext(), m_Test.m_Types, m_Test.m_AttribData,
                                              m_Test.m_Gate, m_Test.m_Undo);
    ASSERT_TRUE(gone->OpenDatabase(m_Test.GetText("Root.Gamdb00s")));
    ASSERT_TRUE(m_Test.Open());
    EXPECT_EQ(Validate() + Validate(), "");
    EXPECT_EQ(countOpen(), 1);
    CRecordingSink sink;
    CCorvaneRecord* record = gone->FindRecord(u"All/R", nullptr);
    EXPECT_TRUE(record->GetAttributeList()[0]->Validate(&sink));
    EXPECT_EQ(countOpen(), 2);
    ASSERT_TRUE(gone->CloseDatabase());
    gone.reset();
    EXPECT_EQ(countOpen(), 1);
    ASSERT_TRUE(m_Test.Open());
    EXPECT_EQ(countOpen(), 0);
}

TEST(StringID, NoneStandsForNoIdentifier)
{
    CTestAttribute test(u"StringID", {u"Values=-1", u"Unicode=True"});
    EXPECT_EQ(test.GetTemplate().GetValue(0), u"<none>");
    ASSERT_TRUE(test.Get().SetValue(0, u"IDS_\u00c4"));
    ASSERT_TRUE(test.Get().AddValue(u"<NONE>"));
    EXPECT_EQ(test.GetDependencies(), "All/One IDS_\xC3\x84 StringID\n");
    EXPECT_EQ(test.GetOutputs(), "CreateAttribute 7 Value 5 0 2\n"
                                 "SetWideText 42 0 IDS_\xC3\x84\nSetWideText 42 1 <NONE>\n"
                                 "CreateAttribute 9  4 Value  StringID 1 -1\n"
                                 "SetText 42 IDS_\xC3\x84\nSetText 42 <NONE>\n");
}
