// The views and editors of values that are a few numbers: vectors and ranges.
#include "TypeViewTest.h"

namespace
{
using NumbersView = CTypeViewTest;

constexpr const char* kSchema = "[Attrib.Two.0]\nType=Vector2\n[Attrib.Four.0]\nType=Vector4\n"
                                "[Attrib.Speed.0]\nType=Range\nData=min=-2;max=10\n"
                                "[Attrib.Damage.0]\nType=Range\nData=int;min=0;max=100\nDefault=3, 4\n";
constexpr const char* kValues = "[Attrib.Two]\nValue.0000=1.0, 2.0\n[Attrib.Four]\nValue.0000=1, 2, 3, 4\n"
                                "[Attrib.Speed]\nValue.0000=1, 2\n[Attrib.Damage]\nValue.0000=1.7, 400\n";

// What the fields hold is a number within the limits as soon as they are left; Tab leads through them.
TEST_F(NumbersView, EachFieldHoldsANumberWithinItsLimits)
{
    Open(kSchema, kValues);
    const struct
    {
        const char* m_sName;
        std::vector<const char*> m_Typed; // A field each, with Tab between them.
        Qt::Key m_End;
        const char* m_sValue;
    } rows[] = {
        {"Two", {"", ""}, Qt::Key_Return, "1.0, 2.0"},
        {"Two", {"5", "x"}, Qt::Key_Return, "5.000000, 0.000000, 0.000000, 0.000000"},
        {"Four", {"9", "8", "7", "6.5e1"}, Qt::Key_Tab, "9.000000, 8.000000, 7.000000, 65.000000"},
        {"Four", {"1"}, Qt::Key_Escape, "9.000000, 8.000000, 7.000000, 65.000000"},
        {"Speed", {"-7", "12"}, Qt::Key_Return, "-2.000000, 10.000000"},
        {"Speed", {"5", "4"}, Qt::Key_Return, "5.000000, 5.000000"},
        {"Damage", {}, Qt::Key_Return, "1.000000, 100.000000"},
        {"Damage", {"7.9", "-1"}, Qt::Key_Return, "7.000000, 7.000000"},
    };
    for (const auto& row : rows)
    {
        CViewTestList list(m_Editor, Attrib(row.m_sName));
        ASSERT_NE(list.Edit(0), nullptr);
        for (std::size_t i = 0; i < row.m_Typed.size(); ++i)
        {
            if (i > 0)
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QTest::keyClicks(QApplication::focusWidget(), QString::fromLatin1(row.m_Typed[i]));
        }
        QTest::keyClick(QApplication::focusWidget(), row.m_End);
        EXPECT_EQ(list.m_pView->GetValueDialog(), nullptr);
        EXPECT_EQ(Value(row.m_sName), row.m_sValue) << row.m_sName;
    }
}

TEST_F(NumbersView, TheClickDecidesWhichFieldGetsTheCaret)
{
    Open(kSchema, kValues);
    CViewTestList list(m_Editor, Attrib("Four"));
    list.m_pView->SetActiveSubItem(0);
    QRect cell = list.m_pView->GetEditRect(list.GetRect());
    QTest::mouseClick(&list, Qt::LeftButton, {}, {cell.left() + cell.width() * 5 / 8, cell.center().y()});
    auto* field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(field->objectName(), "VectorZ");
    EXPECT_EQ(field->selectedText(), "3.000000");
}

// A range that is only looked at stays what it is, also outside its limits.
TEST_F(NumbersView, LeavingARangeUntouchedChangesNothing)
{
    Open(kSchema, kValues);
    CViewTestList list(m_Editor, Attrib("Damage"));
    CCorvaneTypeValueDlg* dialog = list.Edit(0);
    EXPECT_EQ(dialog->findChild<QLineEdit*>("RangeMin")->text(), "1");
    EXPECT_EQ(dialog->findChild<QLineEdit*>("RangeMax")->text(), "400");
    list.setFocus();
    EXPECT_EQ(list.m_pView->GetValueDialog(), nullptr);
    EXPECT_EQ(Value("Damage"), "1.7, 400");
}
} // namespace
