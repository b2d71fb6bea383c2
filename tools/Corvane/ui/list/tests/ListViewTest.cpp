// The attribute list as a user works with it.
#include "ListTestKit.h"
#include "QtText.h"
#include "Unicode.h"

namespace
{
using ListView = CListTestKit;

TEST_F(ListView, ShowsTheAttributesOfTheDocumentsRecordAndFollowsIt)
{
    EXPECT_EQ(Names(), "Armor Costs Speed Ammo ");
    EXPECT_FALSE(m_pView->findChild<QScrollBar*>()->isEnabled());
    m_Editor.m_Document.SetRecord(&m_Test.Record("Units/Heavy"));
    EXPECT_EQ(&Row("Armor").GetParentType(), &m_Test.Attrib("Units/Heavy", "Armor"));
    m_Editor.m_Document.SetRecord(nullptr);
    EXPECT_EQ(Names(), "");
    m_pView->grab();
}

TEST_F(ListView, SortsByAColumnInThreePhases)
{
    auto* header = m_pView->findChild<CCorvaneListViewHeader*>();
    List().SetSelection(Find("Speed"));
    const auto click = [&](EListColumn column)
    { QTest::mouseClick(header, Qt::LeftButton, {}, header->GetColumnRect(column).center()); };
    const struct
    {
        EListColumn m_Column;
        const char* m_sOrder;
    } clicks[] = {{COLUMN_NAME, "Ammo Armor Costs Speed "}, {COLUMN_NAME, "Speed Costs Armor Ammo "},
                  {COLUMN_NAME, "Armor Costs Speed Ammo "}, {COLUMN_NAME, "Ammo Armor Costs Speed "},
                  {COLUMN_TODO, "Ammo Armor Speed Costs "}, {COLUMN_EXPAND, "Ammo Armor Speed Costs "},
                  {COLUMN_TODO, "Costs Ammo Armor Speed "}};
    ASSERT_TRUE(m_Test.Attrib("Units/Tank", "Costs").EditTodo(true));
    for (const auto& step : clicks)
    {
        click(step.m_Column);
        EXPECT_EQ(Names(), step.m_sOrder);
        EXPECT_EQ(List().GetSelectedRow(), &Row("Speed"));
    }
}
} // namespace
