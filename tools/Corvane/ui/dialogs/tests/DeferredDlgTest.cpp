#include "CorvaneType.h"
#include "DeferredAttribDlg.h"
#include "DeferredModifiedDlg.h"
#include "DialogDrive.h"
#include "InsertCategoryDlg.h"
#include "TestEditor.h"

#include <QComboBox>
#include <QListWidget>
#include <QTableView>
#include <QTest>

namespace
{
class DeferredDialogs : public testing::Test
{
protected:
    void SetUp() override
    {
        m_Database.Write("Schemas/Row.struct",
                         "[Attrib.Chance.5]\nType=Float\nDeleted=True\n\n"
                         "[Attrib.Chance.0]\nType=Float\n\n[Attrib.Plain.0]\nType=Integer\n");
        m_Database.AddSchema(
            "Car", "[Attrib.Mass.10]\nType=Integer\nDeleted=True\n\n[Attrib.Mass.0]\nType=Integer\n\n"
                   "[Attrib.Rows.0]\nType=Struct\nData=Row.struct\n\n"
                   "[Attrib.Speed.20]\nType=Float\n\n[Attrib.Speed.0]\nType=Float\n\n");
        m_Database.AddSchema("Armor", "");
        m_Database.AddCategory("Cars", "Car");
        m_Database.AddRecord("Cars/Bus", "Car",
                             "[Attrib.Speed]\nValue.0000=5\nModified=True\n\n[Attrib.Rows.0.0]\n");
        ASSERT_TRUE(m_Database.Open());
    }
    // Every cell, a bar behind each, a line a row.
    static std::string GetRows(const QWidget& dialog, const char* name)
    {
        const QAbstractItemModel& model = *GetChild<QTableView>(dialog, name).model();
        std::string text;
        for (int row = 0; row < model.rowCount(); ++row, text += '\n')
        {
            for (int column = 0; column < model.columnCount(); ++column)
                text += model.index(row, column).data().toString().section(u'/', -1).toStdString() + "|";
        }
        return text;
    }
    static void Find(CDeferredAttribDlg& dialog, int operation, const char* build)
    {
        GetChild<QComboBox>(dialog, "Operation").setCurrentIndex(operation);
        GetChild<QComboBox>(dialog, "Build").setEditText(QString::fromLatin1(build));
        Press(dialog, "Find");
    }

    CTestDatabase m_Database;
    CTestEditor m_Editor{m_Database};
};
} // namespace

TEST_F(DeferredDialogs, FindsAndRemovesWhatWasDeletedFromSchemasAndStructs)
{
    CDeferredAttribDlg dialog(m_Editor, nullptr);
    dialog.show();
    Find(dialog, 0, "10");
    EXPECT_EQ(GetRows(dialog, "Entries"),
              "Schema|Car|Mass|10|Integer|False|\nSchema|Car|Mass|0|Integer|False|\n"
              "Struct|Row.struct|Chance|5|Float|False|\n"
              "Struct|Row.struct|Chance|0|Float|False|\n");
    EXPECT_EQ(GetRows(dialog, "Uses"), "Bus|Mass|Integer|0|False|\nBus|Chance|Float|0|False|\n");
    auto& table = GetChild<QTableView>(dialog, "Entries");
    for (int row = 0; row < 4; ++row)
    {
        table.setCurrentIndex(table.model()->index(row, row));
        QTest::keyClick(&table, Qt::Key_Space);
    }
    m_Database.m_Gate.m_bConnected = true;
    m_Database.m_Gate.m_nGrants = 2;
    Press(dialog, "Delete");
    EXPECT_EQ(m_Database.m_Questions.Count(u"Delete Failed"), 1U);
    m_Database.m_Gate.m_nGrants = -1;
    Press(dialog, "Delete");
    EXPECT_EQ(GetRows(dialog, "Entries") + GetRows(dialog, "Uses"), "");
    EXPECT_EQ(m_Database.GetTemplateList("Car"), "Rows.0 Speed.20 Speed.0 ");
    EXPECT_TRUE(m_Database.Get().SaveDatabase({}, false));
    EXPECT_EQ(m_Database.Read("Schemas/Row.struct").find("Chance"), std::string::npos);
}

TEST_F(DeferredDialogs, ShowsUsesOpensTheirRecordsAndRemembersBuilds)
{
    CDeferredAttribDlg dialog(m_Editor, nullptr);
    dialog.show();
    for (const char* build : {"1", "2", "3", "4", "5", "6", "7", "8", "9", "3", "20"})
        Find(dialog, 1, build);
    EXPECT_EQ(GetRows(dialog, "Entries"), "Schema|Car|Speed|0|Float|True|\n");
    auto& uses = GetChild<QTableView>(dialog, "Uses");
    const QPoint row = uses.visualRect(uses.model()->index(0, 0)).center();
    QTest::mouseClick(uses.viewport(), Qt::LeftButton, {}, row);
    QTest::mouseDClick(uses.viewport(), Qt::LeftButton, {}, row);
    EXPECT_EQ(m_Editor.m_Opened, std::vector{&m_Database.Record("Cars/Bus")});
    EXPECT_EQ(CBuildHistory(m_Database.m_Profile).Load(),
              (std::vector<std::uint32_t>{20, 3, 9, 8, 7, 6, 5, 4}));
}

TEST_F(DeferredDialogs, ModifiedAttributesAreThoseOfTheBuildAndLetGoAtTheClose)
{
    EXPECT_TRUE(CDeferredModifiedDlg(m_Editor, 19, nullptr).IsEmpty());
    CDeferredModifiedDlg dialog(m_Editor, 20, nullptr);
    EXPECT_EQ(GetRows(dialog, "Attributes"), "Bus|Speed|Float|0|True|\n");
    dialog.show();
    QTest::keyClick(&GetChild<QTableView>(dialog, "Attributes"), Qt::Key_Return);
    EXPECT_EQ(m_Editor.m_Opened.size(), 1U);
    EXPECT_TRUE(dialog.isVisible());
    m_Database.Close();
    EXPECT_TRUE(dialog.IsEmpty());
}

TEST_F(DeferredDialogs, AnInsertedCategoryIsVirtualUntilASchemaIsChosen)
{
    CInsertCategoryDlg dialog(m_Database.Get(), nullptr);
    EXPECT_EQ(dialog.GetSchema(), nullptr);
    const auto user = [&]
    {
        Press(dialog, "SystemCategory");
        GetChild<QListWidget>(dialog, "Schemas").setCurrentRow(1);
        dialog.resize(700, 600);
        Press(dialog, "Ok");
    };
    EXPECT_EQ(RunModal(dialog, user), QDialog::Accepted);
    EXPECT_EQ(dialog.GetSchema(), &m_Database.Schema("Car"));
    EXPECT_EQ(CInsertCategoryDlg(m_Database.Get(), nullptr).size(), QSize(700, 600));
}
