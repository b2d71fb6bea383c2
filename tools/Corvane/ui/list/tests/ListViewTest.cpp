// The attribute list as a user works with it.
#include "ListTestKit.h"
#include "NextDialog.h"
#include "QtText.h"
#include "UndoScope.h"
#include "ValueSource.h"

#include <QAccessible>
#include <QMenu>

namespace
{
using ListView = CListTestKit;

TEST_F(ListView, ShowsTheAttributesOfTheDocumentsRecordAndFollowsIt)
{
    EXPECT_EQ(Names(), "Armor Costs Speed Ammo ");
    EXPECT_FALSE(m_pView->findChild<QScrollBar*>()->isEnabled());
    m_Editor.m_Document.SetRecord(&m_Test.Record("Units/Heavy"));
    EXPECT_EQ(&Row("Armor").GetParentType(), &m_Test.Attrib("Units/Heavy", "Armor"));
    m_Editor.m_Document.SetRecord(nullptr);
    EXPECT_EQ(Names(), "");
    m_pView->grab();
}

TEST_F(ListView, SortsByAColumnInThreePhases)
{
    auto* header = m_pView->findChild<CCorvaneListViewHeader*>();
    List().SetSelection(Find("Speed"));
    const auto click = [&](EListColumn column)
    { QTest::mouseClick(header, Qt::LeftButton, {}, header->GetColumnRect(column).center()); };
    const struct
    {
        EListColumn m_Column;
        const char* m_sOrder;
    } clicks[] = {{COLUMN_NAME, "Ammo Armor Costs Speed "}, {COLUMN_NAME, "Speed Costs Armor Ammo "},
                  {COLUMN_NAME, "Armor Costs Speed Ammo "}, {COLUMN_NAME, "Ammo Armor Costs Speed "},
                  {COLUMN_TODO, "Ammo Armor Speed Costs "}, {COLUMN_EXPAND, "Ammo Armor Speed Costs "},
                  {COLUMN_TODO, "Costs Ammo Armor Speed "}};
    ASSERT_TRUE(m_Test.Attrib("Units/Tank", "Costs").EditTodo(true));
    for (const auto& step : clicks)
    {
        click(step.m_Column);
        EXPECT_EQ(Names(), step.m_sOrder);
        EXPECT_EQ(List().GetSelectedRow(), &Row("Speed"));
    }
}

TEST_F(ListView, MovesTheSelectionByKeysThroughRowsAndTheirValues)
{
    const struct
    {
        Qt::Key m_Key;
        int m_nRow;
        int m_nItem;
    } keys[] = {{Qt::Key_Down, 0, kHeaderItem},
                {Qt::Key_Down, 1, kHeaderItem},
                {Qt::Key_Right, 1, kHeaderItem},
                {Qt::Key_Down, 1, 0},
                {Qt::Key_Down, 1, kAddItem},
                {Qt::Key_Down, 2, kHeaderItem},
                {Qt::Key_Space, 2, kHeaderItem},
                {Qt::Key_Down, 2, 0},
                {Qt::Key_Up, 2, kHeaderItem},
                {Qt::Key_Up, 1, kAddItem},
                {Qt::Key_Up, 1, 0},
                {Qt::Key_Up, 1, kHeaderItem},
                {Qt::Key_Down, 1, 0},
                {Qt::Key_Left, 1, kHeaderItem},
                {Qt::Key_Down, 2, kHeaderItem},
                {Qt::Key_Up, 1, kHeaderItem},
                {Qt::Key_Up, 0, kHeaderItem},
                {Qt::Key_Up, 0, kHeaderItem}};
    for (const auto& step : keys)
    {
        Key(step.m_Key);
        EXPECT_EQ(List().GetSelection(), step.m_nRow);
        EXPECT_EQ(List().GetSelectedRow()->GetActiveSubItem(), step.m_nItem);
        const QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&List());
        EXPECT_EQ(list->childCount(), 4);
        EXPECT_TRUE(list->child(step.m_nRow)->state().selected);
        EXPECT_EQ(list->child(step.m_nRow)->text(QAccessible::Name),
                  List().GetSelectedRow()->GetDescription());
    }
    Key(Qt::Key_Tab);
    EXPECT_EQ(m_Editor.m_sActivated, "tree;");
}

