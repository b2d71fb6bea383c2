// The drop list under a field, and labels over texts of any length.
#include "DropList.h"
#include "ElidedLabel.h"
#include "TipText.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QListView>
#include <QStringListModel>
#include <QTest>
#include <gtest/gtest.h>

TEST(DropListTest, TheFieldKeepsTheFocusWhileKeysMoveAndPick)
{
    QWidget window;
    window.setGeometry(50, 50, 300, 60);
    QLineEdit field(&window);
    field.setGeometry(10, 10, 200, 24);
    QStringListModel model({QStringLiteral("menu_open"), QStringLiteral("menu_save")});
    auto* list = new CDropList(field);
    list->SetModel(&model);
    list->SetDropHeight(150);
    QStringList picked;
    std::string states;
    list->m_OnPick = [&](const QString& text) { picked.append(text); };
    list->m_OnOpenChanged = [&](bool open) { states += open ? "open;" : "closed;"; };
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    field.setFocus();

    list->Open();
    EXPECT_EQ(list->geometry(), QRect(field.mapToGlobal(QPoint(0, 24)), QSize(200, 150)));
    QTest::keyClicks(&field, QStringLiteral("m"));
    EXPECT_EQ(field.text(), u"m") << "other keys are the field's";
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_TRUE(picked.isEmpty()) << "nothing is selected yet";
    QTest::keyClick(&field, Qt::Key_Down);
    QTest::keyClick(&field, Qt::Key_Down);
    EXPECT_TRUE(field.hasFocus());
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(picked, QStringList(QStringLiteral("menu_save")));
    list->Open();
    QTest::keyClick(&field, Qt::Key_Escape);
    list->Open();
    field.clearFocus();
    EXPECT_EQ(states, "open;closed;open;closed;open;closed;");

    int height = 0;
    list->m_OnResized = [&](int dragged) { height = dragged; };
    list->Open();
    auto* grip = list->findChild<QWidget*>(QStringLiteral("grip"));
    QTest::mousePress(grip, Qt::LeftButton);
    QTest::mouseMove(grip, QPoint(5, 4 + 60));
    QTest::mouseRelease(grip, Qt::LeftButton);
    EXPECT_EQ(height, list->height());
    EXPECT_GT(height, 190);
}

TEST(DropListTest, DropsUpAtTheLowerEdgeOfTheScreen)
{
    QLineEdit field;
    const int bottom = field.screen()->availableGeometry().bottom();
    field.setGeometry(20, bottom - 40, 200, 24);
    auto* list = new CDropList(field);
    field.show();
    list->Open();
    EXPECT_EQ(list->geometry().bottom(), field.mapToGlobal(QPoint(0, 0)).y() - 1);
}

TEST(ElidedLabelTest, CopiesTheWholeTextAndLaysOutALittle)
{
    const QString huge = QStringLiteral("<b>\u202Eabc\n").repeated(200000);
    CElidedLabel label;
    label.SetText(huge);
    label.resize(label.sizeHint());
    EXPECT_LT(label.width(), 600);
    EXPECT_TRUE(label.IsElided());
    QTest::keyClick(&label, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), huge);
    EXPECT_LT(MakeTip(huge).size(), 5000);
    EXPECT_TRUE(MakeTip(huge).startsWith(u"<qt>&lt;b&gt;"));
    label.SetText(QStringLiteral("a"));
    EXPECT_FALSE(label.IsElided());
    EXPECT_EQ(LimitText(QStringLiteral("a\U0001F600b"), 2), u"a...") << "no half character";
}
