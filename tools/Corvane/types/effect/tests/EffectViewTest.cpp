// The view and the list of an Effect.
#include "EffectBytes.h"
#include "TypeViewTest.h"

#include <QListView>

namespace
{
using EffectView = CTypeViewTest;

TEST_F(EffectView, AChoiceFromTheListCommits)
{
    m_Test.m_Scratch.WriteBytes("Game/Data/VisualFX/a.Fx00p", MakeEffectFile({"Smoke", "Fire", "Fog"}));
    Open("[Attrib.Burns.0]\nType=Effect\nValues=-1\n", "[Attrib.Burns]\nValue.0000=gone\nValue.0001=FIRE\n");
    CViewTestList list(m_Editor, Attrib("Burns"));
    list.Edit(0);
    list.setFocus(); // A value that is not listed stays when nothing is chosen.
    EXPECT_EQ(Value("Burns"), "gone");
    list.Type(0, QStringLiteral("fo"));
    EXPECT_EQ(Value("Burns"), "Fog");
    auto* names = list.Edit(1)->findChild<QListView*>("EffectValue");
    EXPECT_EQ(names->currentIndex().data().toString(), "Fire");
    QTest::mouseClick(names->viewport(), Qt::LeftButton, {},
                      names->visualRect(names->model()->index(0, 0)).center());
    EXPECT_EQ(list.m_pView->GetValueDialog(), nullptr);
    EXPECT_EQ(Attrib("Burns").GetOwnValues().Get(1), u"");
    QTest::keyClick(list.Edit(kAddItem)->findChild<QListView*>("EffectValue"), Qt::Key_Return);
    EXPECT_EQ(Attrib("Burns").GetOwnValues().Get(2), u"");
    EXPECT_EQ(m_Test.m_Undo.GetUndoCount(), 3U);
}
} // namespace