// Every way out of an editor, and whether it takes the value.
TEST_F(ListView, EndsAnEditWithItsValueUnlessItIsCancelled)
{
    QWidget outside(&m_Editor.m_Window);
    outside.setGeometry(0, 0, 10, 10);
    outside.setFocusPolicy(Qt::StrongFocus);
    outside.show();
    const std::pair<const char*, std::function<void()>> ends[] = {
        {"81", [&] { QTest::keyClick(Field(), Qt::Key_Return); }},
        {"81", [&] { QTest::keyClick(Field(), Qt::Key_Escape); }},
        {"83", [&] { QTest::mouseClick(&outside, Qt::LeftButton); }},
        {"84", [&] { outside.setFocus(); }},
        {"85", [&] { m_pView->findChild<QScrollBar*>()->setValue(1); }},
        {"86",
         [&]
         {
             QEvent event(QEvent::ApplicationDeactivate);
             QApplication::sendEvent(qApp, &event);
         }},
        {"87", [&] { List().SetSelection(0); }},
        {"88", [&] { List().SortByColumn(COLUMN_NAME); }},
        {"89", [&] { m_Editor.m_Document.SetRecord(nullptr); }},
    };
    m_Editor.m_Window.resize(760, 120);
    QApplication::processEvents();
    int typed = 80;
    for (const auto& [value, end] : ends)
    {
        Select("Ammo", 0);
        List().setFocus();
        Key(Qt::Key_F3);
        ASSERT_TRUE(List().IsEditing());
        EXPECT_FALSE(m_Editor.GetCommandSet().AreAcceleratorsEnabled());
        QTest::keyClicks(Field(), QString::number(++typed));
        end();
        EXPECT_FALSE(List().IsEditing());
        EXPECT_TRUE(m_Editor.GetCommandSet().AreAcceleratorsEnabled());
        EXPECT_EQ(m_Test.Value("Units/Tank", "Ammo"), value);
    }
}

