// The main window and the windows of records over a real database.
#include "CommandSet.h"
#include "Commands.h"
#include "CorvaneType.h"
#include "IconSet.h"
#include "MainFrame.h"
#include "NextDialog.h"
#include "ProgressDlg.h"
#include "QtText.h"
#include "RecordFrame.h"
#include "TestEditor.h"
#include "WindowPump.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QDropEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QStatusBar>
#include <QTest>
#include <QToolBar>
#include <chrono>
#include <gtest/gtest.h>

namespace
{
class CFrameTest : public ::testing::Test
{
protected:
    CFrameTest()
    {
        m_Database.AddSchema("Thing", "[Attrib.Count.0]\nType=Integer\nData=min=0;max=10\n");
        m_Database.AddCategory("Things", "Thing");
        for (const char* name : {"Things/One", "Things/Two", "Things/Three"})
            m_Database.AddRecord(name, "Thing", "[Attrib.Count]\nValue.0000=3\n");
        EXPECT_TRUE(m_Database.Open());
        m_pFrame->show();
        m_pFrame->m_OnClosed = [this] { ++m_nClosed; };
    }
    ~CFrameTest() override
    {
        m_pFrame.reset();
        m_App.m_Document.OnCloseDocument();
    }
    CMainFrame& Frame() { return *m_pFrame; }
    CCorvaneMgr& Manager() { return m_Database.Get(); }
    std::string Title() { return Frame().windowTitle().toStdString(); }
    bool Run(int id)
    {
        const bool ran = Frame().GetCommandSet().Run(id);
        QCoreApplication::processEvents();
        return ran;
    }
    // True when the command has asked in a dialog.
    bool RunWithDialog(int id, bool agree)
    {
        const CNextDialog user([agree](QDialog& dialog) { agree ? dialog.accept() : dialog.reject(); });
        EXPECT_TRUE(Run(id));
        return user.HasActed();
    }
    void AddGroups(int count)
    {
        for (int i = 0; i < count; ++i)
        {
            ASSERT_TRUE(m_Database.m_Undo.BeginGroup(__FILE__, __LINE__));
            m_Database.m_Undo.AcceptGroup(u"[One]\tStep " + ToText(QString::number(i)));
        }
    }
    // Titles of the windows of records.
    std::string Records()
    {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        std::string all;
        for (const CRecordFrame* frame : Frame().GetRecordFrames())
            all += frame->windowTitle().toStdString() + ';';
        return all;
    }
    static std::string List(const QMenu& menu)
    {
        std::string all;
        for (const QAction* action : menu.actions())
            all += action->text().toStdString() + (action->isEnabled() ? ";" : " (disabled);");
        return all;
    }
    QMenu& OpenMenu(const char* name)
    {
        auto* menu = Frame().findChild<QMenu*>(QString::fromLatin1(name));
        Q_EMIT menu->aboutToShow();
        return *menu;
    }

    CTestDatabase m_Database;
    CTestEditor m_App{m_Database};
    CWindowPump m_Pump;
    std::unique_ptr<CMainFrame> m_pFrame = std::make_unique<CMainFrame>(m_App, m_Pump, m_App.m_FileDialogs);
    int m_nClosed = 0;
};
} // namespace

TEST_F(CFrameTest, TitlesFollowTheRecord)
{
    EXPECT_EQ(Title(), "Test - Corvane");
    EXPECT_FALSE(Frame().ShowRecord(nullptr, true));
    EXPECT_TRUE(Frame().ShowRecord(&m_Database.Record("Things/One"), true));
    EXPECT_EQ(Title(), "Test - Corvane - [Things/One]");
    EXPECT_TRUE(Manager().RenameRecord(m_Database.Record("Things/One"), u"*"));
    EXPECT_EQ(Title(), "Test - Corvane - [Things/*]");
    EXPECT_TRUE(Frame().OpenRecordFrame(&m_Database.Record("Things/Two"), true));
    EXPECT_EQ(Records(), "Test - Record - [Things/Two];");
    EXPECT_TRUE(Manager().DeleteRecord(*Frame().GetRecord(), false));
    EXPECT_EQ(Records(), "Test - Record - [Things/Two];");
    EXPECT_EQ(Title(), "Test - Corvane");
    EXPECT_TRUE(Manager().DeleteRecord(m_Database.Record("Things/Two"), false));
    EXPECT_EQ(Records(), "");
    m_Database.Close();
    EXPECT_EQ(Title(), "Corvane");
}

