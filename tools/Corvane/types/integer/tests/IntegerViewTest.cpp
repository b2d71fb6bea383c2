// The view and the editor of an Integer.
#include "ViewTestList.h"

namespace
{
constexpr const char* kSchema = "[Attrib.Armor.0]\nType=Integer\nData=min=0;max=200\nDefault=100\n"
                                "[Attrib.Costs.0]\nType=Integer\nValues=-1\nDefault=7\n";

class IntegerView : public testing::Test
{
protected:
    IntegerView()
    {
        m_Test.AddSchema("Unit", kSchema);
        m_Test.AddCategory("Units", "Unit");
        m_Test.AddRecord("Units/Tank", "Unit");
        EXPECT_TRUE(m_Test.Open());
    }

    CTestDatabase m_Test;
    CTestEditor m_Editor{m_Test};
};

// What is typed reads as the system reads numbers, inside the limits; what is only looked at stays.
TEST_F(IntegerView, TakesWhatIsTypedAsANumberWithinTheLimits)
{
    const struct
    {
        const char* m_sTyped;
        Qt::Key m_End;
        const char* m_sValue;
    } rows[] = {{"42", Qt::Key_Return, "42"}, {"7", Qt::Key_Escape, "42"}, {"900", Qt::Key_Enter, "200"},
                {"abc", Qt::Key_Return, "0"}, {"-5", Qt::Key_Return, "0"}, {" 12x", Qt::Key_Tab, "12"}};
    CViewTestList list(m_Editor, m_Test.Attrib("Units/Tank", "Armor"));
    for (const auto& row : rows)
    {
        list.Type(0, QString::fromLatin1(row.m_sTyped), row.m_End);
        EXPECT_EQ(m_Test.Value("Units/Tank", "Armor"), row.m_sValue) << row.m_sTyped;
    }
    EXPECT_EQ(m_Test.m_Undo.GetUndoCount(),
              4U); // The cancelled edit and the one that changed nothing made none.
}

TEST_F(IntegerView, AddsAValueFromTheDefaultAndKeepsATextThatNobodyTouched)
{
    CCorvaneType& costs = m_Test.Attrib("Units/Tank", "Costs");
    ASSERT_TRUE(costs.SetValue(0, u"008"));
    CViewTestList list(m_Editor, costs);
    QTest::keyClick(list.Edit(0)->findChild<QLineEdit*>("IntegerValue"), Qt::Key_Return);
    EXPECT_EQ(m_Test.Value("Units/Tank", "Costs"), "008");
    QTest::keyClick(list.Edit(kAddItem)->findChild<QLineEdit*>("IntegerValue"), Qt::Key_Return);
    EXPECT_EQ(m_Test.Value("Units/Tank", "Costs", 0, 1), "7");
    EXPECT_EQ(list.m_pView->GetActiveSubItem(), 1);
    EXPECT_EQ(list.GetRect().height(), 80);
    EXPECT_EQ(m_Test.m_Undo.GetUndoLabels().front(), u"&1 [Add]\nCosts \"7\"");
}
} // namespace
