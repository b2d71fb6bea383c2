// The fields of vectors and ranges.
#include "TypeViewTest.h"

// What a field holds is a number within the limits as soon as it is left; Tab leads through the fields. A
// range that is only looked at stays, also outside its limits.
TEST_F(TypeEditor, NumberFieldsHoldToTheirLimits)
{
    const struct
    {
        const char* m_sName;
        std::vector<const char*> m_Typed; // A field each.
        Qt::Key m_End;
        const char* m_sValue;
    } rows[] = {
        {"Two", {""}, Qt::Key_Return, "1.0, 2.0"},
        {"Two", {"5", "x"}, Qt::Key_Return, "5.000000, 0.000000, 0.000000, 0.000000"},
        {"Four", {"9", "8", "7", "6.5e1"}, Qt::Key_Tab, "9.000000, 8.000000, 7.000000, 65.000000"},
        {"Four", {"1"}, Qt::Key_Escape, "9.000000, 8.000000, 7.000000, 65.000000"},
        {"Speed", {"-7", "12"}, Qt::Key_Return, "-2.000000, 10.000000"},
        {"Damage", {"", ""}, Qt::Key_Tab, "1.000000, 100.000000"},
        {"Damage", {"7.9", "-1"}, Qt::Key_Return, "7.000000, 7.000000"},
    };
    Show("Damage").Edit(0);
    EXPECT_EQ(Editor().findChild<QLineEdit*>("RangeMin")->text(), "1");
    m_pList->setFocus();
    EXPECT_EQ(Value("Damage"), "1.7, 400");
    for (const auto& row : rows)
    {
        Show(row.m_sName).Edit(0);
        for (std::size_t i = 0; i < row.m_Typed.size(); ++i)
            Type(row.m_Typed[i], i + 1 < row.m_Typed.size() ? Qt::Key_Tab : row.m_End);
        EXPECT_EQ(m_pList->m_pView->GetValueDialog(), nullptr);
        EXPECT_EQ(Value(row.m_sName), row.m_sValue) << row.m_sName;
    }
}

TEST_F(TypeEditor, TheClickDecidesWhichNumberGetsTheCaret)
{
    CCorvaneTypeView& view = *Show("Four").m_pView;
    view.SetActiveSubItem(0);
    const QRect cell = view.GetEditRect(m_pList->GetRect());
    QTest::mouseClick(m_pList.get(), Qt::LeftButton, {},
                      {cell.left() + cell.width() * 5 / 8, cell.center().y()});
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "VectorZ");
    EXPECT_EQ(Editor().findChild<QLineEdit*>("VectorZ")->selectedText(), "3.000000");
}
