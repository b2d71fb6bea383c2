// The views and editors of File and Sound.
#include "TypeViewTest.h"

#include <QKeyEvent>
#include <QToolButton>

namespace
{
class FileView : public CTypeViewTest
{
protected:
    FileView()
    {
        Open("[Attrib.Model.0]\nType=File\nData=Models (*.dds)|*.dds|\n[Attrib.Shot.0]\nType=Sound\n",
             "[Attrib.Model]\nValue.0000=models/a.dds\n[Attrib.Shot]\nValue.0000=shot.wav\n");
        m_Test.m_Services.m_bServe = true;
    }
    [[nodiscard]] std::u16string Root() { return m_Test.Get().GetProject().m_sResourceRoot; }
    static void Press(CViewTestList& list, const char* button)
    {
        QTest::mouseClick(list.m_pView->GetValueDialog()->findChild<QToolButton*>(button), Qt::LeftButton);
    }
};

TEST_F(FileView, BrowseStartsAtTheFileAndWritesWhatLiesBelowTheRoot)
{
    CViewTestList list(m_Editor, Attrib("Model"));
    ASSERT_NE(list.Edit(0), nullptr);
    m_Editor.m_FileDialogs.m_Answers = {Root() + u"models/b.dds", u""};
    Press(list, "Browse");
    const SFileDialog& asked = m_Editor.m_FileDialogs.m_Asked.front();
    EXPECT_EQ(asked.m_sPath, Root() + u"models/a.dds");
    EXPECT_EQ(asked.m_sFilter, u"Models (*.dds)|*.dds|");
    Press(list, "Browse"); // Cancelled.
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(Value("Model"), "models/b.dds");
    EXPECT_EQ(m_Test.m_Undo.GetUndoCount(), 1U);

    m_Editor.m_FileDialogs.m_Answers = {u"/elsewhere/c.dds"};
    list.Edit(0);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return); // Presses the button.
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(Value("Model"), "/elsewhere/c.dds");
}

TEST_F(FileView, ExecuteOpensTheFileAndPlaysTheSound)
{
    CViewTestList list(m_Editor, Attrib("Model"));
    list.Edit(0);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("typed.dds"));
    Press(list, "Execute");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    // The button of the selected row, and its key, which an inherited or locked value has too.
    list.m_pView->SetActiveSubItem(0);
    const QRect row = list.m_pView->GetSubItemRect(list.GetRect(), 0);
    QTest::mouseClick(&list, Qt::LeftButton, {}, {row.right() - 8, row.center().y()});
    EXPECT_EQ(list.m_pView->GetValueDialog(), nullptr);
    CViewTestList sound(m_Editor, Attrib("Shot"));
    sound.m_pView->SetActiveSubItem(0);
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(sound.m_pView->OnKeyDown(key), EViewUpdate::Consumed);
    const std::vector<std::u16string> expected = {u"open " + Root() + u"typed.dds",
                                                  u"open " + Root() + u"models/a.dds",
                                                  u"play " + Root() + u"shot.wav"};
    EXPECT_EQ(m_Test.m_Services.m_Calls, expected);
}
} // namespace