TEST_F(ListView, KeepsAnEditThatOpenedAWindowAndTakesTheWheelForIt)
{
    Select("Ammo", 0);
    List().BeginEdit();
    QWheelEvent wheel({5, 5}, {5, 5}, {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&List(), &wheel);
    EXPECT_TRUE(List().IsEditing());
    {
        const CCorvaneTypeValueDlg::CKeepOpen keep(*Row("Ammo").GetValueDialog());
        QTest::mousePress(m_pView->findChild<CCorvaneListViewHeader*>(), Qt::LeftButton);
        EXPECT_TRUE(List().IsEditing());
    }
    QTest::mousePress(m_pView->findChild<CCorvaneListViewHeader*>(), Qt::LeftButton);
    EXPECT_FALSE(List().IsEditing());
}

// A day's work on one list of values, and back to the start.
TEST_F(ListView, AddsMovesAndDeletesValuesAndUndoesItAll)
{
    const auto values = [this]
    {
        std::string text;
        for (std::size_t i = 0; i < m_Test.Attrib("Units/Tank", "Costs").GetValueCount(); ++i)
            text += m_Test.Value("Units/Tank", "Costs", 0, i) + ' ';
        return text;
    };
    const auto add = [this](const char* text)
    {
        Row("Costs").SetActiveSubItem(kAddItem);
        Key(Qt::Key_Return);
        QTest::keyClicks(Field(), QString::fromLatin1(text));
        QTest::keyClick(Field(), Qt::Key_Return);
    };
    Select("Costs");
    add("8");
    add("9");
    EXPECT_EQ(values(), "7 8 9 ");
    EXPECT_EQ(RowRect("Costs").height(), 100);
    ASSERT_TRUE(Run(ID_MOVE_UP));
    ASSERT_TRUE(Run(ID_MOVE_UP));
    EXPECT_FALSE(Run(ID_MOVE_UP));
    EXPECT_EQ(values(), "9 7 8 ");
    ASSERT_TRUE(Run(ID_MOVE_DOWN));
    ASSERT_TRUE(Run(ID_DELETE));
    EXPECT_EQ(values(), "7 8 ");
    EXPECT_EQ(Row("Costs").GetActiveSubItem(), 1);
    m_Test.Attrib("Units/Tank", "Costs").SetLockUser(u"me");
    EXPECT_FALSE(Run(ID_DELETE));
    m_Test.Attrib("Units/Tank", "Costs").SetLockUser({});
    EXPECT_EQ(m_Test.m_Undo.GetUndoLabels().front(), u"&1 [Delete]\nCosts \"9\"");
    for (const char* state : {"7 9 8 ", "9 7 8 ", "7 9 8 ", "7 8 9 ", "7 8 ", "7 "})
    {
        ASSERT_TRUE(m_Test.m_Undo.Undo(1));
        EXPECT_EQ(values(), state);
    }
    EXPECT_EQ(RowRect("Costs").height(), 80);
    List().Flush(); // Rows follow once per turn.
    EXPECT_EQ(RowRect("Costs").height(), 60);
    ASSERT_TRUE(m_Test.m_Undo.Redo(6));
    EXPECT_EQ(values(), "7 8 ");
    Select("Speed", 1);
    EXPECT_FALSE(Run(ID_DELETE)); // A fixed list keeps its values.
}

TEST_F(ListView, SwitchesMarksByClicksAndAsksBeforeItUnlocks)
{
    CCorvaneType& ammo = m_Test.Attrib("Units/Tank", "Ammo");
    ClickCell("Ammo", COLUMN_TODO);
    ClickCell("Ammo", COLUMN_PLACEHOLDER);
    ClickCell("Ammo", COLUMN_OVERRIDE);
    EXPECT_TRUE(ammo.IsTodo() && ammo.IsPlaceHolder() && ammo.GetOverride());
    ClickCell("Ammo", COLUMN_REFERENCE); // The record has no referencer.
    EXPECT_FALSE(ammo.GetInherit());
    ClickCell("Ammo", COLUMN_LOCK);
    EXPECT_EQ(ammo.GetLockUser(), u"tester");
    ClickCell("Ammo", COLUMN_TODO);
    EXPECT_TRUE(ammo.IsTodo());
    m_Test.m_Questions.Prepare(u"Confirm Unlock", {EAnswer::No, EAnswer::Yes});
    ClickCell("Ammo", COLUMN_LOCK);
    EXPECT_TRUE(ammo.IsLocked());
    ClickCell("Ammo", COLUMN_LOCK);
    EXPECT_FALSE(ammo.IsLocked());
    ASSERT_TRUE(Run(ID_LOCK));
    ClickCell("Ammo", COLUMN_LOCK, Qt::ControlModifier);
    EXPECT_FALSE(ammo.IsLocked());
    EXPECT_EQ(m_Test.m_Questions.Count(u"Confirm Unlock"), 2U);
    m_Test.m_Gate.m_bConnected = true;
    m_Test.m_Gate.m_bGrant = false;
    ClickCell("Ammo", COLUMN_LOCK);
    EXPECT_FALSE(ammo.IsLocked());
}

TEST_F(ListView, InheritsByCommandAndTellsWhereAValueComesFrom)
{
    m_Editor.m_Document.SetRecord(&m_Test.Record("Units/Heavy"));
    CCorvaneType& armor = m_Test.Attrib("Units/Heavy", "Armor");
    EXPECT_EQ(DescribeValueSource(armor), u"Inherited from Units/Tank");
    EXPECT_EQ(DescribeValueSource(m_Test.Attrib("Units/Tank", "Armor")), u"Default of the schema 'Unit'");
    Select("Armor", 0);
    EXPECT_FALSE(Run(ID_EDIT));
    ASSERT_TRUE(Run(ID_REFERENCE));
    ASSERT_TRUE(Run(ID_EDIT));
    QTest::keyClicks(Field(), "5");
    QTest::keyClick(Field(), Qt::Key_Return);
    EXPECT_EQ(DescribeValueSource(armor), u"Own value");
    ASSERT_TRUE(Run(ID_REFERENCE));
    EXPECT_EQ(m_Test.Value("Units/Heavy", "Armor"), "100");
    // What the referencer shows in another window is drawn anew with its value.
    CCorvaneListView other(m_Editor, nullptr);
    other.ShowRecord(&m_Test.Record("Units/Tank"));
    Row("Armor").SetExpanded(true);
    QTest::qWait(0);
    const QImage before = List().grab().toImage();
    ASSERT_TRUE(other.SelectAttribute(m_Test.Attrib("Units/Tank", "Armor"), 0));
    other.GetList().BeginEdit();
    auto* field = other.findChild<QLineEdit*>("IntegerValue");
    field->setText("33");
    other.EndEdit(true);
    EXPECT_NE(List().grab().toImage(), before);
    const QRect row = RowRect("Armor");
    EXPECT_EQ(Row("Armor").GetToolTip(row, Row("Armor").GetSubItemRect(row, 0).center()),
              "33\nInherited from Units/Tank");
}

// What is edited may go at any moment.
TEST_F(ListView, SurvivesThatWhatIsEditedGoesAway)
{
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"Costs", [&] { ASSERT_TRUE(m_Test.m_Undo.Undo(1)); }},
        {"Speed", [&] { ASSERT_TRUE(m_Test.Get().DeleteDeferredAttribute(&m_Test.Schema("Unit"), 2)); }},
        {"Ammo", [&] { ASSERT_TRUE(m_Test.Get().DeleteRecord(m_Test.Record("Units/Tank"), false)); }},
    };
    CUndoScope scope(m_Test.m_Undo);
    ASSERT_TRUE(m_Test.Attrib("Units/Tank", "Costs").AddValue(u"8"));
    scope.Accept(u"Add");
    for (const auto& [name, vanish] : ways)
    {
        Select(name, 1 - (std::string(name) == "Ammo" ? 1 : 0));
        List().BeginEdit();
        ASSERT_TRUE(List().IsEditing()) << name;
        QTest::keyClicks(Field(), "66");
        vanish();
        m_pView->grab();
        List().EndEdit(true);
        EXPECT_FALSE(List().IsEditing());
        EXPECT_EQ(Field(), nullptr);
        m_pView->grab();
    }
    EXPECT_EQ(Names(), "");
}