TEST_F(CFrameTest, UndoListsHaveEighteenEntriesAndRunToTheChosenOne)
{
    EXPECT_EQ(List(OpenMenu("undoMenu")), "[none] (disabled);");
    EXPECT_FALSE(Run(ID_UNDO_FIRST));
    AddGroups(30);
    QMenu& undo = OpenMenu("undoMenu");
    ASSERT_EQ(undo.actions().size(), 18);
    EXPECT_EQ(undo.actions().at(0)->text(), QStringLiteral("&1 [One]\nStep 29"));
    EXPECT_EQ(undo.actions().at(9)->text(), QStringLiteral("10 [One]\nStep 20"));
    EXPECT_EQ(undo.actions().at(9)->statusTip(), QStringLiteral("Undo all actions up to this point"));
    undo.actions().at(2)->trigger();
    EXPECT_EQ(m_Database.m_Undo.GetUndoCount(), 27U);
    EXPECT_EQ(OpenMenu("redoMenu").actions().size(), 3);
    EXPECT_TRUE(Run(ID_UNDO_FIRST));
    OpenMenu("redoMenu").actions().at(3)->trigger();
    EXPECT_EQ(m_Database.m_Undo.GetUndoCount(), 30U);
}

TEST_F(CFrameTest, FramesShareTheDocumentOfARecord)
{
    CCorvaneRecord& one = m_Database.Record("Things/One");
    CCorvaneRecord& two = m_Database.Record("Things/Two");
    EXPECT_TRUE(Frame().ShowRecord(&one, true));
    EXPECT_TRUE(Frame().OpenRecordFrame(&one, true));
    EXPECT_EQ(m_Database.GetTitles(), "") << "only a window of its own counts as open";
    m_Database.m_Questions.Prepare(u"Duplicate Record Instances",
                                   {EAnswer::No, EAnswer::Cancel, EAnswer::Yes});
    for (const std::size_t frames : {1U, 1U, 2U})
    {
        EXPECT_TRUE(Frame().OpenRecordFrame(&one, true));
        EXPECT_EQ(Frame().GetRecordFrames().size(), frames);
    }
    // The main window goes on to another record; the others keep theirs, and its document.
    EXPECT_TRUE(Frame().ShowRecord(&two, true));
    EXPECT_EQ(Records(), "Test - Record - [Things/One];Test - Record - [Things/One];");
    EXPECT_EQ(one.GetDocument(), Frame().GetRecordFrames().front()->GetDocument().get());
    EXPECT_NE(one.GetDocument(), two.GetDocument());
    EXPECT_TRUE(Frame().ShowRecord(&one, true));
    EXPECT_EQ(two.GetDocument(), nullptr);
    EXPECT_EQ(one.GetDocument(), Frame().GetDocument().get());
    for (CRecordFrame* frame : Frame().GetRecordFrames())
        frame->close();
    EXPECT_EQ(Records(), "");
    EXPECT_EQ(Frame().GetRecord(), &one);
    EXPECT_TRUE(Frame().OpenRecordFrame(&two, true));
    Manager().SetDirty(false);
    EXPECT_TRUE(Manager().CloseDatabase());
    EXPECT_EQ(Records(), "");
    EXPECT_FALSE(Run(ID_FILE_SAVE));
    EXPECT_TRUE(m_Database.Open());
}

