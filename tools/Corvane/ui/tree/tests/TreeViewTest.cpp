// The tree pane as a user meets it: keys, mouse, clipboard, filter.
#include "CommandSet.h"
#include "Commands.h"
#include "CorvaneEvent.h"
#include "CorvaneTreeModel.h"
#include "CorvaneTreeView.h"
#include "NextDialog.h"
#include "QtText.h"
#include "RecordCopyDlg.h"
#include "TestDatabase.h"
#include "TestEditor.h"
#include "TreeClipboard.h"
#include "TreeControl.h"
#include "TreeDestination.h"
#include "TreeFiltering.h"
#include "TreeMenus.h"
#include "TreeState.h"
#include "Unicode.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QRadioButton>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>
#include <tuple>

namespace
{
class CTreeViewTest : public testing::Test
{
protected:
    CTreeViewTest()
    {
        m_Database.AddSchema("Unit", "");
        m_Database.AddSchema("Item", "");
        for (const char* category : {"Units", "Units/Heroes"})
            m_Database.AddCategory(category, "Unit");
        m_Database.AddCategory("Items", "Item");
        m_Database.AddRecord("Units/Guard", "Unit", {}, "VirtualRelativeCategory=Melee\n");
        for (const char* record : {"Units/Archer", "Units/Baker", "Units/Heroes/Knight"})
            m_Database.AddRecord(record, "Unit");
        m_Database.AddRecord("Items/Sword", "Item");
        EXPECT_TRUE(m_Database.Open());
        m_Database.m_Questions.Prepare(u"Virtual Category Rename", {EAnswer::Yes});
        m_pEditor = std::make_unique<CTestEditor>(m_Database);
        m_pView = new CCorvaneTreeView(*m_pEditor, &m_pEditor->m_Window);
        auto* layout = new QVBoxLayout(&m_pEditor->m_Window);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(m_pView);
        m_pEditor->m_Window.resize(300, 400);
        m_pEditor->m_Window.show();
        m_pView->setFocus();
        for (const char* path : {"Units", "Units/Melee", "Units/Heroes", "Items"})
            Tree().expand(Index(path));
        QApplication::clipboard()->clear();
    }

    CTreeControl& Tree() const { return m_pView->GetTree(); }
    CCorvaneTreeModel& Model() const { return m_pView->GetModel(); }
    CTreeItem Item(const std::string& path) const
    {
        if (path.empty())
            return CTreeItem::MakeRoot();
        if (CCorvaneCategory* category = m_Database.Get().FindCategory(ToWide(path), nullptr))
            return CTreeItem(*category);
        CCorvaneRecord* record = m_Database.Get().FindRecord(ToWide(path), nullptr);
        return record ? CTreeItem(*record) : CTreeItem();
    }
    QModelIndex Index(const std::string& path) const { return Model().Locate(Item(path)); }
    // Selects a row without opening it.
    void Select(const std::string& path) const
    {
        const CTreeItem item = Item(path);
        if (item.IsRecord())
            EXPECT_TRUE(m_pView->SelectRecord(*item.GetRecord()));
        else if (item.IsCategory())
            EXPECT_TRUE(m_pView->SelectCategory(*item.GetCategory()));
        else
            Tree().setCurrentIndex(Index(path));
    }
    bool Run(const std::string& path, int id) const
    {
        Select(path);
        return m_pView->RunCommand(id);
    }
    bool IsEnabled(const std::string& path, int id) const
    {
        Select(path);
        SCommandState state;
        return m_pView->GetCommandState(id, state) && state.m_bEnabled;
    }
    // What is to be seen, top down, each with its depth.
    std::string Rows() const
    {
        std::string rows;
        for (QModelIndex index = Model().index(0, 0); index.isValid(); index = Tree().indexBelow(index))
        {
            int depth = 0;
            for (QModelIndex above = index.parent(); above.isValid(); above = above.parent())
                ++depth;
            rows += std::string(static_cast<std::size_t>(depth), '.') +
                    index.data().toString().toStdString() + ";";
        }
        return rows;
    }
    QLineEdit* LabelEditor() const { return Tree().viewport()->findChild<QLineEdit*>("label"); }
    void Type(const char* text) const
    {
        ASSERT_TRUE(QTest::qWaitFor([this] { return LabelEditor() != nullptr; }));
        QLineEdit* editor = LabelEditor();
        editor->selectAll();
        if (*text == '\0')
            QTest::keyClick(editor, Qt::Key_Delete);
        QTest::keyClicks(editor, text);
    }
    void Press(Qt::Key key) const
    {
        QTest::keyClick(LabelEditor(), key);
        EXPECT_TRUE(QTest::qWaitFor([this] { return LabelEditor() == nullptr; }));
        QCoreApplication::processEvents();
    }
    std::string UndoText() const
    {
        const auto labels = m_Database.m_Undo.GetUndoLabels();
        return labels.empty() ? "" : ToNarrow(labels.front());
    }
    QPoint Center(const std::string& path) const { return Tree().visualRect(Index(path)).center(); }
    // Ends with the button down over `to`.
    void Drag(const std::string& from, const std::string& to) const
    {
        QTest::mousePress(Tree().viewport(), Qt::LeftButton, {}, Center(from));
        QTest::mouseMove(Tree().viewport(), Center(from) + QPoint(20, 0));
        QTest::mouseMove(Tree().viewport(), Center(to));
    }
    void Release(const std::string& at) const
    {
        QTest::mouseRelease(Tree().viewport(), Qt::LeftButton, {}, Center(at));
    }
    void Filter(const char* text) const
    {
        m_pView->GetFilterEdit().setText(QString::fromUtf8(text));
        EXPECT_TRUE(QTest::qWaitFor([this] { return !m_pView->GetFiltering().IsBusy(); }));
        QCoreApplication::processEvents();
    }
    QString Count() const { return m_pView->findChild<QLabel*>("matches")->text(); }

