// The buttons of File and Sound.
#include "TypeViewTest.h"

TEST_F(TypeEditor, FilesAreBrowsedOpenedAndPlayed)
{
    const std::u16string root = m_Test.Get().GetProject().m_sResourceRoot;
    m_Editor.m_FileDialogs.m_Answers = {root + u"models/b.dds", u""};
    Show("Model").Edit(0);
    Press("Browse");
    Press("Browse"); // Cancelled.
    EXPECT_EQ(m_Editor.m_FileDialogs.m_Asked.front().m_sPath, root + u"models/a.dds");
    EXPECT_EQ(m_Editor.m_FileDialogs.m_Asked.front().m_sFilter, u"Models (*.dds)|*.dds|");
    Type("", Qt::Key_Return);
    EXPECT_EQ(Value("Model"), "models/b.dds");

    m_Editor.m_FileDialogs.m_Answers = {u"/elsewhere/c.dds"};
    m_pList->Edit(0);
    for (const Qt::Key key :
         {Qt::Key_Tab, Qt::Key_Return, Qt::Key_Return}) // To the button, on it, in the field.
        Type("", key);
    EXPECT_EQ(Value("Model"), "/elsewhere/c.dds");

    // By the editor, the button of a selected row, and its key.
    m_pList->Edit(0);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("typed.dds"));
    Press("Execute");
    Type("", Qt::Key_Return);
    const QRect row = m_pList->m_pView->GetSubItemRect(m_pList->GetRect(), 0);
    QTest::mouseClick(m_pList.get(), Qt::LeftButton, {}, {row.right() - 8, row.center().y()});
    Show("Shot").m_pView->SetActiveSubItem(0);
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(m_pList->m_pView->OnKeyDown(key), EViewUpdate::Consumed);
    const std::vector<std::u16string> expected = {
        u"open " + root + u"typed.dds", u"open " + root + u"typed.dds", u"play " + root + u"shot.wav"};
    EXPECT_EQ(m_Test.m_Services.m_Calls, expected);
}
