// The editor of a StringID and the list below it.
#include "DropList.h"
#include "TypeViewTest.h"

#include <QListView>
#include <QToolButton>

namespace fs = std::filesystem;

namespace
{
class StringIDView : public CTypeViewTest
{
protected:
    void OpenTable(bool hasLibrary)
    {
        m_Test.Write("Root.Gamdb00s", "[General]\nDatabase={11111111-2222-3333-4444-555555555555}\n"
                                      "StringDatabase=Text/Strings.mo\n");
        fs::create_directories(m_Test.GetPath("Text"));
        fs::copy_file(GLOSSAR_CATALOGUE, m_Test.GetPath("Text/Strings.mo"));
        if (hasLibrary)
            fs::copy_file(GLOSSAR_LIBRARY, m_Test.GetPath("Text/libGlossarRuntime.so"));
        Open("[Attrib.Title.0]\nType=StringID\n");
    }
    static void Type(const char* text)
    {
        QTest::keyClicks(QApplication::focusWidget(), QString::fromLatin1(text));
    }
    static void Key(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
};

TEST_F(StringIDView, TheListCompletesWhatIsTyped)
{
    OpenTable(true);
    CViewTestList list(m_Editor, Attrib("Title"));
    auto* drop = list.Edit(0)->findChild<CDropList*>();
    const auto* model = drop->findChild<QListView*>()->model();
    EXPECT_FALSE(drop->IsOpen());
    EXPECT_EQ(drop->GetDropHeight(), 200);
    Type("IDS_MENU_");
    ASSERT_TRUE(drop->IsOpen());
    ASSERT_EQ(model->rowCount(), 2);
    EXPECT_EQ(model->index(0, 0).data().toString(), "IDS_MENU_QUIT");
    Type("X");
    EXPECT_FALSE(drop->IsOpen()) << "Nothing begins so.";
    Key(Qt::Key_Backspace);
    ASSERT_TRUE(drop->IsOpen());
    Key(Qt::Key_Down);
    Key(Qt::Key_Down);
    Key(Qt::Key_Return); // Takes the line of the list; the edit goes on.
    EXPECT_FALSE(drop->IsOpen());
    ASSERT_NE(list.m_pView->GetValueDialog(), nullptr);
    Key(Qt::Key_Return);
    EXPECT_EQ(Value("Title"), "IDS_MENU_START");
    list.Edit(0);
    QTest::mouseClick(list.m_pView->GetValueDialog()->findChild<QToolButton*>("Clear"), Qt::LeftButton);
    EXPECT_EQ(Value("Title"), "<none>");
    list.Type(0, QStringLiteral("IDS_X"));
    list.Edit(0);
    Key(Qt::Key_Delete);
    Key(Qt::Key_Return);
    EXPECT_EQ(Value("Title"), "<none>") << "An empty line is no identifier.";
}

TEST_F(StringIDView, AMissingLibraryIsToldOnceAndTheEditGoesOn)
{
    OpenTable(false);
    m_Test.m_nExpectedAsserts = 1;
    CViewTestList list(m_Editor, Attrib("Title"));
    list.Type(0, QStringLiteral("IDS_MENU"));
    EXPECT_EQ(m_Test.GetTitles(), "GlossarRuntime.dll;");
    EXPECT_EQ(Value("Title"), "IDS_MENU");
}
} // namespace
