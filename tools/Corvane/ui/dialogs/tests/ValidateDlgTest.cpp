#include "ValidateDlg.h"
#include "CorvaneType.h"
#include "DialogDrive.h"
#include "TestEditor.h"
#include "ValidateModel.h"

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QTableView>
#include <QTest>

namespace
{
class ValidateDlg : public testing::Test
{
protected:
    void SetUp() override
    {
        m_Database.AddSchema("Car",
                             "[Attrib.Gears.0]\nType=Integer\nData=min=1;max=6\nDefault=2\nValues=11\n\n");
        m_Database.AddCategory("Cars", "Car");
        for (const auto& [name, gears] : {std::pair("Bus", "11911111118"), {"ant", "17111111111"}})
        {
            std::string section = "[Attrib.Gears]\n";
            for (std::size_t i = 0; i < 11; ++i)
                section += (i < 10 ? "Value.000" : "Value.00") + std::to_string(i) + "=" + gears[i] + "\n";
            m_Database.AddRecord(std::string("Cars/") + name, "Car", section);
        }
        ASSERT_TRUE(m_Database.Open());
        m_pDialog = std::make_unique<CValidateDlg>(m_Editor, nullptr);
        m_pTable = &GetChild<QTableView>(*m_pDialog, "Findings");
        m_pDialog->show();
        Press(*m_pDialog, "Scan");
    }
    // The record and value of each row, in the order shown.
    std::string GetRows() const
    {
        std::string text;
        const CValidateModel& model = m_pDialog->GetModel();
        for (int row = 0; row < model.rowCount(); ++row)
        {
            for (const int column : {CValidateModel::RecordColumn, CValidateModel::ValueColumn})
                text += model.index(row, column).data().toString().toStdString() + " ";
        }
        return text;
    }
    void ClickHeader(int column) const
    {
        const QHeaderView& header = *m_pTable->horizontalHeader();
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                          QPoint(header.sectionViewportPosition(column) + header.sectionSize(column) / 2, 5));
    }

    CTestDatabase m_Database;
    CTestEditor m_Editor{m_Database};
    std::unique_ptr<CValidateDlg> m_pDialog;
    QTableView* m_pTable = nullptr;
};
} // namespace

TEST_F(ValidateDlg, SortsByAClickAndCopiesWhatItShows)
{
    QAbstractItemModelTester tester(&m_pDialog->GetModel());
    EXPECT_EQ(GetRows(), "Cars/ant 2 Cars/Bus 3 Cars/Bus 11 ");
    ClickHeader(CValidateModel::ValueColumn);
    ClickHeader(CValidateModel::ValueColumn);
    EXPECT_EQ(GetRows(), "Cars/Bus 11 Cars/Bus 3 Cars/ant 2 ");
    ClickHeader(CValidateModel::RecordColumn);
    EXPECT_EQ(GetRows(), "Cars/ant 2 Cars/Bus 11 Cars/Bus 3 ") << "Case does not count, equal rows stay.";
    Press(*m_pDialog, "Copy");
    const QString text = QGuiApplication::clipboard()->text();
    EXPECT_TRUE(text.startsWith(QStringLiteral("\tError\tType\tRecord\tAttribute\tValue\tDescription\n"
                                               "!\tInvalid Integer\tInteger\tCars/ant\tGears\t2\t")));
    EXPECT_LT(text.indexOf(QStringLiteral("\t11\t")), text.indexOf(QStringLiteral("\t3\t")));
}

TEST_F(ValidateDlg, SavesTheListOrTellsThatItCannot)
{
    m_Editor.m_FileDialogs.m_Answers = {m_Database.GetText("no/such/list.txt"),
                                        m_Database.GetText("list.txt")};
    for (int i = 0; i < 3; ++i)
        Press(*m_pDialog, "Save");
    EXPECT_EQ(m_Database.GetQuestion("File Open Failed"),
              "Failed to open the following file for writing.\n\n" +
                  m_Database.GetPath("no/such/list.txt").string());
    EXPECT_EQ(m_Database.Read("list.txt").substr(0, 14), "\tError\tType\tRe");
}

TEST_F(ValidateDlg, EnterOpensTheRecordAsLongAsThereIsOne)
{
    m_pTable->setCurrentIndex(m_pDialog->GetModel().index(1, 0));
    CCorvaneRecord& bus = m_Database.Record("Cars/Bus");
    QTest::keyClick(m_pTable, Qt::Key_Return);
    ASSERT_TRUE(m_Database.Get().DeleteRecord(bus, false));
    QTest::keyClick(m_pTable, Qt::Key_Return);
    EXPECT_EQ(m_Editor.m_Opened, std::vector{&bus});
    m_pDialog->grab();
    EXPECT_EQ(m_pDialog->GetModel().rowCount(), 3);
    m_Database.Close();
    EXPECT_EQ(m_pDialog->GetModel().rowCount(), 0) << "Findings outlived their database.";
}

TEST_F(ValidateDlg, AHundredThousandFindingsAndAHugeOneAreNoBurden)
{
    m_pDialog->PopulateList(nullptr);
    m_Database.m_nExpectedAsserts = 1;
    CValidateCore core(4);
    core.AddError(ESeverity::Warning, u"Odd", std::u16string(1 << 20, u'\n'), nullptr, 3);
    for (std::size_t i = 1; i < 100000; ++i)
        core.AddError(ESeverity::Critical, u"Invalid Integer", u"z", &m_Database.Attrib("Cars/Bus", "Gears"),
                      i);
    QElapsedTimer clock;
    clock.start();
    QTimer::singleShot(0, m_pDialog.get(),
                       [&]
                       {
                           for (int column = 0; column < CValidateModel::ColumnCount; ++column)
                               m_pTable->sortByColumn(column, Qt::DescendingOrder);
                           m_pDialog->grab();
                           Press(*m_pDialog, "Close");
                       });
    m_pDialog->hide();
    EXPECT_EQ(m_pDialog->DoModalFor(core, 4), QDialog::Rejected);
    EXPECT_LT(clock.elapsed(), 10000) << "Far above what a slow machine needs, far below a quadratic sort.";
    EXPECT_EQ(m_pDialog->GetModel().index(99999, CValidateModel::RecordColumn).data(), QString());
}