    CTestDatabase m_Database;
    std::unique_ptr<CTestEditor> m_pEditor;
    CCorvaneTreeView* m_pView = nullptr;
};
} // namespace

TEST_F(CTreeViewTest, CommandsFollowTheSelection)
{
    const std::pair<const char*, const char*> rows[] = {
        {"", "Expand "},
        {"Units", "Expand New Category New Record Save Properties "},
        {"Units/Melee", "Expand New Category New Record Rename Cut Copy Save Properties "},
        {"Units/Archer", "Open New Window Rename Delete Cut Copy Quick Clone Quick Reference Validate Save "
                         "Properties "},
    };
    for (const auto& [path, enabled] : rows)
    {
        std::string names;
        for (const int id : GetTreeMenu(Item(path)))
        {
            if (id != ID_SEPARATOR && IsEnabled(path, id))
                names += ToQString(FindCommand(id)->m_sLabel).remove(u'&').toStdString() + " ";
        }
        EXPECT_EQ(names, enabled) << path;
    }
    m_Database.m_Run.Set(APP_EXPERT);
    EXPECT_TRUE(IsEnabled("", ID_NEW_CATEGORY));
    EXPECT_FALSE(IsEnabled("Units", ID_DELETE)) << "not empty";
    ASSERT_TRUE(Run("Items/Sword", ID_DELETE));
    EXPECT_TRUE(IsEnabled("Items", ID_DELETE));

    SCommandState state;
    EXPECT_TRUE(m_pView->GetCommandState(ID_SUBMIT, state));
    EXPECT_FALSE(state.m_bEnabled);
    EXPECT_EQ(state.m_sWhyNot, "Not connected to source control");
}

TEST_F(CTreeViewTest, MenuIsOfTheRowUnderTheMouse)
{
    Q_EMIT Tree().customContextMenuRequested(Center("Units/Melee"));
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(Model().GetItem(Tree().currentIndex()), Item("Units/Melee"));
    EXPECT_EQ(menu->defaultAction()->text(), "Co&llapse");
    menu->defaultAction()->trigger();
    menu->close();
    EXPECT_FALSE(Tree().isExpanded(Index("Units/Melee")));
    SCommandState state;
    EXPECT_TRUE(m_pView->GetCommandState(ID_EXPAND, state));
    EXPECT_TRUE(state.m_sLabel.isEmpty());
}