TEST_F(ListView, KeepsViewsSelectionAndEditorWhenTheRowsAreBuiltAgain)
{
    Select("Ammo", 0);
    List().BeginEdit();
    QTest::keyClicks(Field(), "66");
    const CCorvaneTypeView* view = &Row("Ammo");
    ASSERT_TRUE(m_Test.Get().DeleteDeferredAttribute(&m_Test.Schema("Unit"), 0));
    EXPECT_EQ(Names(), "Costs Speed Ammo ");
    EXPECT_EQ(&Row("Ammo"), view);
    EXPECT_EQ(List().GetSelection(), 2);
    ASSERT_TRUE(List().IsEditing());
    EXPECT_EQ(Field()->parentWidget()->geometry().top(), Row("Ammo").GetEditRect(RowRect("Ammo")).top());
    QTest::keyClick(Field(), Qt::Key_Return);
    EXPECT_EQ(m_Test.Value("Units/Tank", "Ammo"), "66");
}

TEST_F(ListView, ScrollsInLinesAndBringsAnAreaIntoView)
{
    m_Editor.m_Window.resize(760, 120);
    QApplication::processEvents();
    ASSERT_TRUE(Run(ID_EXPAND_ALL));
    const int overflow = 40 + 60 + 80 + 40 - List().height();
    EXPECT_EQ(List().GetMaximumScroll(), (overflow + 19) / 20);
    Key(Qt::Key_PageDown);
    EXPECT_EQ(List().GetTopLine(), -5);
    Key(Qt::Key_Home);
    const int bottom = List().height() - 1;
    List().MakeRectVisible({0, 0, 10, bottom});
    EXPECT_EQ(List().GetTopLine(), 0);
    List().MakeRectVisible({0, 20, 10, bottom + 20}); // 40 pixels below: two lines.
    EXPECT_EQ(List().GetTopLine(), -2);
    List().MakeRectVisible({0, -25, 10, 20});
    EXPECT_EQ(List().GetTopLine(), -1);
    Key(Qt::Key_End);
    EXPECT_EQ(List().GetTopLine(), -List().GetMaximumScroll());
    ASSERT_TRUE(Run(ID_COLLAPSE_ALL));
    EXPECT_EQ(RowRect("Costs").height(), 20);
}

