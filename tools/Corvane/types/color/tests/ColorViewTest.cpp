// A Color and its picker.
#include "TypeViewTest.h"

TEST_F(TypeEditor, ThePickerGivesAColour)
{
    CCorvaneTypeView& view = *Show("Tint").m_pView;
    const auto accept = [](QDialog& dialog) { dialog.accept(); };
    const auto change = [](QDialog& dialog)
    {
        dialog.findChild<QLineEdit*>("alpha")->setText(QStringLiteral("17"));
        dialog.accept();
    };
    const auto pick = [&](int item, const std::function<void(QDialog&)>& act)
    {
        const CNextDialog user(act);
        EXPECT_EQ(m_pList->Edit(item), nullptr);
    };
    pick(0, change);
    EXPECT_EQ(Value("Tint"), "17, 200, 30, 40");
    pick(1, accept);
    EXPECT_EQ(Value("Tint", 1), "128,0,90,255") << "A colour that was not changed keeps its text.";
    pick(kAddItem, accept);
    EXPECT_EQ(Value("Tint", 2), "255, 9, 8, 7");
    pick(0,
         [&](QDialog& dialog)
         {
             view.Detach(); // As when the record goes while the picker is open.
             change(dialog);
         });
    EXPECT_EQ(m_Test.m_Undo.GetUndoCount(), 2U);
}