TEST_F(CTreeViewTest, KeysAndClicksOpenRecords)
{
    QTest::mouseClick(Tree().viewport(), Qt::LeftButton, {}, Center("Units/Archer"));
    QTest::keyClick(&Tree(), Qt::Key_Down);
    QTest::keyClick(&Tree(), Qt::Key_Return);
    const std::vector<CCorvaneRecord*> shown{
        Item("Units/Archer").GetRecord(), Item("Units/Baker").GetRecord(), Item("Units/Baker").GetRecord()};
    EXPECT_EQ(m_pEditor->m_Shown, shown);
    QTest::keyClick(&Tree(), Qt::Key_Tab);
    EXPECT_EQ(m_pEditor->m_sActivated, "list;");

    m_Database.m_Profile.SetInteger(u"Tree Control", u"Single.Click.Activate", 0);
    m_Database.m_Profile.SetInteger(u"Tree Control", u"Single.Click.Expand", 1);
    m_Database.m_Run.m_Settings.Notify(ESettingsEvent::General, u"");
    QTest::mouseClick(Tree().viewport(), Qt::LeftButton, {}, Center("Items/Sword"));
    EXPECT_EQ(m_pEditor->m_Shown.size(), 3U);
    QTest::mouseDClick(Tree().viewport(), Qt::LeftButton, {}, Center("Items/Sword"));
    EXPECT_EQ(m_pEditor->m_Shown.size(), 4U);
    Tree().collapse(Index("Units"));
    QTest::mouseClick(Tree().viewport(), Qt::LeftButton, {}, Center("Units"));
    EXPECT_TRUE(Tree().isExpanded(Index("Units")));

    QTest::keyClicks(&Tree(), "swo");
    EXPECT_EQ(Model().GetItem(Tree().currentIndex()), Item("Items/Sword"));
}

TEST_F(CTreeViewTest, RenamesInPlace)
{
    ASSERT_TRUE(Run("Units/Archer", ID_RENAME));
    EXPECT_FALSE(m_pEditor->GetCommandSet().AreAcceleratorsEnabled());
    Type("Zealot");
    Press(Qt::Key_Return);
    EXPECT_TRUE(m_pEditor->GetCommandSet().AreAcceleratorsEnabled());
    EXPECT_EQ(UndoText(), "&1 [Zealot]\nRenamed Record");
    EXPECT_EQ(Rows(), "Test;.Items;..Sword;.Units;..Heroes;...Knight;..Melee;...Guard;..Baker;..Zealot;");
    EXPECT_EQ(Model().GetItem(Tree().currentIndex()), Item("Units/Zealot"));

    // Nothing, the same, Escape, a taken name, another case.
    const std::tuple<const char*, Qt::Key, const char*, const char*, unsigned> cases[] = {
        {"", Qt::Key_Return, "Zealot", "", 0},
        {"Zealot", Qt::Key_Return, "Zealot", "", 0},
        {"Other", Qt::Key_Escape, "Zealot", "", 0},
        {"guard", Qt::Key_Return, "Zealot", "Error renaming record;", 0},
        {"ZEALOT", Qt::Key_Return, "ZEALOT", "", 1}};
    for (const auto& [text, key, name, titles, groups] : cases)
    {
        m_Database.m_Questions.Clear();
        const std::size_t undo = m_Database.m_Undo.GetUndoCount();
        ASSERT_TRUE(Run("Units/Zealot", ID_RENAME));
        Type(text);
        Press(key);
        EXPECT_EQ(ToNarrow(Item("Units/zealot").GetName()), name);
        EXPECT_EQ(m_Database.GetTitles(), titles);
        EXPECT_EQ(m_Database.m_Undo.GetUndoCount(), undo + groups);
    }

    ASSERT_TRUE(Run("Units/Melee", ID_RENAME));
    Type("heroes");
    Press(Qt::Key_Return);
    EXPECT_EQ(m_Database.GetTitles(), "Error renaming category;");
    EXPECT_TRUE(m_pEditor->m_Shown.empty()) << "Return was the editor's";
}

TEST_F(CTreeViewTest, SurvivesWhatGoesUnderItsHands)
{
    ASSERT_TRUE(Run("Units/Archer", ID_RENAME));
    ASSERT_TRUE(m_Database.Get().DeleteRecord(*Item("Units/Archer").GetRecord(), false));
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_pEditor->GetCommandSet().AreAcceleratorsEnabled(); }));

    ASSERT_TRUE(Run("Units/Baker", ID_CUT));
    Drag("Units/Baker", "Units/Heroes");
    EXPECT_TRUE(Tree().IsDragging());
    ASSERT_TRUE(m_Database.Get().DeleteRecord(*Item("Units/Baker").GetRecord(), false));
    EXPECT_FALSE(IsEnabled("Units/Heroes", ID_PASTE));
    QTest::mouseMove(Tree().viewport(), Center("Units"));
    EXPECT_FALSE(Tree().IsDragging());
    Release("Units");

    ASSERT_TRUE(Run("Units/Heroes/Knight", ID_RENAME));
    Type("Lost");
    m_Database.Close();
    EXPECT_EQ(Rows(), "");
    QCoreApplication::processEvents();
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_pEditor->GetCommandSet().AreAcceleratorsEnabled(); }));
}

