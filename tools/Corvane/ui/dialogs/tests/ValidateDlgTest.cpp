#include "ValidateDlg.h"
#include "CorvaneType.h"
#include "DialogDrive.h"
#include "QtText.h"
#include "TestEditor.h"
#include "UndoScope.h"
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
                             "[Attrib.Gears.0]\nType=Integer\nData=min=1;max=6\nDefault=2\nValues=11\n\n"
                             "[Attrib.Link.0]\nType=RecordLink\nData=Cars\nDefault=\n\n");
        m_Database.AddCategory("Cars", "Car");
        m_Database.AddRecord("Cars/Bus", "Car", MakeGears("11911111118"));
        m_Database.AddRecord("Cars/ant", "Car", MakeGears("17111111111"));
        ASSERT_TRUE(m_Database.Open());
        m_pDialog = std::make_unique<CValidateDlg>(m_Editor, nullptr);
    }
    static std::string MakeGears(const std::string& values)
    {
        std::string text = "[Attrib.Gears]\n";
        for (std::size_t i = 0; i < values.size(); ++i)
            text += (i < 10 ? "Value.000" : "Value.00") + std::to_string(i) + "=" + values[i] + "\n";
        return text;
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
    QTableView& GetTable() const { return GetChild<QTableView>(*m_pDialog, "Findings"); }
    void ClickHeader(int column) const
    {
        QHeaderView& header = *GetTable().horizontalHeader();
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                          QPoint(header.sectionViewportPosition(column) + header.sectionSize(column) / 2, 5));
    }

    CTestDatabase m_Database;
    CTestEditor m_Editor{m_Database};
    std::unique_ptr<CValidateDlg> m_pDialog;
};
} // namespace

TEST_F(ValidateDlg, SortsByAClickAndCopiesWhatItShows)
{
    QAbstractItemModelTester tester(&m_pDialog->GetModel(),
                                    QAbstractItemModelTester::FailureReportingMode::Fatal);
    m_pDialog->show();
    Press(*m_pDialog, "Scan");
    EXPECT_EQ(GetRows(), "Cars/ant 2 Cars/Bus 3 Cars/Bus 11 ");
    ClickHeader(CValidateModel::ValueColumn);
    ClickHeader(CValidateModel::ValueColumn);
    EXPECT_EQ(GetRows(), "Cars/Bus 11 Cars/Bus 3 Cars/ant 2 ");
    EXPECT_EQ(GetTable().horizontalHeader()->sortIndicatorOrder(), Qt::DescendingOrder);
    ClickHeader(CValidateModel::RecordColumn);
    EXPECT_EQ(GetRows(), "Cars/ant 2 Cars/Bus 11 Cars/Bus 3 ") << "Case does not count, equal rows stay.";
    Press(*m_pDialog, "Copy");
    const QString text = QGuiApplication::clipboard()->text();
    EXPECT_TRUE(text.startsWith(QStringLiteral("\tError\tType\tRecord\tAttribute\tValue\tDescription\n"
                                               "!\tInvalid Integer\tInteger\tCars/ant\tGears\t2\t")))
        << text.toStdString();
    EXPECT_LT(text.indexOf(QStringLiteral("\t11\t")), text.indexOf(QStringLiteral("\t3\t")));
    Press(*m_pDialog, "Scan");
    EXPECT_EQ(GetRows(), "Cars/ant 2 Cars/Bus 3 Cars/Bus 11 ") << "A scan keeps the column of the order.";
}

TEST_F(ValidateDlg, SavesTheListOrTellsThatItCannot)
{
    m_pDialog->show();
    m_pDialog->Scan();
    m_Editor.m_FileDialogs.m_Answers = {m_Database.GetText("no/such/list.txt"),
                                        m_Database.GetText("list.txt")};
    Press(*m_pDialog, "Save");
    EXPECT_EQ(m_Database.GetQuestion("File Open Failed"),
              "Failed to open the following file for writing.\n\n" +
                  m_Database.GetPath("no/such/list.txt").string());
    Press(*m_pDialog, "Save");
    EXPECT_EQ(m_Database.Read("list.txt").substr(0, 14), "\tError\tType\tRe");
    Press(*m_pDialog, "Save");
    EXPECT_EQ(m_Editor.m_FileDialogs.m_Asked.size(), 3U);
}

TEST_F(ValidateDlg, EnterOpensTheRecordAsLongAsThereIsOne)
{
    m_pDialog->show();
    m_pDialog->Scan();
    GetTable().setCurrentIndex(m_pDialog->GetModel().index(1, 0));
    QTest::keyClick(&GetTable(), Qt::Key_Return);
    ASSERT_EQ(m_Editor.m_Opened.size(), 1U);
    EXPECT_EQ(m_Editor.m_Opened[0], &m_Database.Record("Cars/Bus"));
    ASSERT_TRUE(m_Database.Get().DeleteRecord(m_Database.Record("Cars/Bus"), false));
    QTest::keyClick(&GetTable(), Qt::Key_Return);
    EXPECT_EQ(m_Editor.m_Opened.size(), 1U);
    EXPECT_EQ(m_pDialog->GetModel().rowCount(), 3);
    m_pDialog->grab();
    m_Database.Close();
    EXPECT_EQ(m_pDialog->GetModel().rowCount(), 0) << "Findings outlived their database.";
}

TEST_F(ValidateDlg, TakesNullForAMistakeAndRunsOverACopy)
{
    m_pDialog->PopulateList(nullptr);
    m_Database.m_nExpectedAsserts = 1;
    CValidateCore core(4);
    core.AddError(ESeverity::Warning, u"Odd", u"first\nsecond", nullptr, 3);
    QTimer::singleShot(0, m_pDialog.get(), [this] { Press(*m_pDialog, "Close"); });
    EXPECT_EQ(m_pDialog->DoModalFor(core, 4), QDialog::Rejected);
    EXPECT_EQ(GetRows(), "  ");
    EXPECT_EQ(m_pDialog->GetModel().index(0, CValidateModel::DescriptionColumn).data().toString(),
              QStringLiteral("first second"));
}

TEST_F(ValidateDlg, AHundredThousandFindingsAreNoBurden)
{
    CValidateCore core;
    CCorvaneType& gears = m_Database.Attrib("Cars/Bus", "Gears");
    const std::u16string huge(1 << 20, u'x');
    core.AddError(ESeverity::Critical, u"Huge", huge, &gears, 0);
    for (std::size_t i = 1; i < 100000; ++i)
        core.AddError(i % 3 == 0 ? ESeverity::Critical : ESeverity::Warning, u"Invalid Integer",
                      u"The value is not within the valid range.", &gears, i);
    QElapsedTimer clock;
    clock.start();
    m_pDialog->PopulateList(&core);
    m_pDialog->show();
    m_pDialog->grab();
    RecordProperty("show_ms", static_cast<int>(clock.restart()));
    for (const int column : {CValidateModel::RecordColumn, CValidateModel::DescriptionColumn})
        GetTable().sortByColumn(column, Qt::DescendingOrder);
    m_pDialog->grab();
    EXPECT_LT(clock.elapsed(), 5000);
    EXPECT_EQ(m_pDialog->GetModel().rowCount(), 100000);
}
