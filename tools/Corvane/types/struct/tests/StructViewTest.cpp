// The view of a struct inside the attribute list: its members are walked, edited and moved as attributes are.
#include "Commands.h"
#include "CorvaneListView.h"
#include "CorvaneListViewList.h"
#include "Unicode.h"
#include "ViewTestList.h"
#include "struct/CorvaneTypeStruct.h"

#include <QRegularExpression>

namespace
{
class StructView : public testing::Test
{
protected:
    StructView()
    {
        m_Test.Write("Schemas/Sub.struct", "[Attrib.X.0]\nType=Integer\nDefault=3\n");
        m_Test.Write("Schemas/Item.struct", "[Attrib.Name.0]\nType=Text\nDefault=none\n\n"
                                            "[Attrib.Count.0]\nType=Integer\nDefault=1\nValues=-1\n\n"
                                            "[Attrib.Sub.0]\nType=Struct\nData=Sub.struct\n");
        m_Test.AddSchema("Bag", "[Attrib.Items.0]\nType=Struct\nData=Item.struct\nValues=-1\n\n"
                                "[Attrib.Mark.0]\nType=Integer\nDefault=5\n");
        m_Test.AddCategory("Bags", "Bag");
        m_Test.AddRecord(
            "Bags/Big", "Bag",
            "[Attrib.Items.0]\n[Attrib.Items.0.0.Name]\nValue.0000=rope\n"
            "[Attrib.Items.0.0.Count]\nValue.0000=2\n[Attrib.Items.0.1.Name]\nValue.0000=lamp\n");
        m_Test.AddRecord("Bags/Small", "Bag",
                         "[Hierarchy]\nRecord=Bags/Big\n\n[Attrib.Items.0]\nInherit=True\n\n");
        EXPECT_TRUE(m_Test.Open());
        static_cast<void>(CViewTestList(m_Editor, m_Test.Attrib("Bags/Big", "Mark"))); // Registers the views.
        m_pView = new CCorvaneListView(m_Editor, &m_Editor.m_Window);
        m_Editor.m_Window.resize(760, 600);
        m_pView->resize(760, 600);
        m_Editor.m_Window.show();
        m_Editor.m_Window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_Editor.m_Window));
        Show("Bags/Big");
    }
    ~StructView() override
    {
        m_pView->ShowRecord(nullptr);
        delete m_pView;
        m_Test.Get().SetDirty(false);
    }

    void Show(const char* record)
    {
        m_pView->ShowRecord(&m_Test.Record(record));
        List().setFocus();
        List().SetSelection(0);
        List().ExpandSelected(true);
        List().Flush();
    }
    CCorvaneListViewList& List() { return m_pView->GetList(); }
    CCorvaneTypeStruct& Items(const char* record = "Bags/Big")
    {
        return static_cast<CCorvaneTypeStruct&>(m_Test.Attrib(record, "Items"));
    }
    CCorvaneType& Member(std::size_t row, std::size_t member, const char* record = "Bags/Big")
    {
        return *Items(record).GetAttributePointerList()[row][member];
    }
    std::string Names(const char* record = "Bags/Big")
    {
        std::string names;
        for (std::size_t row = 0; row < Items(record).GetValueCount(); ++row)
            names += ToNarrow(Member(row, 0, record).GetValue(0)) + ' ';
        return names;
    }
    // What is selected, as a screen reader says it.
    QString Where()
    {
        List().Flush();
        CCorvaneTypeView* row = List().GetSelectedRow();
        return row ? row->GetDescription() : QString();
    }
    std::string Shown() { return Names() + Where().toStdString(); }
    void Key(Qt::Key key) { QTest::keyClick(&List(), key); }
    bool CanRun(int id)
    {
        SCommandState state;
        return m_pView->GetCommandState(id, state) && state.m_bEnabled;
    }
    bool Run(int id) { return CanRun(id) && m_pView->RunCommand(id); }
    // The rectangle of the active item, for a click.
    QPoint GetActivePoint()
    {
        QRect rect;
        List().GetItemRect(List().GetSelection(), rect);
        return List().GetSelectedRow()->GetActiveRect(rect).center();
    }

    CTestDatabase m_Test;
    CTestEditor m_Editor{m_Test};
    CCorvaneListView* m_pView = nullptr;
};

TEST_F(StructView, IsWalkedThroughRowsMembersAndTheirValues)
{
    List().SetAllExpanded(true);
    QStringList down{Where()};
    for (Key(Qt::Key_Down); Where() != down.back(); Key(Qt::Key_Down))
        down.push_back(Where());
    EXPECT_EQ(
        down.join(QStringLiteral(" | ")).replace("Items, row ", "#"),
        "Items: 2 rows | #1 | #1, Name: rope | #1, Name, value 1: rope | #1, Count: 2 | "
        "#1, Count, value 1: 2 | #1, Count, add a value | #1, Sub: 1 row | #1, Sub, row 1, X: 3 | "
        "#1, Sub, row 1, X, value 1: 3 | #2 | #2, Name: lamp | #2, Name, value 1: lamp | #2, Count: 1 | "
        "#2, Count, value 1: 1 | #2, Count, add a value | #2, Sub: 1 row | #2, Sub, row 1, X: 3 | "
        "#2, Sub, row 1, X, value 1: 3 | Items, add a row | Mark: 5 | Mark, value 1: 5");
    // Every place is found by a click where it lies, and the way back is the same.
    for (qsizetype i = down.size() - 1; i >= 0; --i)
    {
        EXPECT_EQ(Where(), down[i]);
        const QPoint point = GetActivePoint();
        // A row's middle belongs to its first member.
        const bool isRow = down[i].contains(QRegularExpression("^Items, row .$"));
        if (List().rect().contains(point) && !isRow)
        {
            List().GetSelectedRow()->ClearActiveSubItem();
            QTest::mouseClick(&List(), Qt::RightButton, {}, point);
            EXPECT_EQ(Where(), down[i]);
        }
        Key(Qt::Key_Up);
    }
    EXPECT_TRUE(m_pView->SelectAttribute(*Member(1, 2).GetChildAttributeAt(0, 0), 0));
    EXPECT_EQ(Where(), "Items, row 2, Sub, row 1, X, value 1: 3");
    List().grab();
}