TEST_F(CTreeViewTest, NewObjectsGetTheirNameAtOnce)
{
    ASSERT_TRUE(Run("Units", ID_NEW_RECORD));
    Type("Mage");
    Press(Qt::Key_Return);
    EXPECT_FALSE(Item("Units/Mage").IsNone());
    EXPECT_EQ(m_Database.m_Undo.GetUndoLabels().size(), 2U);
    Tree().collapse(Index("Items"));
    ASSERT_TRUE(Run("Items", ID_NEW_CATEGORY));
    Type("Old");
    EXPECT_TRUE(Tree().isExpanded(Index("Items")));
    Press(Qt::Key_Return);
    EXPECT_FALSE(Item("Items/Old").IsNone());
    ASSERT_TRUE(Run("Items/Sword", ID_QUICK_REFERENCE));
    Type("Axe");
    Press(Qt::Key_Return);
    EXPECT_EQ(Item("Items/Axe").GetRecord()->GetParent(), Item("Items/Sword").GetRecord());

    m_Database.AddRecord("Items/Bow", "Item");
    m_Database.Get().RefreshDatabase();
    QCoreApplication::processEvents();
    EXPECT_EQ(LabelEditor(), nullptr);
    EXPECT_TRUE(Index("Items/Bow").isValid());
}

TEST_F(CTreeViewTest, DestinationsAreValidByTheirDirectories)
{
    ASSERT_TRUE(m_Database.Get().CreateVirtualRelativeCategory(Item("Units/Melee").GetCategory(), u"Deep"));
    const std::tuple<const char*, const char*, bool, bool> cases[] = {
        {"Units/Archer", "Units", true, false},       {"Units/Archer", "Units/Melee", true, true},
        {"Units/Archer", "Units/Heroes", true, true}, {"Units/Archer", "Items", false, false},
        {"Units/Heroes", "Items", true, true},        {"Units/Heroes", "Units/Melee", false, false},
        {"Units/Melee", "Units/Melee", false, false}, {"Units/Melee", "Units/Melee/Deep", false, false},
        {"Units/Melee", "Units", true, false},        {"Units/Melee", "Units/Heroes", false, false},
        {"Units/Melee/Deep", "Units", true, true},    {"", "Units", false, false},
    };
    for (const auto& [source, dest, copy, cut] : cases)
    {
        const CCorvaneCategory* category = Item(dest).GetCategory();
        EXPECT_EQ(IsDestinationValid(Item(source), category, false), copy) << source << " to " << dest;
        EXPECT_EQ(IsDestinationValid(Item(source), category, true), cut) << source << " to " << dest;
    }
    STreeClipboardBlock block;
    EXPECT_FALSE(IsCompatibleClipboardFormat(block, Item("Units/Archer"), Item("Units")))
        << "another process";
    block.m_nProcess = GetThisProcess();
    EXPECT_TRUE(IsCompatibleClipboardFormat(block, Item("Units/Archer"), Item("Units/Baker")));
    EXPECT_FALSE(IsCompatibleClipboardFormat(block, CTreeItem(), Item("Units")));
    EXPECT_FALSE(IsCompatibleClipboardFormat(block, Item("Units/Archer"), Item("")));
}

