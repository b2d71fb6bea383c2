// The list of an Effect.
#include "TypeViewTest.h"

#include <QListView>

TEST_F(TypeEditor, AnEffectIsChosenFromTheList)
{
    const CCorvaneType& burns = m_Test.Attrib("Units/Tank", "Burns");
    Show("Burns").Type(0, QStringLiteral("fo"));
    EXPECT_EQ(Value("Burns"), "Fog");
    const auto* names = m_pList->Edit(1)->findChild<QListView*>("EffectValue");
    EXPECT_EQ(names->currentIndex().data().toString(), "Fire");
    QTest::mouseClick(names->viewport(), Qt::LeftButton, {},
                      names->visualRect(names->model()->index(0, 0)).center());
    EXPECT_EQ(burns.GetOwnValues().Get(1), u"");
    m_pList->Edit(kAddItem);
    Type("", Qt::Key_Return);
    EXPECT_EQ(burns.GetOwnValues().Get(2), u"") << "No effect is stored as nothing.";
}