TEST_F(ListView, OffersTheMenusOfValuesAndAttributes)
{
    const auto menu = [this](const char* name, int item)
    {
        Select(name, item);
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(5, 5));
        QApplication::sendEvent(&List(), &event);
        std::string labels;
        auto* open = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        for (const QAction* action : open->actions())
            labels += action->isEnabled() && !action->isSeparator() ? action->text().toStdString() + '|' : "";
        open->close();
        QApplication::processEvents();
        return labels;
    };
    EXPECT_EQ(menu("Costs", 0), "&Edit|&Delete Value|P&roperties|");
    const std::string plain = "&Collapse\tSpace|&Expand All|&Collapse All|&Lock|&Override|Mark as T&odo|"
                              "Mark as Place&holder|";
    EXPECT_EQ(menu("Costs", kHeaderItem), plain + "P&roperties|");
    m_Test.m_Run.Set(APP_EXPERT);
    EXPECT_EQ(
        menu("Costs", kHeaderItem),
        plain +
            "Defer Delete Attri&bute|Defer Deprecate &Attribute|&Immediate Delete Attribute|P&roperties|");
}

TEST_F(ListView, DefersAndRemovesAnAttributeInExpertMode)
{
    Select("Speed");
    EXPECT_FALSE(Run(ID_DEFER_DEPRECATE));
    m_Test.m_Run.Set(APP_EXPERT);
    const CNextDialog user(
        [](QDialog& dialog)
        {
            auto* field = dialog.findChild<QLineEdit*>("Build");
            field->setText("10");
            QTest::keyClick(field, Qt::Key_Return);
        });
    ASSERT_TRUE(Run(ID_DEFER_DEPRECATE));
    EXPECT_EQ(Names(), "Armor Costs Speed Speed Ammo ");
    m_pView->grab();
    ASSERT_TRUE(Run(ID_IMMEDIATE_DELETE)); // Nobody agrees.
    EXPECT_EQ(Names(), "Armor Costs Speed Speed Ammo ");
    m_Test.m_Questions.Prepare(u"Immediate Delete Attribute", {EAnswer::Yes});
    ASSERT_TRUE(Run(ID_IMMEDIATE_DELETE));
    EXPECT_EQ(Names(), "Armor Costs Speed Ammo ");
}

TEST_F(ListView, ShowsTheHelpOfWhatIsSelected)
{
    EXPECT_TRUE(m_Help.toPlainText().contains("Tank"));
    List().SetSelection(Find("Armor"));
    EXPECT_TRUE(m_Help.toPlainText().contains("Thickness of the plates."));
    ASSERT_TRUE(m_Test.Attrib("Units/Tank", "Armor").EditComment(u"thin <b>"));
    List().Flush();
    EXPECT_TRUE(m_Help.toPlainText().contains("thin <b>"));
    List().SetSelection(-1);
    EXPECT_FALSE(m_Help.toPlainText().contains("Armor"));
}
} // namespace
