// The view of a Color and its picker.
#include "TypeViewTest.h"

#include "color/CorvaneTypeColorDialog.h"

#include <QTimer>

namespace
{
class ColorView : public CTypeViewTest
{
protected:
    ColorView()
    {
        Open("[Attrib.Tint.0]\nType=Color\nValues=-1\nDefault=255, 9, 8, 7\n",
             "[Attrib.Tint]\nValue.0000=255, 200, 30, 40\nValue.0001=128,0,90,255\n");
    }
    // Runs the picker over an item; `act` closes it.
    void Pick(CViewTestList& list, int item, const std::function<void(CCorvaneTypeColorDialog&)>& act)
    {
        QTimer::singleShot(
            0, &list,
            [&] { act(*dynamic_cast<CCorvaneTypeColorDialog*>(QApplication::activeModalWidget())); });
        EXPECT_EQ(list.Edit(item), nullptr);
    }
};

TEST_F(ColorView, ThePickerGivesTheFourNumbers)
{
    CViewTestList list(m_Editor, Attrib("Tint"));
    const auto setAlpha = [](CCorvaneTypeColorDialog& dialog)
    {
        EXPECT_TRUE(dialog.windowTitle().contains(QStringLiteral("Tint")));
        auto* alpha = dialog.findChild<QLineEdit*>("alpha");
        ASSERT_NE(alpha, nullptr);
        alpha->selectAll();
        QTest::keyClicks(alpha, QStringLiteral("17"));
        dialog.accept();
    };
    Pick(list, 0, setAlpha);
    EXPECT_EQ(Value("Tint"), "17, 200, 30, 40");
    Pick(list, 1, [](auto& dialog) { dialog.accept(); });
    EXPECT_EQ(Value("Tint", 1), "128,0,90,255") << "A colour that was not changed keeps its text.";
    Pick(list, 1, [](auto& dialog) { dialog.reject(); });
    Pick(list, kAddItem, [](auto& dialog) { dialog.accept(); });
    EXPECT_EQ(Value("Tint", 2), "255, 9, 8, 7");
    EXPECT_EQ(list.m_pView->GetActiveSubItem(), 2);
    EXPECT_EQ(m_Test.m_Undo.GetUndoCount(), 2U);
    // The view may be dropped while the picker is open.
    Pick(list, 0,
         [&](auto& dialog)
         {
             list.m_pView->Detach();
             setAlpha(dialog);
         });
    EXPECT_EQ(m_Test.m_Undo.GetUndoCount(), 2U);
}

TEST_F(ColorView, ASwatchWithAlphaShowsTheChequerThroughTheColour)
{
    CViewTestList list(m_Editor, Attrib("Tint"));
    const QImage image = list.grab().toImage();
    const auto countColors = [&](int item)
    {
        QRect cell = list.m_pView->GetSubItemRect(list.GetRect(), item);
        list.m_pView->AdjustValueRect(cell);
        std::set<QRgb> colors;
        for (int x = cell.left() + 8; x < cell.left() + 50; ++x)
            colors.insert(image.pixel(x, cell.center().y()));
        return colors.size();
    };
    EXPECT_EQ(countColors(0), 1U);
    EXPECT_EQ(countColors(1), 2U);
}
} // namespace
