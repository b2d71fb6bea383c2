#include "file/CorvaneTypeFile.h"

#include "TestAttribute.h"
#include "Unicode.h"
#include "file/ResourcePath.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

TEST(ResourcePath, OnlyWhatLiesBelowTheRootBecomesRelative)
{
    constexpr std::u16string_view kRoot = u"c:\\game\\res\\";
    const std::tuple<std::u16string_view, std::u16string_view, bool, std::u16string_view> rows[] = {
        {u"C:\\GAME\\RES\\a.dds", u"a.dds", false, u"c:\\game\\res\\a.dds"},
        {u"c:/game\\res/b/a.dds", u"b/a.dds", false, u"c:\\game\\res\\b/a.dds"},
        {u"c:\\game\\res\\\\\\a.dds", u"a.dds", false, u"c:\\game\\res\\a.dds"},
        {u"c:\\game\\res\\", u"", false, kRoot},
        {u"c:\\game\\res", u"c:\\game\\res", true, u"c:\\game\\res"},
        {u"c:\\game\\resource\\a", u"c:\\game\\resource\\a", true, u"c:\\game\\resource\\a"},
        {u"\\\\server\\a.dds", u"\\\\server\\a.dds", true, u"\\\\server\\a.dds"},
        {u"\\a.dds", u"\\a.dds", false, u"c:\\game\\res\\\\a.dds"},
    };
    for (const auto& [path, relative, outside, full] : rows)
    {
        EXPECT_EQ(ToResourcePath(kRoot, path), relative) << ToNarrow(path);
        EXPECT_EQ(IsOutsideResources(relative), outside) << ToNarrow(path);
        EXPECT_EQ(ToFullPath(kRoot, relative), full) << ToNarrow(path);
    }
    EXPECT_EQ(ToResourcePath(u"", u"\\a.dds"), u"\\a.dds");
}

TEST(File, DefaultMustNameSomethingThatExists)
{
    CTestAttribute test(u"File", {u"Default=a.dds", u"Data=All Files (*.*)|*.*|;x"});
    EXPECT_EQ(test.Get<CCorvaneTypeFile>().GetFileAttribData()->GetFilter(), u"All Files (*.*)|*.*|;x");
    test.m_Scratch.WriteBytes("Game/Data/A.DDS", "");
    test.m_Questions.Clear();
    ASSERT_TRUE(test.Open());
    EXPECT_EQ(test.GetTitles(), "");
}

// A directory that nobody may write passes, as the rule has it.
TEST(File, ValidateReportsPathsOutsideAndWhatIsNoFile)
{
    CTestAttribute test(u"File", {u"Values=8"});
    test.m_Scratch.WriteBytes("Game/Data/sub/a.dds", "");
    fs::create_directory(test.m_Scratch.GetPath() / "Game/Data/closed");
    fs::permissions(test.m_Scratch.GetPath() / "Game/Data/closed", fs::perms(0555));
    test.m_Scratch.WriteBytes("Elsewhere/b.dds", "");
    const std::string elsewhere = "x:" + (test.m_Scratch.GetPath() / "Elsewhere/b.dds").string();
    test.Set({u"", u"SUB\\a.dds", u"sub", u"closed", u"none.dds", u"\\\\server\\a.dds", u"y:/Elsewhere",
              ToWide(elsewhere)});
    EXPECT_EQ(test.Check(), "1 Invalid Filename 2: The file 'sub' is not a valid file.\n"
                            "1 Invalid Filename 4: The file 'none.dds' is not a valid file.\n"
                            "0 Path Not Relative 5: The path '\\\\server\\a.dds' is not a relative path.\n"
                            "1 Invalid Filename 5: The file '\\\\server\\a.dds' is not a valid file.\n"
                            "0 Path Not Relative 6: The path 'y:/Elsewhere' is not a relative path.\n"
                            "1 Invalid Filename 6: The file 'y:/Elsewhere' is not a valid file.\n"
                            "0 Path Not Relative 7: The path '" +
                                elsewhere + "' is not a relative path.\n");

    // A warning alone is no failure.
    test.Set({u"", u"", u"", u"", u"", u"", u""});
    CRecordingSink sink;
    EXPECT_TRUE(test.Get().Validate(&sink));
    EXPECT_FALSE(sink.m_sLines.empty());
}

TEST(File, ValuesAreStoredBelowTheRootAndOpenedInFull)
{
    for (const std::u16string word : {u"File", u"Sound"})
    {
        CTestAttribute test(word, {u"Values=-1"});
        auto& attrib = test.Get<CCorvaneTypeFile>();
        test.Set({u"", test.m_Scratch.Text("Game/DATA/b/a.dds")});
        EXPECT_EQ(ShowValues(attrib), "|b/a.dds");
        EXPECT_FALSE(attrib.ExecuteValue(0));
        EXPECT_FALSE(attrib.ExecuteValue(1));
        test.m_Services.m_bServe = true;
        EXPECT_TRUE(attrib.ExecuteValue(1));
        const std::u16string call =
            (word == u"File" ? u"open " : u"play ") + test.m_Scratch.Text("Game/Data/b/a.dds");
        EXPECT_EQ(test.m_Services.m_Calls, (std::vector{call, call}));
    }
}