TEST_F(CTreeViewTest, CutPastesOnceAndCopyStays)
{
    ASSERT_TRUE(Run("Units/Melee", ID_CUT));
    const QMimeData* data = QApplication::clipboard()->mimeData();
    EXPECT_EQ(data->data(kTreeCategoryFormat).size(), 16);
    EXPECT_EQ(data->text(), "Melee");
    EXPECT_TRUE(m_pView->GetClipboard().IsMarked(Item("Units/Melee/Guard")));
    EXPECT_FALSE(m_pView->GetClipboard().IsMarked(Item("Units")));
    QApplication::clipboard()->setText("something else");
    EXPECT_FALSE(m_pView->GetClipboard().IsMarked(Item("Units/Melee")));

    ASSERT_TRUE(Run("Units/Archer", ID_CUT));
    ASSERT_TRUE(Run("Units/Heroes", ID_PASTE));
    EXPECT_FALSE(Item("Units/Heroes/Archer").IsNone());
    EXPECT_EQ(UndoText(), "&1 [Archer]\nMoved Record");
    EXPECT_FALSE(IsEnabled("Units", ID_PASTE));

    // Into where it was cut from, by another way than the disabled command.
    ASSERT_TRUE(Run("Units/Baker", ID_CUT));
    m_pView->GetClipboard().Paste(Item("Units"));
    EXPECT_EQ(m_Database.GetQuestion("Record Paste Failed"),
              "The destination and source categories are the same.");
    EXPECT_FALSE(m_pView->GetClipboard().IsMarked(Item("Units/Baker")));

    ASSERT_TRUE(Run("Units/Baker", ID_COPY));
    const auto paste = [this](bool accept, bool reference)
    {
        const CNextDialog user(
            [accept, reference](QDialog& dialog)
            {
                ASSERT_NE(dynamic_cast<CRecordCopyDlg*>(&dialog), nullptr);
                dialog.findChildren<QRadioButton*>().at(reference ? 1 : 0)->setChecked(true);
                dialog.done(accept ? QDialog::Accepted : QDialog::Rejected);
            });
        EXPECT_TRUE(Run("Units/Heroes", ID_PASTE));
        EXPECT_TRUE(user.HasActed());
    };
    paste(false, false);
    EXPECT_TRUE(Item("Units/Heroes/Clone of Baker").IsNone());
    paste(true, false);
    EXPECT_FALSE(Item("Units/Heroes/Clone of Baker").IsNone());
    QTest::keyPress(&Tree(), Qt::Key_Shift, Qt::ShiftModifier);
    ASSERT_TRUE(Run("Units/Melee", ID_PASTE)) << "nobody is asked";
    QTest::keyRelease(&Tree(), Qt::Key_Shift);
    EXPECT_FALSE(Item("Units/Melee/Clone of Baker").IsNone());
    paste(true, true);
    EXPECT_FALSE(Item("Units/Heroes/Reference of Baker").IsNone());
    EXPECT_EQ(UndoText(), "&1 [Baker]\nCopied Record");
}

TEST_F(CTreeViewTest, DragsInsideTheTree)
{
    Drag("Units/Archer", "Items");
    EXPECT_EQ(Tree().viewport()->cursor().shape(), Qt::ForbiddenCursor);
    Release("Items");
    EXPECT_EQ(m_Database.m_Services.m_nBeeps, 1);
    EXPECT_TRUE(m_pEditor->m_Shown.empty()) << "a drag opens nothing";

    Drag("Units/Archer", "Units/Melee/Guard");
    EXPECT_EQ(Tree().viewport()->cursor().shape(), Qt::ArrowCursor);
    Release("Units/Melee/Guard");
    EXPECT_EQ(UndoText(), "&1 [Archer]\nMoved Record");
    EXPECT_EQ(Item("Units/Archer").GetParent(), Item("Units/Melee").GetCategory());

    Drag("Units", "Items");
    EXPECT_FALSE(Tree().IsDragging()) << "a system category stays";
    Release("Items");
    Drag("Units/Baker", "Units/Melee");
    QTest::keyClick(&Tree(), Qt::Key_Escape);
    Release("Units/Melee");
    EXPECT_EQ(Item("Units/Baker").GetParent(), Item("Units").GetCategory());

    m_pEditor->m_Window.resize(300, 120);
    Tree().scrollToTop();
    QTest::mousePress(Tree().viewport(), Qt::LeftButton, {}, Center("Items/Sword"));
    QTest::mouseMove(Tree().viewport(), QPoint(30, 30));
    QTest::mouseMove(Tree().viewport(), QPoint(30, Tree().viewport()->height() - 2));
    EXPECT_TRUE(QTest::qWaitFor([this] { return Tree().verticalScrollBar()->value() > 1; }));
    QTest::mouseRelease(Tree().viewport(), Qt::LeftButton, {}, QPoint(30, 30));
}

