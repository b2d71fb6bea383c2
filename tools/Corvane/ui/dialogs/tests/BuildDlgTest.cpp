#include "BuildDlg.h"
#include "DatabaseCompiler.h"
#include "DialogDrive.h"
#include "OverrideDlg.h"
#include "QtText.h"
#include "RecentPaths.h"
#include "RunState.h"
#include "TestEditor.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QRadioButton>

namespace
{
class BuildDialogs : public testing::Test
{
protected:
    void SetUp() override
    {
        m_Database.Write("Root.Gamdb00s",
                         "[General]\nVersion=3\nName=Test\nDatabase={11111111-2222-3333-4444-555555555555}\n"
                         "\n[Overrides]\nDatabase=Server.txt\nConstraints=Limits.dat\n");
        ASSERT_TRUE(m_Database.Open());
        m_Database.Get().SetActiveBuild(12);
        m_Database.m_Profile.SetInteger(u"General", u"Warning.Advanced.Settings", 1);
    }
    // The history, each entry followed by a blank.
    std::string GetHistory()
    {
        std::string text;
        const CBuildOptions options(m_Database.Get(), 0, 0, {});
        for (const std::u16string& path : options.GetTargets())
            text += ToQString(path).toStdString() + " ";
        return text;
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
    EXPECT_EQ(GetHistory(), "i C h g f e d b ");
    EXPECT_EQ(CBuildOptions(m_Database.Get(), 0, 0, u"given").m_sTarget, u"i");
    EXPECT_EQ(CBuildOptions(m_Database.Get(), BUILD_USE_TARGET, 0, u"given").m_sTarget, u"given");
}

TEST_F(BuildDialogs, FlagsAndBuildFollowTheSettings)
{
    const auto make = [this](std::uint32_t flags, std::int64_t build)
    {
        const CBuildOptions options(m_Database.Get(), flags, build, {});
        return std::pair(options.m_dwFlags, options.m_nBuild);
    };
    EXPECT_EQ(make(0, kBuildOfSettings), std::pair(8U, 0U)) << "The game's number, and a save.";
    CProfile& profile = m_Database.m_Profile;
    profile.SetInteger(u"Build", u"Default.Game.Build", 0);
    profile.SetInteger(u"Build", u"Force.Save", 0);
    profile.SetInteger(u"Build", u"Display.Modified", 1);
    EXPECT_EQ(make(7 | BUILD_USE_TARGET, kBuildOfSettings), std::pair(7U, 12U));
    m_Database.m_Run.Set(APP_EXPERT);
    EXPECT_EQ(make(0, 5), std::pair(16U, 5U));
}

TEST_F(BuildDialogs, AdvancedGrowsAndOkReadsEverythingBack)
{
    m_Database.m_Run.Set(APP_EXPERT);
    CBuildDlg dialog(m_Editor, COMPILE_SUBMIT, kBuildOfSettings, u"old.Gamdb00p", nullptr);
    m_Editor.m_FileDialogs.m_Answers = {u"/out/New.Gamdb00p"};
    int small = 0;
    const int result = RunModal(
        dialog,
        [&]
        {
            small = dialog.height();
            Press(dialog, "Advanced");
            EXPECT_EQ(GetChild<QAbstractButton>(dialog, "Advanced").text(), QStringLiteral("< &Hide"));
            EXPECT_GT(dialog.sizeHint().height(), small);
            Press(dialog, "BrowseTarget");
            for (const char* name : {"Server", "Submit", "DisplayModified"})
                Press(dialog, name);
            EXPECT_EQ(GetChild<QLabel>(dialog, "ActiveBuild").text(), QStringLiteral("12"));
            GetChild<QLineEdit>(dialog, "CompileBuild").setText(QStringLiteral("33"));
            Press(dialog, "Ok");
        });
    EXPECT_EQ(result, QDialog::Accepted);
    EXPECT_EQ(dialog.GetFlags(), COMPILE_SERVER | COMPILE_SAVE | COMPILE_SHOW_MODIFIED);
    EXPECT_EQ(dialog.GetBuild(), 33U);
    EXPECT_EQ(dialog.GetTarget(), u"/out/New.Gamdb00p");
    EXPECT_EQ(m_Editor.m_FileDialogs.m_Asked[0].m_sPath, u"old.Gamdb00p");
    EXPECT_EQ(m_Editor.m_FileDialogs.m_Asked[0].m_sFilter,
              u"Game Database Packed Files (*.Gamdb00p)|*.Gamdb00p|All Files (*.*)|*.*|");
    EXPECT_EQ(m_Database.m_Profile.GetInteger(u"Build", u"Display.Modified", 0), 1);
    EXPECT_EQ(GetHistory(), "/out/New.Gamdb00p ");
}

TEST_F(BuildDialogs, OverrideDialogStaysOpenUntilBothPathsCanBeTargets)
{
    COverrideDlg dialog(m_Editor, nullptr);
    EXPECT_NE(dialog.GetPaths().m_sDatabase.find(u"Server.txt"), std::u16string::npos);
    const std::u16string good = m_Database.GetText("Over.txt");
    m_Editor.m_FileDialogs.m_Answers = {m_Database.GetText("no/such/Limits.dat")};
    const int result = RunModal(dialog,
                                [&]
                                {
                                    GetChild<QComboBox>(dialog, "Database").setEditText(ToQString(good));
                                    Press(dialog, "BrowseConstraints");
                                    Press(dialog, "Ok");
                                    EXPECT_TRUE(dialog.isVisible());
                                    EXPECT_EQ(m_Database.GetTitles(), "Invalid Constraints Path;");
                                    GetChild<QComboBox>(dialog, "Constraints").setEditText(ToQString(good));
                                    Press(dialog, "Ok");
                                });
    EXPECT_EQ(result, QDialog::Accepted);
    EXPECT_EQ(dialog.GetPaths().m_sConstraints, good);
    EXPECT_EQ(GetChild<QComboBox>(COverrideDlg(m_Editor, nullptr), "Database").itemText(0), ToQString(good));
}
