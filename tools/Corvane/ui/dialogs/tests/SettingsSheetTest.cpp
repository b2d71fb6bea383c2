#include "SettingsSheet.h"
#include "DialogDrive.h"
#include "NextDialog.h"
#include "TestEditor.h"

#include <QCheckBox>
#include <QTest>
#include <tuple>

namespace
{
class SettingsSheet : public testing::Test
{
protected:
    SettingsSheet()
    {
        // As the program does when it is told.
        m_Handle = m_Database.m_Run.m_Settings.Add(
            [this](ESettingsEvent event, std::u16string_view)
            {
                m_Told += std::to_string(static_cast<int>(event));
                if (event == ESettingsEvent::Build)
                {
                    m_Database.m_Run.Set(APP_EXPERT, Get(u"Build", u"User.Interface") == 1);
                    m_Database.Get().ChooseActiveBuild();
                }
                return 0;
            });
    }
    [[nodiscard]] std::int32_t Get(std::u16string_view section, std::u16string_view key) const
    {
        return m_Database.m_Profile.GetInteger(section, key, -1);
    }
    void SetExpert()
    {
        m_Database.m_Run.Set(APP_EXPERT);
        m_Database.m_Profile.SetInteger(u"Build", u"User.Interface", 1);
    }

    CTestDatabase m_Database;
    CTestEditor m_Editor{m_Database};
    std::string m_Told;
    CObserverHandle m_Handle;
};
} // namespace

TEST_F(SettingsSheet, EverySwitchHasItsKeyAndItsDefault)
{
    const std::tuple<const char*, std::u16string_view, std::u16string_view, bool> rows[] = {
        {"OpenLast", u"General", u"OpenLast", true},
        {"Expand", u"General", u"Expand", true},
        {"SingleClickActivate", u"Tree Control", u"Single.Click.Activate", true},
        {"SingleClickExpand", u"Tree Control", u"Single.Click.Expand", false},
        {"TrackSelect", u"Tree Control", u"Track.Select", false},
        {"DefaultGameBuild", u"Build", u"Default.Game.Build", true},
        {"ForceSave", u"Build", u"Force.Save", true},
        {"DisplayModified", u"Build", u"Display.Modified", false},
        {"NoWarning", u"General", u"Warning.Advanced.Settings", false},
    };
    CSettingsSheet sheet(m_Editor, nullptr);
    EXPECT_FALSE(GetChild<QWidget>(sheet, "Apply").isEnabled());
    EXPECT_FALSE(GetChild<QWidget>(sheet, "SettingsDatabaseDlg").isEnabled()) << "no database is open";
    for (const auto& [name, section, key, on] : rows)
    {
        EXPECT_EQ(GetChild<QCheckBox>(sheet, name).isChecked(), on) << name;
        EXPECT_EQ(Get(section, key), -1);
        GetChild<QCheckBox>(sheet, name).click();
    }
    GetChild<QCheckBox>(sheet, "Reactivate").click();
    GetChild<QAbstractButton>(sheet, "Apply").click();
    for (const auto& [name, section, key, on] : rows)
        EXPECT_EQ(Get(section, key), on ? 0 : 1) << name;
    EXPECT_EQ(Get(u"Source Control", u"Synchronize.Dialog.Ask"), 0);
    EXPECT_EQ(Get(u"Source Control", u"WorkOffline.Dialog.ForceAsk"), 1);
    EXPECT_FALSE(GetChild<QCheckBox>(sheet, "Reactivate").isChecked()) << "it is no setting";
    EXPECT_EQ(m_Told, "112") << "each page tells once";
    EXPECT_FALSE(GetChild<QWidget>(sheet, "Apply").isEnabled());
    sheet.accept();
    EXPECT_EQ(m_Told, "112") << "nothing was changed since";
}

TEST_F(SettingsSheet, TheBuildIsTheUsersInExpertModeOnly)
{
    ASSERT_TRUE(m_Database.Open());
    {
        const CSettingsSheet sheet(m_Editor, nullptr);
        EXPECT_TRUE(GetChild<QCheckBox>(sheet, "UseGameBuild").isChecked());
        EXPECT_FALSE(GetChild<QWidget>(sheet, "ActiveBuild").isEnabled());
        EXPECT_FALSE(GetChild<QWidget>(sheet, "GameBuild").isEnabled());
    }
    SetExpert();
    CSettingsSheet sheet(m_Editor, nullptr);
    auto& active = GetChild<QLineEdit>(sheet, "ActiveBuild");
    ASSERT_TRUE(active.isEnabled());
    active.selectAll();
    QTest::keyClicks(&active, QStringLiteral("1x2"));
    GetChild<QAbstractButton>(sheet, "Apply").click();
    EXPECT_EQ(m_Database.Get().GetActiveBuild(), 12u);
    EXPECT_NE(m_Database.GetPerUserFile().find("Active.Build=12"), std::string::npos);
    EXPECT_NE(m_Database.GetPerUserFile().find("Version="), std::string::npos);

    GetChild<QCheckBox>(sheet, "UseGameBuild").click();
    EXPECT_TRUE(m_Database.Get().IsGameBuildUsed()) << "at once";
    EXPECT_FALSE(active.isEnabled());
    EXPECT_EQ(active.text(), QStringLiteral("0"));
    sheet.accept();
    EXPECT_EQ(m_Database.Get().GetActiveBuild(), 0u);
    m_Database.Close();
    EXPECT_FALSE(GetChild<QWidget>(sheet, "SettingsDatabaseDlg").isEnabled());
}

TEST_F(SettingsSheet, ExpertModeIsWarnedOf)
{
    ASSERT_TRUE(m_Database.Open());
    CSettingsSheet sheet(m_Editor, nullptr);
    sheet.show();
    GetChild<QAbstractButton>(sheet, "ExpertMode").click();
    const CNextDialog cancels([](QDialog& warning) { Press(warning, "Cancel"); });
    sheet.accept();
    EXPECT_TRUE(sheet.isVisible()) << "the change was taken back";
    EXPECT_TRUE(GetChild<QAbstractButton>(sheet, "SimpleMode").isChecked());
    EXPECT_FALSE(m_Database.m_Run.Test(APP_EXPERT));
    GetChild<QAbstractButton>(sheet, "ExpertMode").click();
    const CNextDialog agrees([](QDialog& warning) { Press(warning, "Ok"); });
    GetChild<QAbstractButton>(sheet, "Apply").click();
    EXPECT_EQ(Get(u"Build", u"User.Interface"), 1);
    EXPECT_TRUE(GetChild<QWidget>(sheet, "ActiveBuild").isEnabled()) << "the other page follows";
}