TEST_F(CFrameTest, ClosingAsksSavesAndKeepsThePlaceOfThings)
{
    auto* view = Frame().findChild<QToolBar*>(QStringLiteral("viewBar"));
    EXPECT_TRUE(Run(ID_BAR_VIEW));
    EXPECT_TRUE(view->isHidden());
    EXPECT_TRUE(Frame().OpenRecordFrame(&m_Database.Record("Things/One"), true));
    EXPECT_TRUE(m_Database.Attrib("Things/One", "Count").SetValue(0, u"7"));
    m_Database.Record("Things/One").SetModified(true);
    AddGroups(1);
    m_Database.m_Questions.Prepare(u"Save Changes", {EAnswer::Cancel, EAnswer::Yes});
    EXPECT_FALSE(Frame().close());
    EXPECT_EQ(Frame().GetRecordFrames().size(), 1U);
    {
        // A wish to close in the middle of work ends the work and nothing else.
        CProgressDlg box(QStringLiteral("Work"), nullptr);
        m_Pump.Add(box);
        EXPECT_FALSE(Frame().close());
        EXPECT_TRUE(box.IsCancelled());
        EXPECT_FALSE(Run(ID_FILE_SAVE));
    }
    EXPECT_EQ(m_Database.m_Questions.Count(u"Save Changes"), 1U);
    EXPECT_TRUE(Frame().close());
    EXPECT_EQ(m_nClosed, 1);
    EXPECT_EQ(Records(), "");
    EXPECT_NE(m_Database.Read("Things/One.record").find("Value.0000=7"), std::string::npos);

    m_pFrame = std::make_unique<CMainFrame>(m_App, m_Pump, m_App.m_FileDialogs);
    Frame().show();
    EXPECT_TRUE(Frame().findChild<QToolBar*>(QStringLiteral("viewBar"))->isHidden());
    m_Database.m_Undo.Clear();
    Manager().SetDirty(false);
    EXPECT_TRUE(Frame().close()) << "nothing is asked where nothing changed";
    EXPECT_EQ(m_Database.m_Questions.Count(u"Save Changes"), 2U);
}

TEST_F(CFrameTest, ExpertModeIsWarnedAboutAndTheBuildIsShown)
{
    const auto toggle = [&](bool agree)
    {
        const bool asked = RunWithDialog(ID_EXPERT_MODE, agree);
        return std::string(asked ? "asked " : "") + (m_Database.m_Run.Test(APP_EXPERT) ? "expert" : "simple");
    };
    EXPECT_EQ(toggle(false), "asked simple");
    EXPECT_EQ(toggle(true), "asked expert");
    EXPECT_TRUE(Frame().GetCommandSet().Get(ID_EXPERT_MODE).isChecked());
    EXPECT_EQ(toggle(true), "simple");
    auto* pane = Frame().findChild<QLabel*>(QStringLiteral("buildPane"));
    EXPECT_EQ(pane->text(), QStringLiteral("Build   0"));
    Manager().SetActiveBuild(12);
    EXPECT_EQ(pane->text(), QStringLiteral("Build  12"));
    QWidget* balloon = Frame().findChild<QWidget*>(QStringLiteral("balloon"));
    ASSERT_NE(balloon, nullptr);
    EXPECT_EQ(balloon->accessibleDescription(), QStringLiteral("The active build number has changed."));
    QTest::mouseClick(balloon, Qt::LeftButton);
    const CStateScope settings(m_Database.m_Run, APP_SETTINGS);
    Manager().SetActiveBuild(13);
    EXPECT_EQ(pane->text(), QStringLiteral("Build  13"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Frame().findChild<QWidget*>(QStringLiteral("balloon")), nullptr);
}

TEST_F(CFrameTest, RootFilesComeFromADialogADropAndTheList)
{
    const std::u16string root = Manager().GetRootFilePath();
    m_App.m_FileDialogs.m_Answers = {root};
    EXPECT_TRUE(Run(ID_FILE_OPEN));
    EXPECT_EQ(m_App.m_FileDialogs.m_Asked.back().m_sFilter,
              u"Game Database Root Files (*.Gamdb00s)|*.Gamdb00s|All Files (*.*)|*.*|");
    EXPECT_TRUE(Manager().IsOpen());

    const auto drop = [&](std::u16string_view path)
    {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(ToQString(path))});
        QDragEnterEvent enter(QPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&Frame(), &enter);
        QDropEvent event(QPointF(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&Frame(), &event);
        QCoreApplication::processEvents();
        return enter.isAccepted();
    };
    EXPECT_FALSE(drop(u"/some/notes.txt"));
    EXPECT_TRUE(drop(u"/none/There.GAMDB00S"));
    EXPECT_EQ(m_Database.GetTitles(), "Open Failed;");
    EXPECT_TRUE(Manager().IsOpen()) << "a file that is not there leaves the open database alone";
    // One that cannot be loaded leaves an empty window, which can be used.
    m_Database.WriteBytes("Bad.Gamdb00s", "x");
    EXPECT_TRUE(drop(m_Database.GetText("Bad.Gamdb00s")));
    EXPECT_EQ(m_Database.GetTitles(), "Open Failed;Invalid Game Database Root File;");
    EXPECT_EQ(Title(), "Corvane");
    EXPECT_FALSE(Run(ID_FILE_SAVE));
    EXPECT_TRUE(drop(root));
    EXPECT_EQ(Title(), "Test - Corvane");

    m_App.m_RecentFiles.Add(u"/none/A&B.Gamdb00s");
    m_App.m_RecentFiles.Add(root);
    EXPECT_NE(List(OpenMenu("fileMenu")).find(";&2 /none/A&&B.Gamdb00s;"), std::string::npos);
    m_Database.m_Questions.Prepare(u"Open Failed", {EAnswer::No, EAnswer::Yes});
    for (const std::size_t left : {2U, 1U})
    {
        OpenMenu("fileMenu");
        Frame().findChild<QAction*>(QStringLiteral("recent2"))->trigger();
        EXPECT_EQ(m_App.m_RecentFiles.GetFiles().size(), left);
    }
}

