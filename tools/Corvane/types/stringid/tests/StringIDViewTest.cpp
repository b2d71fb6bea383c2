// The line of a StringID and the list below it.
#include "DropList.h"
#include "TypeViewTest.h"

#include <QListView>

TEST_F(TypeEditor, AStringIdentifierIsCompletedFromTheTable)
{
    std::filesystem::copy_file(GLOSSAR_LIBRARY, m_Test.GetPath("Text/libGlossarRuntime.so"));
    const auto* drop = Show("Title").Edit(0)->findChild<CDropList*>("dropList");
    const auto* model = drop->findChild<QListView*>()->model();
    Type("IDS_MENU_X", Qt::Key_Shift);
    EXPECT_FALSE(drop->IsOpen()) << "Nothing begins so.";
    Type("", Qt::Key_Backspace);
    ASSERT_TRUE(drop->IsOpen());
    ASSERT_EQ(model->rowCount(), 2);
    EXPECT_EQ(model->index(0, 0).data().toString(), "IDS_MENU_QUIT");
    for (const Qt::Key key :
         {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}) // The line is taken, the edit goes on.
        Type("", key);
    EXPECT_FALSE(drop->IsOpen());
    Type("", Qt::Key_Return);
    EXPECT_EQ(Value("Title"), "IDS_MENU_START");
    m_pList->Edit(0);
    Press("Clear");
    EXPECT_EQ(Value("Title"), "<none>");
}

TEST_F(TypeEditor, AMissingStringLibraryIsToldOnceAndTheEditGoesOn)
{
    m_Test.m_nExpectedAsserts = 1;
    m_Test.m_Questions.Clear();
    Show("Title").Type(0, QStringLiteral("IDS_MENU"));
    EXPECT_EQ(m_Test.GetTitles(), "GlossarRuntime.dll;");
    EXPECT_EQ(Value("Title"), "IDS_MENU");
}
