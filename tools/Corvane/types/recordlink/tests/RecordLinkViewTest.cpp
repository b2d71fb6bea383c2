// The view of a link, which is edited in the browser that picks a record.
#include "NextDialog.h"
#include "ViewTestList.h"
#include "recordlink/CorvaneTypeRecordLink.h"
#include "recordlink/CorvaneTypeRecordLinkValueActivateDlg.h"
#include "recordlink/RecordLinkListView.h"
#include "recordlink/RecordLinkTreeView.h"

#include <QAbstractItemModelTester>
#include <QComboBox>
#include <QCompleter>
#include <QElapsedTimer>
#include <QLabel>
#include <QTreeView>
#include <optional>

namespace
{
class RecordLinkView : public testing::Test
{
protected:
    RecordLinkView()
    {
        m_Test.AddSchema("Weapon", "[Attrib.Damage.0]\nType=Integer\n");
        m_Test.AddSchema("Unit", "[Attrib.Guns.0]\nType=RecordLink\nData=private Weapon\nValues=-1\n");
        m_Test.AddCategory("Units", "Unit");
        m_Test.AddRecord("Units/Tank", "Unit", "[Attrib.Guns]\nValue.0000=Arms/Heavy/Cannon\n");
        m_Test.AddCategory("Arms", "Unit");
        m_Test.AddCategory("Arms/Heavy", "Weapon");
        m_Test.AddCategory("Arms/Light", "Weapon");
        m_Test.AddRecord("Arms/Heavy/Cannon", "Weapon");
        m_Test.AddRecord("Arms/Heavy/Mortar", "Weapon", {}, "Comment=Lobs <b>shells</b>\n");
        m_Test.AddRecord("Arms/Light/Carbine", "Weapon");
        EXPECT_TRUE(m_Test.Open());
        m_List.emplace(m_Editor, m_Test.Attrib("Units/Tank", "Guns"));
    }

    // Edits the item and hands the open browser to `use`.
    void Edit(int item, const std::function<void(CCorvaneTypeRecordLinkValueActivateDlg&)>& use)
    {
        const CNextDialog user(
            [&](QDialog& window)
            {
                auto* dialog = dynamic_cast<CCorvaneTypeRecordLinkValueActivateDlg*>(&window);
                ASSERT_NE(dialog, nullptr);
                ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
                use(*dialog);
                if (dialog->isVisible())
                    dialog->reject();
            });
        EXPECT_EQ(m_List->Edit(item), nullptr);
        EXPECT_TRUE(user.HasActed());
    }
    static QString GetTexts(const QAbstractItemModel& model)
    {
        QStringList texts;
        for (int i = 0; i < model.rowCount(); ++i)
            texts.push_back(model.index(i, 0).data().toString());
        return texts.join(u' ');
    }
    static QString GetRows(const QDialog& dialog)
    {
        const QAbstractItemModel& model = *dialog.findChild<QTreeView*>("RecordDetails")->model();
        QStringList rows;
        for (int i = 0; i < model.rowCount(); ++i)
            rows.push_back(model.index(i, 0).data().toString() + u'|' + model.index(i, 1).data().toString());
        return rows.join(u';');
    }
    static QString GetTree(const QTreeWidgetItem& item)
    {
        QString text = item.text(0);
        for (int i = 0; i < item.childCount(); ++i)
            text += (i == 0 ? u'(' : u' ') + GetTree(*item.child(i));
        return item.childCount() == 0 ? text : text + u')';
    }
    // Types over the path and presses a key.
    static void Type(QDialog& dialog, const QString& text, Qt::Key end)
    {
        auto* line = dialog.findChild<QLineEdit*>("RecordPathEdit");
        line->clear();
        QTest::keyClicks(line, text);
        line->completer()->popup()->hide();
        QTest::keyClick(line, end);
    }