TEST_F(CTreeViewTest, FiltersAsOneTypes)
{
    Select("Units/Heroes/Knight");
    Tree().collapse(Index("Items"));
    Filter("R");
    EXPECT_EQ(Rows(), "Test;.Items;..Sword;.Units;..Heroes;..Melee;...Guard;..Archer;..Baker;");
    EXPECT_EQ(Count(), "5 matches");
    Filter("none such");
    EXPECT_EQ(Count(), "No matches");
    QTest::keyClick(&m_pView->GetFilterEdit(), Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !m_pView->GetFiltering().IsBusy(); }));
    EXPECT_EQ(Model().GetItem(Tree().currentIndex()), Item("Units/Heroes/Knight"));
    EXPECT_FALSE(Tree().isExpanded(Index("Items")));
    EXPECT_TRUE(Tree().isExpanded(Index("Units/Melee")));
    EXPECT_EQ(Count(), "");

    // Down does not wait for the timer.
    m_pView->GetFilterEdit().setText("uar");
    QTest::keyClick(&m_pView->GetFilterEdit(), Qt::Key_Down);
    EXPECT_EQ(Model().GetItem(Tree().currentIndex()), Item("Units/Melee/Guard"));
    QTest::keyClick(&m_pView->GetFilterEdit(), Qt::Key_Escape);
    EXPECT_EQ(Model().GetItem(Tree().currentIndex()), Item("Units/Melee/Guard"));
}

TEST_F(CTreeViewTest, FilterFollowsChanges)
{
    Filter("gua");
    EXPECT_EQ(Rows(), "Test;.Units;..Melee;...Guard;");
    // What was just made stays in sight, whatever it is called.
    ASSERT_TRUE(Run("Units/Melee", ID_NEW_RECORD));
    Type("Page");
    Press(Qt::Key_Return);
    EXPECT_EQ(Rows(), "Test;.Units;..Melee;...Guard;...Page;");
    EXPECT_EQ(Count(), "1 match");
    ASSERT_TRUE(m_Database.Get().RenameRecord(*Item("Items/Sword").GetRecord(), u"Guava"));
    ASSERT_TRUE(m_Database.Get().RenameRecord(*Item("Units/Guard").GetRecord(), u"Pikeman"));
    QCoreApplication::processEvents();
    EXPECT_EQ(Rows(), "Test;.Items;.Units;..Melee;...Page;");
    EXPECT_EQ(Count(), "1 match");
    m_Database.m_Undo.Undo(2);
    QCoreApplication::processEvents();
    m_Database.Close();
    EXPECT_EQ(Count(), "");
}

TEST_F(CTreeViewTest, StatesComeFromTheGate)
{
    const std::tuple<std::uint32_t, int, EControlClass> cases[] = {
        {0, 1, EControlClass::InSync},
        {FILE_FLAG_MINE, 2, EControlClass::InSync},
        {FILE_FLAG_MINE | FILE_FLAG_PENDING_ADD, 9, EControlClass::PendingAdd},
        {FILE_FLAG_SOMEBODY_ELSES, 4, EControlClass::InSync},
        {FILE_FLAG_OPEN, 2, EControlClass::InSync},
        {FILE_FLAG_OPEN | FILE_FLAG_PENDING_ADD, 9, EControlClass::PendingAdd},
        {FILE_FLAG_PENDING_ADD, 10, EControlClass::PendingAdd}};
    EXPECT_EQ(ReadStateIndex(m_Database.m_Gate, Item("Units")), 0);
    m_Database.m_Gate.m_bConnected = true;
    m_pView->RefreshState();
    for (const auto& [flags, index, controlClass] : cases)
    {
        m_Database.m_Gate.m_nFileFlags = flags;
        m_Database.Get().Notify(CCorvaneEvent(ECorvaneEvent::RecordLatest, Item("Units/Archer").GetRecord()));
        const int expected = index; // A lambda cannot take a part of a tuple.
        const auto state = [this]
        { return Index("Units/Archer").data(CCorvaneTreeModel::StateRole).toInt(); };
        EXPECT_EQ(state(), 0) << "not while painting";
        EXPECT_TRUE(QTest::qWaitFor([&] { return state() == expected; })) << flags;
        EXPECT_EQ(ReadControlClass(m_Database.m_Gate, Item("Units/Archer")), controlClass);
        EXPECT_NE(GetStateIcon(index), nullptr);
    }
    EXPECT_EQ(Index("Units/Melee").data(CCorvaneTreeModel::StateRole).toInt(), 0);
    EXPECT_EQ(ToNarrow(ReadStateTip(m_Database.m_Gate, Item("Units/Archer"), 4)),
              "Checked out by another user");
    EXPECT_EQ(ToNarrow(ReadVersionTip(m_Database.m_Gate, Item("Units/Archer"))), "Record is up to date");
}
