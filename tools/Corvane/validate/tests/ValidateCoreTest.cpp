#include "ValidateCore.h"
#include "GatedDatabase.h"

namespace
{
// Findings in a plain record, in a virtual category, in the second of several values, and in an attribute
// that another build replaces.
class CValidateCoreTest : public CGatedDatabase
{
protected:
    void SetUp() override
    {
        AddSchema("Vehicle", "[Attrib.Gears.0]\nType=Integer\nData=min=1;max=6\nDefault=2\nValues=2\n\n"
                             "[Attrib.Speed.10]\nType=Integer\nData=min=0;max=1000\nDefault=5\n\n"
                             "[Attrib.Speed.0]\nType=Integer\nData=min=0;max=100\nDefault=5\n");
        AddCategory("Land", "Vehicle");
        AddCategory("Land/Tracked", "Vehicle");
        AddRecord("Land/Bike", "Vehicle", "[Attrib.Gears]\nValue.0000=4\nValue.0001=9\n",
                  "VirtualRelativeCategory=Light/Two | Wheels\n");
        AddRecord("Land/Boat", "Vehicle");
        AddRecord("Land/Car", "Vehicle", "[Attrib.Speed]\nInherit=False\nValue.0000=900\n");
        AddRecord("Land/Tracked/Tank", "Vehicle", "[Attrib.Gears]\nValue.0000=0\nValue.0001=4\n");
        Open();
    }
    std::u16string RunWithLog(std::uint32_t build)
    {
        m_Run.m_sLogPath = m_Scratch.Text("Logs/deep/findings.txt");
        const bool valid = m_Core.ValidateDatabase(*m_pManager, build);
        EXPECT_EQ(valid, m_Core.GetCriticalCount() == 0);
        return m_Scratch.ReadUtf16("Logs/deep/findings.txt");
    }

    CValidateCore m_Core;
};

TEST_F(CValidateCoreTest, LogNamesEveryFindingOfTheBuildInTheOrderOfTheWalk)
{
    const std::u16string speed = u"Critical|Invalid Integer|Integer|Land/Car|Speed|0|The value '900' is not "
                                 u"within the valid range of (0, 100).\r\n";
    const std::u16string gears = u"Critical|Invalid Integer|Integer|Land/Tracked/Tank|Gears|0|The value '0' "
                                 u"is not within the valid range of (1, 6).\r\n"
                                 u"Critical|Invalid Integer|Integer|Land/Light/Two | Wheels/Bike|Gears|1|The "
                                 u"value '9' is not within the valid range of (1, 6).\r\n";
    EXPECT_EQ(RunWithLog(0), speed + gears);
    EXPECT_EQ(RunWithLog(10), gears) << "The entry of build 10 allows the speed; a run starts over.";
    m_Scratch.WriteBytes("taken", "a file");
    EXPECT_FALSE(m_Core.WriteLog(m_Files, m_Scratch.Text("taken/findings.txt")));
    m_Gate.m_Pending = {u"Car", u"Tank", u"Bike"};
    EXPECT_EQ(RunWithLog(0), u"") << "Records on their way out are not checked; the mark stands alone.";
}

TEST_F(CValidateCoreTest, ListCountsFromOneKeepsFindingsWithoutAttributeAndOutlivesItsRecords)
{
    const CRef<CCorvaneRecord> bike = m_pManager->FindRecord(u"Land/Bike", nullptr);
    CValidateCore local;
    EXPECT_FALSE(local.ValidateRecord(*bike));
    m_Core = local;
    m_Core.AddError(ESeverity::Warning, u"Odd Name", u"tab\there", nullptr, 7);
    const auto list = [](const std::u16string& record)
    {
        return u"\tError\tType\tRecord\tAttribute\tValue\tDescription\n!\tInvalid Integer\tInteger\t" +
               record +
               u"\tGears\t2\tThe value '9' is not within the valid range of (1, 6).\r\n"
               u"?\tOdd Name\t\t\t\t\ttab\there\r\n";
    };
    ASSERT_TRUE(m_Core.SaveList(m_Files, m_Scratch.Text("list.txt")));
    EXPECT_EQ(m_Scratch.ReadUtf16("list.txt"), list(u"Land/Light/Two | Wheels/Bike"));
    ASSERT_TRUE(m_Core.WriteLog(m_Files, m_Scratch.Text("log.txt")));
    EXPECT_TRUE(m_Scratch.ReadUtf16("log.txt").ends_with(u"\r\nWarning|Odd Name|||||tab\there\r\n"));
    EXPECT_EQ(m_Core.GetWarningCount(), 1u);
    ASSERT_TRUE(bike->GetCategory()->RemoveRecord(*bike));
    bike->Clear();
    EXPECT_EQ(m_Core.FormatList(), list(u""));
}
} // namespace