    CTestDatabase m_Test;
    CTestEditor m_Editor{m_Test};
    std::optional<CViewTestList> m_List;
};

TEST_F(RecordLinkView, BrowsesTheCategoriesThatHoldTargetsAndTakesARecord)
{
    Edit(0,
         [](QDialog& dialog)
         {
             auto* tree = dialog.findChild<QTreeWidget*>("CategoryTree");
             auto* list = dialog.findChild<QTreeView*>("RecordDetails");
             QAbstractItemModelTester tester(list->model());
             EXPECT_EQ(GetTree(*tree->topLevelItem(0)).section(u'(', 1), "Arms(Heavy Light))");
             EXPECT_EQ(tree->currentItem()->text(0), "Heavy");
             EXPECT_EQ(GetRows(dialog), "Cannon|;Mortar|Lobs <b>shells</b>");
             EXPECT_EQ(list->currentIndex().data().toString(), "Cannon");
             QTest::keyClick(list, Qt::Key_Backspace);
             EXPECT_EQ(GetRows(dialog), "Heavy|;Light|");
             EXPECT_EQ(list->currentIndex().data().toString(), "Heavy");
             QTest::keyClick(list, Qt::Key_Down);
             QTest::keyClick(list, Qt::Key_Return);
             EXPECT_EQ(GetRows(dialog), "Carbine|");
             QTest::keyClick(&dialog, Qt::Key_Left, Qt::AltModifier);
             QTest::keyClick(&dialog, Qt::Key_Left, Qt::AltModifier);
             list->sortByColumn(0, Qt::DescendingOrder);
             EXPECT_EQ(GetRows(dialog), "Mortar|Lobs <b>shells</b>;Cannon|");
             list->setCurrentIndex(list->model()->index(0, 0));
             QTest::keyClick(list, Qt::Key_Return);
         });
    EXPECT_EQ(m_Test.Value("Units/Tank", "Guns"), "Arms/Heavy/Mortar");
    EXPECT_EQ(m_Test.m_Undo.GetUndoLabels().front(), u"&1 [Modify]\nGuns \"Arms/Heavy/Mortar\"");
    EXPECT_NE(m_Test.GetPerUserFile().find("Unit@Guns_0=Arms/Heavy/Mortar"), std::string::npos);
}

TEST_F(RecordLinkView, TakesWhatIsTypedWhenItNamesARecordAndOffersWhatWasChosenBefore)
{
    const struct
    {
        const char* m_sTyped;
        Qt::Key m_End;
        const char* m_sValue;
        int m_nTold;
    } rows[] = {{"arms\\light\\CARBINE", Qt::Key_Return, "Arms/Light/Carbine", 0},
                {"Arms/Lost", Qt::Key_Return, "Arms/Light/Carbine", 1},
                {"Arms/Heavy/Mortar", Qt::Key_Escape, "Arms/Light/Carbine", 1},
                {"", Qt::Key_Return, "<none>", 1},
                {"Arms/Heavy/Mortar", Qt::Key_Return, "Arms/Heavy/Mortar", 1}};
    for (const auto& row : rows)
    {
        Edit(0, [&](QDialog& dialog) { Type(dialog, QString::fromLatin1(row.m_sTyped), row.m_End); });
        EXPECT_EQ(m_Test.Value("Units/Tank", "Guns"), row.m_sValue) << row.m_sTyped;
        EXPECT_EQ(m_Test.m_Questions.GetQuestions().size(), static_cast<std::size_t>(row.m_nTold));
    }
    EXPECT_EQ(m_Test.GetQuestion("Invalid Record"),
              "The following record does not exist and cannot be used as a RecordLink value:\n\nArms/Lost");
    Edit(kAddItem,
         [](QDialog& dialog)
         {
             EXPECT_EQ(GetTexts(*dialog.findChild<QComboBox*>("RecordPath")->model()),
                       "<none> Arms/Heavy/Mortar Arms/Light/Carbine");
             auto* line = dialog.findChild<QLineEdit*>("RecordPathEdit");
             line->selectAll();
             const std::pair<const char*, QString> completions[] = {
                 {"a", "Arms/"},
                 {"mo", "Arms/Heavy/Mortar"},
                 {"Arms/l", "Arms/Light/"},
                 {"ca", "Arms/Heavy/Cannon Arms/Light/Carbine"}};
             for (const auto& [typed, expected] : completions)
             {
                 line->selectAll();
                 QTest::keyClicks(line, QLatin1String(typed));
                 EXPECT_EQ(GetTexts(*line->completer()->model()), expected);
             }
             Type(dialog, "Units/Tank", Qt::Key_Shift);
             EXPECT_EQ(dialog.findChild<QLabel*>("RecordNote")->text(),
                       "Records of the schema 'Unit' are not valid here.");
             Type(dialog, "Arms/Heavy/Cannon", Qt::Key_Return);
         });
    EXPECT_EQ(m_Test.Value("Units/Tank", "Guns", 0, 1), "Arms/Heavy/Cannon");
}

TEST_F(RecordLinkView, FollowsTheDatabaseAndIsAtHomeInALargeOne)
{
    CCorvaneCategory& heavy = m_Test.Category("Arms/Heavy");
    for (int i = 0; i < 5000; ++i)
        ASSERT_NE(m_Test.Get().InsertRecord(&heavy), nullptr);
    Edit(0,
         [&](QDialog& dialog)
         {
             auto* list = dialog.findChild<QTreeView*>("RecordDetails");
             auto* tree = dialog.findChild<QTreeWidget*>("CategoryTree");
             QTest::keyClick(list, Qt::Key_Backspace);
             QElapsedTimer timer;
             timer.start();
             QTest::keyClick(list, Qt::Key_Return);
             list->viewport()->repaint();
             RecordProperty("milliseconds", static_cast<int>(timer.elapsed()));
             EXPECT_EQ(list->model()->rowCount(), 5002);
             ASSERT_TRUE(m_Test.Get().DeleteRecord(m_Test.Record("Arms/Heavy/Mortar"), false));
             EXPECT_TRUE(QTest::qWaitFor([&] { return list->model()->rowCount() == 5001; }));
             EXPECT_TRUE(m_Test.Get().RenameCategory(heavy, u"Big"));
             EXPECT_TRUE(QTest::qWaitFor([&] { return tree->currentItem()->text(0) == "Arms"; }));
             ASSERT_TRUE(m_Test.Get().DeleteRecord(m_Test.Record("Units/Tank"), false));
             dialog.accept(); // There is nothing left to take a value.
         });
    m_Test.Get().SetDirty(false);
}
} // namespace
