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
        {u"c:\\game\\res\\a.dds", u"a.dds", false, u"c:\\game\\res\\a.dds"},
        {u"C:\\GAME\\RES\\a.dds", u"a.dds", false, u"c:\\game\\res\\a.dds"},
        {u"c:/game\\res/b/a.dds", u"b/a.dds", false, u"c:\\game\\res\\b/a.dds"},
        {u"c:\\game\\res\\\\\\a.dds", u"a.dds", false, u"c:\\game\\res\\a.dds"},
        {u"c:\\game\\res\\", u"", false, kRoot},
        {u"c:\\game\\res", u"c:\\game\\res", true, u"c:\\game\\res"},
        {u"c:\\game\\resource\\a", u"c:\\game\\resource\\a", true, u"c:\\game\\resource\\a"},
        {u"\\\\server\\a.dds", u"\\\\server\\a.dds", true, u"\\\\server\\a.dds"},
        {u"\\a.dds", u"\\a.dds", false, u"c:\\game\\res\\\\a.dds"},
        {u"a.dds", u"a.dds", false, u"c:\\game\\res\\a.dds"},
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
    CTestAttribute empty(u"File", {});
    EXPECT_EQ(empty.GetDefaultMessages(), std::vector<std::u16string>());

    CTestAttribute test(u"File", {u"Default=a.dds", u"Data=All Files (*.*)|*.*|;x"});
    const std::u16string told =
        u"The attribute 'Value' of schema 'Thing' contains an invalid default filename of 'a.dds'.";
    EXPECT_EQ(test.GetDefaultMessages(), std::vector{told});
    EXPECT_EQ(test.Get().GetValue(0), u"a.dds");
    EXPECT_EQ(test.Get<CCorvaneTypeFile>().GetFileAttribData()->GetFilter(), u"All Files (*.*)|*.*|;x");
    test.m_Scratch.WriteBytes("Game/Data/A.DDS", "");
    ASSERT_TRUE(test.Open());
    EXPECT_EQ(test.GetDefaultMessages(), std::vector{told});
}

TEST(File, ValuesAreStoredBelowTheRoot)
{
    CTestAttribute test(u"File", {u"Values=-1"});
    const std::u16string full = test.m_Scratch.Text("Game/DATA/b/a.dds");
    EXPECT_TRUE(test.Get().SetValue(0, full));
    EXPECT_TRUE(test.Get().AddValue(full));
    EXPECT_TRUE(test.Get().AddValue(u"D:\\a.dds"));
    EXPECT_EQ(test.Get().GetValue(0), u"b/a.dds");
    EXPECT_EQ(test.Get().GetValue(1), u"b/a.dds");
    EXPECT_EQ(test.Get().GetValue(2), u"D:\\a.dds");
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
    EXPECT_EQ(test.Check({u"", u"SUB\\a.dds", u"sub", u"closed", u"none.dds", u"\\\\server\\a.dds",
                          u"y:/Elsewhere", ToWide(elsewhere)}),
              "1 Invalid Filename 2: The file 'sub' is not a valid file.\n"
              "1 Invalid Filename 4: The file 'none.dds' is not a valid file.\n"
              "0 Path Not Relative 5: The path '\\\\server\\a.dds' is not a relative path.\n"
              "1 Invalid Filename 5: The file '\\\\server\\a.dds' is not a valid file.\n"
              "0 Path Not Relative 6: The path 'y:/Elsewhere' is not a relative path.\n"
              "1 Invalid Filename 6: The file 'y:/Elsewhere' is not a valid file.\n"
              "0 Path Not Relative 7: The path '" +
                  elsewhere + "' is not a relative path.\n");

    // A warning alone is no failure.
    CTestAttribute warned(u"File", {});
    ASSERT_TRUE(warned.Get().SetValue(0, ToWide(elsewhere)));
    CRecordingSink sink;
    EXPECT_TRUE(warned.Get().Validate(&sink));
    EXPECT_FALSE(sink.m_sErrors.empty());
}

TEST(File, OutputsCarryTheKindOfAFile)
{
    CTestAttribute test(u"File", {u"Values=2", u"Data=f|*.f|"});
    ASSERT_TRUE(test.Get().SetValue(1, u"b/ä.dds"));
    EXPECT_EQ(test.GetOutputs(),
              "CreateAttribute 7 Value 4 1 2\nSetText 42 0 \nSetText 42 1 b/ä.dds\n"
              "CreateAttribute 9  4 Value f|*.f| File 1 2\nSetText 42 \nSetText 42 b/ä.dds\n");
    EXPECT_EQ(test.GetDependencies(), "All/One b/ä.dds File\n");
    CTestAttribute wide(u"File", {u"Unicode=True"});
    EXPECT_EQ(wide.GetOutputs(), "CreateAttribute 7 Value 5 1 1\nSetWideText 42 0 \n"
                                 "CreateAttribute 9  4 Value  File 1 1\nSetText 42 \n");
}

TEST(File, ExecuteOpensTheFullPath)
{
    CTestAttribute test(u"File", {u"Values=2"});
    auto& attrib = test.Get<CCorvaneTypeFile>();
    ASSERT_TRUE(attrib.SetValue(1, u"b/a.dds"));
    EXPECT_FALSE(attrib.ExecuteValue(0));
    EXPECT_FALSE(attrib.ExecuteValue(1));
    test.m_Services.m_bServe = true;
    EXPECT_TRUE(attrib.ExecuteValue(1));
    const std::u16string call = u"open " + test.m_Scratch.Text("Game/Data/b/a.dds");
    EXPECT_EQ(test.m_Services.m_Calls, (std::vector{call, call}));
}
