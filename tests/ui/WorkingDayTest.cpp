// A designer's whole day, through the widgets that he has under his fingers.
#include "BuildDlg.h"
#include "CorvaneTreeModel.h"
#include "CorvaneType.h"
#include "NextDialog.h"
#include "QtText.h"
#include "RecordFrame.h"
#include "SampleEditor.h"
#include "TreeFiltering.h"
#include "Unicode.h"
#include "ValidateDlg.h"
#include "ValidateModel.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTableView>
#include <functional>
#include <gtest/gtest.h>
#include <map>

namespace
{
void AcceptDialog(QWidget& dialog)
{
    auto* buttons = dialog.findChild<QDialogButtonBox*>();
    ASSERT_NE(buttons, nullptr);
    for (QAbstractButton* button : buttons->buttons())
        if (buttons->buttonRole(button) == QDialogButtonBox::AcceptRole)
            return button->click();
    FAIL() << "no button accepts";
}

class WorkingDay : public testing::Test
{
protected:
    CMainFrame& Frame() { return m_Editor.Frame(); }
    CCorvaneMgr& Manager() { return m_Editor.Manager(); }

    // Every value of the database.
    std::map<std::u16string, std::vector<std::u16string>> GetValues()
    {
        std::map<std::u16string, std::vector<std::u16string>> values;
        Manager().EnumerateRecords(
            [&](CCorvaneRecord& record)
            {
                std::u16string path;
                Manager().GetRecordPath(&record, path);
                std::vector<std::u16string>& own = values[path];
                for (const CRef<CCorvaneAttrib>& attrib : record.GetAttributeList())
                    for (std::size_t i = 0; i < attrib->GetValueCount(); ++i)
                        own.emplace_back(attrib->GetValue(i));
                return true;
            });
        return values;
    }
    // The first value of each type that is the record's own, by the type's word.
    std::map<std::u16string, CCorvaneType*> FindOwnValues()
    {
        std::map<std::u16string, CCorvaneType*> found;
        Manager().EnumerateRecords(
            [&](CCorvaneRecord& record)
            {
                for (const CRef<CCorvaneAttrib>& attrib : record.GetAttributeList())
                {
                    auto& type = static_cast<CCorvaneType&>(*attrib);
                    if (type.IsEditable() && type.GetValueCount() > 0 && type.GetTypeName() != u"Struct")
                        found.try_emplace(std::u16string(type.GetTypeName()), &type);
                }
                return true;
            });
        return found;
    }
    // Edits a value as a user does who knows what the type's editor is like.
    void Edit(CCorvaneType& attrib)
    {
        const std::string before = ToNarrow(attrib.GetValue(0));
        CCorvaneRecord* record = attrib.GetParentRecord();
        ASSERT_TRUE(Frame().ShowRecord(record, true));
        Frame().activateWindow(); // A dialog of the value before may have taken that.
        Frame().ActivateList();
        ASSERT_TRUE(m_Editor.List().SelectAttribute(attrib, 0));
        const CNextDialog user(DriveDialog);
        ASSERT_TRUE(m_Editor.Run(ID_EDIT));
        if (m_Editor.List().GetList().IsEditing())
        {
            ASSERT_NE(QApplication::focusWidget(), nullptr) << ToNarrow(attrib.GetTypeName());
            DriveEditor(*QApplication::focusWidget(), before);
        }
        CSampleEditor::Settle();
        EXPECT_FALSE(m_Editor.List().GetList().IsEditing());
        EXPECT_NE(ToNarrow(attrib.GetValue(0)), before) << ToNarrow(attrib.GetTypeName());
    }
    static void DriveEditor(QWidget& field, const std::string& before)
    {
        if (auto* words = qobject_cast<QAbstractItemView*>(&field))
        {
            const bool last = words->currentIndex().row() + 1 == words->model()->rowCount();
            QTest::keyClick(words, last ? Qt::Key_Up : Qt::Key_Down);
        }
        else
        {
            QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(&field, before.starts_with("0x") ? QStringLiteral("0x7") : GetTyping(before));
        }
        QTest::keyClick(&field, Qt::Key_Return);
    }
    static QString GetTyping(const std::string& before)
    {
        return before.starts_with("1") ? QStringLiteral("2") : QStringLiteral("1");
    }
    static void DriveDialog(QWidget& dialog)
    {
        if (auto* box = dialog.findChild<QComboBox*>())
            box->setEditText(QStringLiteral("<none>"));
        else if (auto* red = dialog.findChild<QLineEdit*>(QStringLiteral("red")))
            red->setText(red->text() == QStringLiteral("17") ? QStringLiteral("18") : QStringLiteral("17"));
        AcceptDialog(dialog);
    }
    // What the user was told and asked.
    std::string GetQuestions()
    {
        std::string all;
        for (const CQuestion& question : m_Editor.m_Questions.GetQuestions())
            all += ToNarrow(question.m_sTitle) + ": " + ToNarrow(question.m_sText) + '\n';
        return all;
    }
    void PickRecord(CCorvaneRecord& record)
    {
        Frame().ActivateTree();
        ASSERT_TRUE(m_Editor.Tree().SelectRecord(record));
        CSampleEditor::Settle();
    }
    void TypeName(const char* name)
    {
        QTest::keyClicks(LabelEdit(), QString::fromUtf8(name));
        QTest::keyClick(LabelEdit(), Qt::Key_Return);
        EXPECT_TRUE(QTest::qWaitFor([this] { return LabelEdit() == nullptr; }));
        CSampleEditor::Settle();
    }
    // The field in which a row's name is typed; its whole text is selected at first.
    QLineEdit* LabelEdit() { return m_Editor.Tree().GetTree().findChild<QLineEdit*>(); }
    void Paste(const char* method)
    {
        const CNextDialog user(
            [method](QWidget& dialog)
            {
                dialog.findChild<QAbstractButton*>(QString::fromLatin1(method))->click();
                AcceptDialog(dialog);
            });
        ASSERT_TRUE(m_Editor.Run(ID_PASTE));
    }
    void Drag(const QModelIndex& from, const QModelIndex& to)
    {
        CTreeControl& tree = m_Editor.Tree().GetTree();
        tree.scrollTo(from);
        const QPoint start = tree.visualRect(from).center();
        QTest::mousePress(tree.viewport(), Qt::LeftButton, {}, start);
        QTest::mouseMove(tree.viewport(), start + QPoint(2 * QApplication::startDragDistance(), 0));
        EXPECT_TRUE(tree.IsDragging());
        EXPECT_TRUE(tree.viewport()->rect().contains(tree.visualRect(to)));
        const QPoint end = tree.visualRect(to).center();
        QTest::mouseMove(tree.viewport(), end);
        QTest::mouseRelease(tree.viewport(), Qt::LeftButton, {}, end);
        CSampleEditor::Settle();
    }