// A step that hangs must not hold the user: a cancel ends the wait.
TEST_F(CFrameTest, ACompileGoesThroughItsDialogAndACancelEndsTheWaitForAStep)
{
    m_Database.Close();
    // It ends with its directory at the latest: a step that nobody waits for keeps the test's output open.
    m_Database.m_Scratch.WriteBytes("program/step",
                                    "#!/bin/sh\nwhile [ ! -e go ] && [ -e step ]; do sleep 0.01; done\n");
    std::filesystem::permissions(m_Database.m_Scratch.GetPath() / "program/step",
                                 std::filesystem::perms::owner_all);
    m_Database.m_Scratch.WriteBytes("Game/Game.proj00",
                                    "[Project Binaries]\nGameDatabase=" CREATOR_LIBRARY "\n");
    m_Database.Write("Root.Gamdb00s", "[General]\nName=Test\nBuild=Packed.Gamdb00p\n"
                                      "Database={11111111-2222-3333-4444-555555555555}\n"
                                      "PostBuildStep=step\n");
    ASSERT_TRUE(m_Database.Open());
    m_Database.m_Questions.m_bWindow = true;
    m_Database.m_Questions.m_Cancel = [](std::u16string_view text)
    { return text == u"Performing Post Build Step..."; };
    const auto compile = [&](bool agree)
    {
        const auto before = std::chrono::steady_clock::now();
        EXPECT_TRUE(RunWithDialog(ID_COMPILE_LOCAL, agree));
        EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(20));
        return std::filesystem::exists(m_Database.GetPath("Packed.Gamdb00p"));
    };
    EXPECT_FALSE(compile(false));
    EXPECT_TRUE(compile(true));
    EXPECT_EQ(m_Database.GetTitles(), "");
    EXPECT_EQ(Frame().statusBar()->currentMessage(), QStringLiteral("The database has been compiled."));
    m_Database.m_Scratch.WriteBytes("program/go", "");
    m_Database.m_Questions.m_Cancel = [](std::u16string_view text)
    { return text == u"Compiling Records..."; };
    EXPECT_TRUE(compile(true));
    EXPECT_EQ(m_Database.GetTitles(), "Compile Error;");
}

TEST_F(CFrameTest, EveryCommandHasItsIconAndSaysWhyItIsNotThere)
{
    EXPECT_TRUE(Frame().ShowRecord(&m_Database.Record("Things/One"), true));
    for (const SCommand& command : GetCommands())
    {
        const bool drawn = *command.m_sIcon == '\0' || !GetIcon(command.m_sIcon).isNull();
        EXPECT_TRUE(drawn) << command.m_sIcon;
        const bool list = command.m_nId == ID_UNDO_FIRST || command.m_nId == ID_REDO_FIRST;
        SCommandState state;
        const bool silent = Frame().GetCommandState(command.m_nId, state) && !state.m_bEnabled && !list &&
                            state.m_sWhyNot.isEmpty();
        EXPECT_FALSE(silent) << ToQString(command.m_sLabel).toStdString();
    }
    EXPECT_EQ(Frame().GetCommandSet().Get(ID_FIND_TEXT).toolTip(),
              QStringLiteral("This comes with a later version."));
}
