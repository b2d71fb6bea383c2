// The view and the editors of a Flags attribute.
#include "TypeViewTest.h"

#include "flags/CorvaneTypeFlagsValueActivateDlg.h"

#include <QCheckBox>
#include <QTimer>
#include <QToolButton>

namespace
{
class FlagsView : public CTypeViewTest
{
protected:
    FlagsView()
    {
        Open("[Attrib.Traits.0]\nType=Flags\nData=Flag1=Flies|Up\\r\\nand away;Flag32=Boss & more|\n",
             "[Attrib.Traits]\nValue.0000=0x00000012\n");
    }
    // Opens the check boxes, hands them to `act`, which closes them, and ends the edit.
    void EditFlags(const std::function<void(QDialog&)>& act)
    {
        CViewTestList list(m_Editor, Attrib("Traits"));
        ASSERT_NE(list.Edit(0), nullptr);
        bool seen = false;
        QTimer::singleShot(0, &list,
                           [&]
                           {
                               auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
                               ASSERT_NE(dialog, nullptr);
                               seen = true;
                               act(*dialog);
                           });
        QTest::mouseClick(list.m_pView->GetValueDialog()->findChild<QToolButton*>("More"), Qt::LeftButton);
        EXPECT_TRUE(seen);
        QTest::keyClick(list.findChild<QLineEdit*>("FlagsValue"), Qt::Key_Return);
    }
};

TEST_F(FlagsView, TheFieldReadsAMaskAndRewritesIt)
{
    CViewTestList list(m_Editor, Attrib("Traits"));
    list.Type(0, QStringLiteral("0xff z"));
    EXPECT_EQ(Value("Traits"), "0x000000FF");
    list.Type(0, QStringLiteral("12"));
    EXPECT_EQ(Value("Traits"), "0x00000000");
}

// The bits without a name (0x12 here) pass through.
TEST_F(FlagsView, TheBoxesChangeTheBitsThatHaveANameOnly)
{
    EditFlags(
        [](QDialog& dialog)
        {
            const auto box = [&](int flag)
            { return dialog.findChild<QCheckBox*>(QStringLiteral("Flag%1").arg(flag)); };
            EXPECT_EQ(box(2)->text(), "Unassigned");
            EXPECT_FALSE(box(2)->isEnabled());
            EXPECT_EQ(box(32)->text(), "Boss && more");
            EXPECT_TRUE(box(1)->toolTip().contains(QStringLiteral("Up<br>and away")));
            QTest::keyClick(box(1), Qt::Key_Space);
            QTest::keyClick(box(32), Qt::Key_Space);
            EXPECT_EQ(dialog.findChild<QLineEdit*>("Mask")->text(), "0x80000013");
            QTest::keyClick(&dialog, Qt::Key_Return);
        });
    EXPECT_EQ(Value("Traits"), "0x80000013");
    EditFlags([](QDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(Value("Traits"), "0x80000013");
}

// The database may take the record away while the boxes are open.
TEST_F(FlagsView, AnEditorThatGoesWhileItsBoxesAreOpenChangesNothing)
{
    CViewTestList list(m_Editor, Attrib("Traits"));
    list.Edit(0);
    QTimer::singleShot(0, &list,
                       [&]
                       {
                           list.EndEdit(false);
                           QTest::qWait(0);
                           qobject_cast<QDialog*>(QApplication::activeModalWidget())->accept();
                       });
    QTest::mouseClick(list.m_pView->GetValueDialog()->findChild<QToolButton*>("More"), Qt::LeftButton);
    EXPECT_EQ(Value("Traits"), "0x00000012");
}
} // namespace
