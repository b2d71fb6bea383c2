#include "DeferDeleteAttribDlg.h"
#include "DeferDeprecatedAttribDlg.h"
#include "DialogDrive.h"
#include "DialogParts.h"
#include "QtText.h"
#include "RecordCopyDlg.h"
#include "TestBuildDlg.h"
#include "TestDatabase.h"
#include "WarningAdvancedSettingsDlg.h"

#include <QLabel>
#include <QTest>

TEST(RecordCopyDlg, StartsWithACloneAndAClickOnTheTextChooses)
{
    CRecordCopyDlg dialog(nullptr);
    EXPECT_EQ(dialog.GetMethod(), ERecordCopy::Clone);
    const int result = RunModal(dialog,
                                [&]
                                {
                                    for (QLabel* label : dialog.findChildren<QLabel*>())
                                    {
                                        if (label->text().startsWith(QStringLiteral("Creates a reference")))
                                            QTest::mouseClick(label, Qt::LeftButton);
                                    }
                                    QTest::keyClick(&dialog, Qt::Key_Return);
                                });
    EXPECT_EQ(result, QDialog::Accepted);
    EXPECT_EQ(dialog.GetMethod(), ERecordCopy::Reference);
}

TEST(DeferDialogs, TakeDecimalsOnlyAndNeedANumber)
{
    CDeferDeleteAttribDlg deletion(7, nullptr);
    CDeferDeprecatedAttribDlg deprecation(8, nullptr);
    EXPECT_EQ(deprecation.GetBuild(), 8U);
    auto& field = GetChild<QLineEdit>(deletion, "Build");
    const int result = RunModal(deletion,
                                [&]
                                {
                                    QTest::keyClick(&field, Qt::Key_Delete);
                                    QTest::keyClick(&field, Qt::Key_Return);
                                    EXPECT_TRUE(deletion.isVisible()) << "An empty field ended the dialog.";
                                    QTest::keyClicks(&field, QStringLiteral("-1x2"));
                                    QTest::keyClick(&field, Qt::Key_Return);
                                });
    EXPECT_EQ(result, QDialog::Accepted);
    EXPECT_EQ(deletion.GetBuild(), 12U);
    CBuildNumberEdit edit;
    edit.setText(QStringLiteral("9999999999"));
    EXPECT_EQ(edit.GetBuild(), 4294967295U);
}

TEST(WarningAdvancedSettingsDlg, CancelKeepsTheWishAndNobodyIsAskedAgain)
{
    CTestDatabase database;
    PressInNextDialog("Cancel");
    EXPECT_FALSE(CWarningAdvancedSettingsDlg::Confirm(database.m_Profile, nullptr));
    EXPECT_EQ(database.m_Profile.GetInteger(u"General", u"Warning.Advanced.Settings", 9), 0);
    QTimer::singleShot(0, qApp,
                       []
                       {
                           Press(*QApplication::activeModalWidget(), "NeverAgain");
                           Press(*QApplication::activeModalWidget(), "Cancel");
                       });
    EXPECT_FALSE(CWarningAdvancedSettingsDlg::Confirm(database.m_Profile, nullptr));
    EXPECT_TRUE(CWarningAdvancedSettingsDlg::Confirm(database.m_Profile, nullptr));
}

TEST(TestBuildDlg, ShowsTheFileAndEnterGoesNowhere)
{
    CTestBuildDlg dialog(u"/game/Database.Gamdb00p", nullptr);
    EXPECT_EQ(GetChild<QLineEdit>(dialog, "Target").text(), QStringLiteral("/game/Database.Gamdb00p"));
    EXPECT_EQ(RunModal(dialog, [&] { QTest::keyClick(&dialog, Qt::Key_Return); }), QDialog::Rejected);
    EXPECT_EQ(RunModal(dialog, [&] { Press(dialog, "Continue"); }), QDialog::Accepted);
}
