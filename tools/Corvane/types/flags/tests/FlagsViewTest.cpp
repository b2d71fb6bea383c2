// A Flags mask and its check boxes.
#include "TypeViewTest.h"

#include <QCheckBox>

// The bits without a name (0x12 here) pass through.
TEST_F(TypeEditor, CheckBoxesChangeTheFlagsThatHaveAName)
{
    Show("Traits").Type(0, QStringLiteral("0x13 z"));
    EXPECT_EQ(Value("Traits"), "0x00000013");
    m_pList->Edit(0);
    const CNextDialog ticks(
        [](QDialog& dialog)
        {
            const auto box = [&](const char* flag) { return dialog.findChild<QCheckBox*>(flag); };
            EXPECT_FALSE(box("Flag2")->isEnabled());
            EXPECT_EQ(box("Flag32")->text(), "Boss && more");
            EXPECT_TRUE(box("Flag1")->toolTip().contains(QStringLiteral("Up<br>and away")));
            QTest::keyClick(box("Flag1"), Qt::Key_Space);
            QTest::keyClick(box("Flag32"), Qt::Key_Space);
            EXPECT_EQ(dialog.findChild<QLineEdit*>("Mask")->text(), "0x80000012");
            dialog.accept();
        });
    Press("More");
    QTest::keyClick(Editor().findChild<QLineEdit*>("FlagsValue"), Qt::Key_Return);
    EXPECT_EQ(Value("Traits"), "0x80000012");
    m_pList->Edit(0);
    const CNextDialog leaves(
        [&](QDialog& dialog)
        {
            m_pList->EndEdit(false); // The editor goes while its boxes are open.
            QTest::qWait(0);
            QTest::keyClick(dialog.findChild<QCheckBox*>("Flag1"), Qt::Key_Space);
            dialog.accept();
        });
    Press("More");
    EXPECT_EQ(Value("Traits"), "0x80000012");
}
