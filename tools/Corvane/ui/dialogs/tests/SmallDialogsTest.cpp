#include "DeferDeleteAttribDlg.h"
#include "DialogDrive.h"
#include "NextDialog.h"
#include "RecordCopyDlg.h"
#include "TestBuildDlg.h"
#include "TestDatabase.h"
#include "WarningAdvancedSettingsDlg.h"

#include <QLabel>
#include <QTest>

TEST(SmallDialogs, ARecordIsClonedUnlessTheUserClicksTheOtherText)
{
    CRecordCopyDlg dialog(nullptr);
    EXPECT_EQ(dialog.GetMethod(), ERecordCopy::Clone);
    const auto user = [&]
    {
        QTest::mouseClick(dialog.findChildren<QLabel*>().constLast(), Qt::LeftButton);
        QTest::keyClick(&dialog, Qt::Key_Return);
    };
    EXPECT_EQ(RunModal(dialog, user), QDialog::Accepted);
    EXPECT_EQ(dialog.GetMethod(), ERecordCopy::Reference);
}

TEST(SmallDialogs, ADeferralNeedsADecimalNumber)
{
    CDeferDeleteAttribDlg dialog(7, nullptr);
    auto& field = GetChild<QLineEdit>(dialog, "Build");
    const auto user = [&]
    {
        QTest::keyClick(&field, Qt::Key_Delete);
        QTest::keyClick(&field, Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible()) << "An empty field ended the dialog.";
        QTest::keyClicks(&field, QStringLiteral("-99x99999999"));
        QTest::keyClick(&field, Qt::Key_Return);
    };
    EXPECT_EQ(RunModal(dialog, user), QDialog::Accepted);
    EXPECT_EQ(dialog.GetBuild(), 4294967295U);
}

TEST(SmallDialogs, CancelKeepsTheWishNotToBeWarnedToo)
{
    CTestDatabase database;
    const CNextDialog user(
        [](QDialog& dialog)
        {
            Press(dialog, "NeverAgain");
            Press(dialog, "Cancel");
        });
    EXPECT_FALSE(CWarningAdvancedSettingsDlg::Confirm(database.m_Profile, nullptr));
    EXPECT_TRUE(CWarningAdvancedSettingsDlg::Confirm(database.m_Profile, nullptr));
}

TEST(SmallDialogs, EnterDoesNotSubmitATestBuild)
{
    CTestBuildDlg dialog(u"/game/Database.Gamdb00p", nullptr);
    EXPECT_EQ(RunModal(dialog, [&] { QTest::keyClick(&dialog, Qt::Key_Return); }), QDialog::Rejected);
    EXPECT_EQ(RunModal(dialog, [&] { Press(dialog, "Continue"); }), QDialog::Accepted);
}