TEST_F(StructView, EditsMembersAndRowsInUndoGroups)
{
    const auto select = [this](std::size_t row, std::size_t member, int item)
    { EXPECT_TRUE(m_pView->SelectAttribute(row < 9 ? Member(row, member) : Items(), item)); };
    select(1, 0, 0);
    QTest::mouseClick(&List(), Qt::LeftButton, {}, GetActivePoint()); // The second click on a value edits it.
    QWidget* field = QApplication::focusWidget();
    ASSERT_NE(dynamic_cast<QLineEdit*>(field), nullptr);
    QTest::keyClicks(field, "sack");
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(Names(), "rope sack ");
    select(9, 0, 1);
    EXPECT_TRUE(Run(ID_MOVE_UP));
    EXPECT_EQ(Shown(), "sack rope Items, row 1");
    Key(Qt::Key_Insert);
    EXPECT_EQ(Shown(), "none sack rope Items, row 1");
    List().GetSelectedRow()->SetActiveSubItem(kAddItem);
    Key(Qt::Key_Return); // The row that adds one.
    EXPECT_EQ(Shown(), "none sack rope none Items, row 4");
    select(9, 0, 1);
    EXPECT_TRUE(Run(ID_DELETE));
    EXPECT_EQ(Shown(), "none rope none Items, row 2");
    select(0, 1, 0);
    EXPECT_TRUE(Run(ID_DELETE));
    EXPECT_EQ(Member(0, 1).GetValueCount(), 0U);

    for (const char* names : {"none rope none ", "none sack rope none ", "none sack rope ", "sack rope ",
                              "rope sack ", "rope lamp "})
    {
        EXPECT_TRUE(m_Test.m_Undo.Undo(1));
        EXPECT_EQ(Names(), names);
        List().grab();
    }
    EXPECT_EQ(m_Test.m_Undo.GetUndoCount(), 0U);
    EXPECT_TRUE(m_Test.m_Undo.Redo(6));
    EXPECT_EQ(Names(), "none rope none ");
    EXPECT_EQ(Member(0, 1).GetValueCount(), 0U);
}

TEST_F(StructView, KeepsTheSelectionWithItsMemberWhereverTheRowsGo)
{
    EXPECT_TRUE(m_pView->SelectAttribute(Member(1, 0), 0));
    ASSERT_TRUE(Items().RemoveValue(0));
    EXPECT_EQ(Where(), "Items, row 1, Name, value 1: lamp");
    ASSERT_TRUE(Items().InsertRow(0));
    EXPECT_EQ(Where(), "Items, row 2, Name, value 1: lamp");
    // A member that goes while it is edited takes the editor along, and its row the selection.
    Key(Qt::Key_Return);
    EXPECT_TRUE(List().IsEditing());
    ASSERT_TRUE(Items().RemoveValue(1));
    EXPECT_EQ(Where(), "Items, row 1");
    EXPECT_FALSE(List().IsEditing());
    // A member that the struct file gains stands ahead of the one that it takes over from, in every row.
    EXPECT_TRUE(m_pView->SelectAttribute(Member(0, 1), 0));
    const int before = List().GetSelectedRow()->Measure(700);
    ASSERT_TRUE(Items().DeferDeprecateAttribute(Member(0, 1), 9));
    EXPECT_EQ(Where(), "Items, row 1, Count, value 1: 1");
    EXPECT_EQ(&List().GetSelectedRow()->GetSelectedAttribute(), &Member(0, 2));
    EXPECT_EQ(List().GetSelectedRow()->Measure(700), before + 60);
}

TEST_F(StructView, TakesLocksAndInheritanceFromTheStructAroundTheMember)
{
    EXPECT_TRUE(m_pView->SelectAttribute(Member(0, 0), 0));
    ASSERT_TRUE(Items().EditLock(true, true));
    EXPECT_FALSE(CanRun(ID_EDIT));
    ASSERT_TRUE(Items().EditLock(false, true));
    EXPECT_TRUE(CanRun(ID_EDIT));

    Show("Bags/Small");
    EXPECT_TRUE(m_pView->SelectAttribute(Member(1, 0, "Bags/Small"), 0));
    EXPECT_EQ(Where(), "Items, row 2, Name, value 1: lamp");
    EXPECT_FALSE(CanRun(ID_EDIT));
    ASSERT_TRUE(Member(1, 0).SetValue(0, u"oil")); // In the parent record.
    EXPECT_EQ(Where(), "Items, row 2, Name, value 1: oil");
    // The mark of the member makes the rows the record's own.
    const CCorvaneTypeView& member = List().GetSelectedRow()->GetSelectedView();
    QRect rect;
    List().GetItemRect(0, rect);
    QRect header = List().GetSelectedRow()->GetActiveRect(rect).translated(0, -kListRowHeight);
    QTest::mouseClick(&List(), Qt::LeftButton, {}, member.GetCellRect(header, COLUMN_REFERENCE).center());
    EXPECT_FALSE(Items("Bags/Small").GetInherit());
    EXPECT_EQ(Names("Bags/Small"), "rope oil ");
    EXPECT_TRUE(m_pView->SelectAttribute(Member(1, 0, "Bags/Small"), 0));
    EXPECT_TRUE(CanRun(ID_EDIT));
}
} // namespace
