#include "BuildDlg.h"
#include "DatabaseCompiler.h"
#include "DialogDrive.h"
#include "OverrideDlg.h"
#include "QtText.h"
#include "RunState.h"
#include "TestEditor.h"

#include <QComboBox>

namespace
{
class BuildDialogs : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_Database.Open());
        m_Database.Get().SetActiveBuild(12);
        m_Database.m_Profile.SetInteger(u"General", u"Warning.Advanced.Settings", 1);
    }

    CTestDatabase m_Database;
    CTestEditor m_Editor{m_Database};
};
} // namespace

TEST_F(BuildDialogs, HistoryKeepsEightNewestFirstWithoutRegardToCase)
{
    for (const char16_t* target : {u"a", u"b", u"c", u"d", u"e", u"f", u"g", u"h", u"C", u"i"})
    {
        CBuildOptions options(m_Database.Get(), 0, 0, {});
        options.m_sTarget = target;
        options.Accept();
    }
    const CBuildOptions options(m_Database.Get(), BUILD_USE_TARGET, 0, u"given");
    EXPECT_EQ(options.GetTargets(),
              (std::vector<std::u16string>{u"i", u"C", u"h", u"g", u"f", u"e", u"d", u"b"}));
    EXPECT_EQ(options.m_sTarget, u"given");
    EXPECT_EQ(CBuildOptions(m_Database.Get(), 0, 0, u"given").m_sTarget, u"i");
}

TEST_F(BuildDialogs, FlagsAndBuildFollowTheSettings)
{
    const auto make = [this](std::uint32_t flags, std::int64_t build)
    {
        const CBuildOptions options(m_Database.Get(), flags, build, {});
        return std::pair(options.m_dwFlags, options.m_nBuild);
    };
    EXPECT_EQ(make(0, kBuildOfSettings), std::pair(8U, 0U)) << "The game's number, and a save.";
    for (const auto& [key, value] :
         {std::pair(u"Default.Game.Build", 0), {u"Force.Save", 0}, {u"Display.Modified", 1}})
        m_Database.m_Profile.SetInteger(u"Build", key, value);
    EXPECT_EQ(make(7 | BUILD_USE_TARGET, kBuildOfSettings), std::pair(7U, 12U));
    m_Database.m_Run.Set(APP_EXPERT);
    EXPECT_EQ(make(0, 5), std::pair(16U, 5U));
}

TEST_F(BuildDialogs, AdvancedGrowsAndOkReadsEverythingBack)
{
    m_Database.m_Run.Set(APP_EXPERT);
    CBuildDlg dialog(m_Editor, COMPILE_SUBMIT, kBuildOfSettings, u"old.Gamdb00p", nullptr);
    m_Editor.m_FileDialogs.m_Answers = {u"/out/New.Gamdb00p"};
    const auto user = [&]
    {
        const int small = dialog.sizeHint().height();
        Press(dialog, "Advanced");
        EXPECT_GT(dialog.sizeHint().height(), small);
        for (const char* name : {"BrowseTarget", "Server", "Submit", "DisplayModified"})
            Press(dialog, name);
        GetChild<QLineEdit>(dialog, "CompileBuild").setText(QStringLiteral("33"));
        Press(dialog, "Ok");
    };
    EXPECT_EQ(RunModal(dialog, user), QDialog::Accepted);
    EXPECT_EQ(dialog.GetFlags(), COMPILE_SERVER | COMPILE_SAVE | COMPILE_SHOW_MODIFIED);
    EXPECT_EQ(dialog.GetBuild(), 33U);
    EXPECT_EQ(dialog.GetTarget(), u"/out/New.Gamdb00p");
    EXPECT_EQ(m_Editor.m_FileDialogs.m_Asked[0].m_sPath, u"old.Gamdb00p");
    EXPECT_EQ(m_Database.m_Profile.GetInteger(u"Build", u"Display.Modified", 0), 1);
}

TEST_F(BuildDialogs, OverrideDialogStaysOpenUntilBothPathsCanBeTargets)
{
    COverrideDlg dialog(m_Editor, nullptr);
    const std::u16string good = m_Database.GetText("Over.txt");
    m_Editor.m_FileDialogs.m_Answers = {m_Database.GetText("no/such/Limits.dat")};
    const auto user = [&]
    {
        GetChild<QComboBox>(dialog, "Database").setEditText(ToQString(good));
        Press(dialog, "BrowseConstraints");
        Press(dialog, "Ok");
        EXPECT_EQ(m_Database.GetTitles(), "Invalid Constraints Path;");
        GetChild<QComboBox>(dialog, "Constraints").setEditText(ToQString(good));
        Press(dialog, "Ok");
    };
    EXPECT_EQ(RunModal(dialog, user), QDialog::Accepted);
    EXPECT_EQ(GetChild<QComboBox>(COverrideDlg(m_Editor, nullptr), "Database").itemText(0), ToQString(good));
}