    CSampleEditor m_Editor;
};

TEST_F(WorkingDay, EditsEveryTypeTakesItBackAndDoesItAgain)
{
    const auto before = GetValues();
    const std::map<std::u16string, CCorvaneType*> values = FindOwnValues();
    EXPECT_EQ(values.size(), 16U) << "the sample has a value of every type; the three vectors are one";
    for (const auto& [word, attrib] : values)
        Edit(*attrib);
    const auto after = GetValues();
    EXPECT_EQ(m_Editor.Undo().GetUndoCount(), values.size());
    while (m_Editor.Undo().GetUndoCount() > 0)
        ASSERT_TRUE(m_Editor.Run(ID_UNDO_FIRST));
    EXPECT_TRUE(GetValues() == before);
    while (m_Editor.Undo().GetRedoCount() > 0)
        ASSERT_TRUE(m_Editor.Run(ID_REDO_FIRST));
    EXPECT_TRUE(GetValues() == after);

    ASSERT_TRUE(m_Editor.Run(ID_FILE_SAVE));
    EXPECT_EQ(GetQuestions(), "");
    m_Editor.Start();
    EXPECT_TRUE(GetValues() == after) << "what was saved comes back";
}

TEST_F(WorkingDay, FindsRenamesMovesAndCopiesRecords)
{
    QLineEdit& filter = m_Editor.Tree().GetFilterEdit();
    m_Editor.Run(ID_FOCUS_FILTER);
    QTest::keyClicks(&filter, QStringLiteral("frost"));
    m_Editor.Tree().GetFiltering().Finish();
    QTest::keyClick(&filter, Qt::Key_Down);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    CSampleEditor::Settle();
    CCorvaneRecord* frost = m_Editor.Find(u"Actors/Enemies/Hollow/Frost Runner");
    ASSERT_NE(frost, nullptr);
    EXPECT_EQ(m_Editor.Frame().GetRecord(), frost);
    filter.clear();
    CSampleEditor::Settle();

    PickRecord(*frost);
    ASSERT_TRUE(m_Editor.Run(ID_RENAME) && LabelEdit() != nullptr);
    TypeName("Snow Runner");
    EXPECT_EQ(ToNarrow(frost->GetName()), "Snow Runner") << GetQuestions();
    EXPECT_TRUE(Frame().windowTitle().contains(QStringLiteral("Snow Runner")));

    CCorvaneCategory* category = frost->GetCategory();
    CCorvaneCategory* winter = Manager().CreateVirtualRelativeCategory(category, u"Winter");
    CSampleEditor::Settle();
    auto& model = m_Editor.Tree().GetModel();
    m_Editor.Tree().GetTree().expand(model.Locate(CTreeItem(*category)));
    m_Editor.m_Questions.Prepare(u"Record Dependencies", {EAnswer::Yes}); // A wave names it.
    Drag(model.Locate(CTreeItem(*frost)), model.Locate(CTreeItem(*winter)));
    EXPECT_EQ(frost->GetCategory(), winter) << GetQuestions();

    PickRecord(*frost);
    const std::size_t records = winter->GetRecords().size();
    ASSERT_TRUE(m_Editor.Run(ID_COPY));
    Paste("Clone");
    Paste("Reference");
    ASSERT_EQ(winter->GetRecords().size(), records + 2);
    EXPECT_EQ(winter->GetRecords()[records]->GetParent(), frost->GetParent());
    EXPECT_EQ(winter->GetRecords()[records + 1]->GetParent(), frost);

    while (m_Editor.Undo().GetUndoCount() > 0)
        ASSERT_TRUE(m_Editor.Run(ID_UNDO_FIRST));
    EXPECT_EQ(ToNarrow(frost->GetName()), "Frost Runner");
}

TEST_F(WorkingDay, ValidatesJumpsToTheFindingAndCompiles)
{
    const std::map<std::u16string, CCorvaneType*> values = FindOwnValues();
    CCorvaneType& link = *values.at(u"RecordLink");
    const std::u16string before(link.GetValue(0));
    ASSERT_TRUE(link.SetValue(0, u"Nowhere/Nobody"));
    ASSERT_TRUE(m_Editor.Run(ID_VALIDATE_DATABASE));
    auto* dialog = Frame().findChild<CValidateDlg*>();
    ASSERT_NE(dialog, nullptr);
    dialog->Scan();
    auto* table = dialog->findChild<QTableView*>();
    ASSERT_GT(table->model()->rowCount(), 0);
    table->setCurrentIndex(table->model()->index(0, 1));
    table->setFocus();
    QTest::keyClick(table, Qt::Key_Return);
    CSampleEditor::Settle();
    EXPECT_EQ(Frame().GetRecordFrames().size(), 1U);

    const std::filesystem::path target = m_Editor.GetFolder() / "Game/Day.Gamdb00p";
    const CNextDialog user(
        [&](QWidget& build)
        {
            build.findChild<QComboBox*>()->setEditText(QString::fromStdString(target.string()));
            AcceptDialog(build);
        });
    ASSERT_TRUE(link.SetValue(0, before));
    m_Editor.Run(ID_COMPILE_LOCAL);
    EXPECT_TRUE(std::filesystem::exists(target)) << GetQuestions();
}

TEST_F(WorkingDay, ClosesWithAndWithoutSaving)
{
    CCorvaneRecord* frost = m_Editor.Find(u"Actors/Enemies/Hollow/Frost Runner");
    PickRecord(*frost);
    ASSERT_TRUE(m_Editor.Run(ID_RENAME) && LabelEdit() != nullptr);
    TypeName("Snow Runner");
    m_Editor.m_Questions.Prepare(u"Save Changes", {EAnswer::Cancel, EAnswer::No, EAnswer::Yes});
    EXPECT_FALSE(Frame().close());
    EXPECT_EQ(m_Editor.m_nClosed, 0);
    EXPECT_TRUE(Frame().close());
    EXPECT_EQ(m_Editor.m_nClosed, 1);

    m_Editor.Start();
    frost = m_Editor.Find(u"Actors/Enemies/Hollow/Frost Runner");
    if (frost == nullptr)
        frost = m_Editor.Find(u"Actors/Enemies/Hollow/Snow Runner");
    ASSERT_NE(frost, nullptr);
    PickRecord(*frost);
    ASSERT_TRUE(m_Editor.Run(ID_RENAME) && LabelEdit() != nullptr);
    TypeName("Sleet Runner");
    EXPECT_TRUE(Frame().close());
    m_Editor.Start();
    EXPECT_NE(m_Editor.Find(u"Actors/Enemies/Hollow/Sleet Runner"), nullptr);
    EXPECT_EQ(m_Editor.m_Questions.Count(u"Save Changes"), 3U);
}
} // namespace
