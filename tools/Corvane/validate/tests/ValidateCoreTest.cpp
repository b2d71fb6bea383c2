#include "ValidateCore.h"
#include "GatedDatabase.h"
#include "FormatText.h"

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
        for (const char* path : {"Land", "Land/Tracked", "Sea"})
            AddCategory(path, "Vehicle");
        Add("Land/Bike", 4, 9, 50, "VirtualRelativeCategory=Light/Two | Wheels\n");
        Add("Land/Car", 4, 5, 900);
        Add("Land/Tracked/Tank", 0, 4, 50);
        Add("Sea/Boat", 4, 5, 50);
        Open();
    }
    void Add(const char* path, int first, int second, int speed, const char* keys = "")
    {
        const std::string value = "]\nInherit=False\nValue.0000=" + std::to_string(speed) + "\n";
        AddRecord(path, "Vehicle",
                  "[Attrib.Gears]\nInherit=False\nValue.0000=" + std::to_string(first) + "\nValue.0001=" +
                      std::to_string(second) + "\n[Attrib.Speed.10" + value + "[Attrib.Speed" + value,
                  keys);
    }

    std::u16string RunWithLog(std::uint32_t build)
    {
        m_Run.m_sLogPath = m_Scratch.Text("Logs/deep/findings.txt");
        m_bValid = m_Core.ValidateDatabase(*m_pManager, build);
        return m_Scratch.ReadUtf16("Logs/deep/findings.txt");
    }

    CValidateCore m_Core;
    bool m_bValid = false;
};

TEST_F(CValidateCoreTest, LogNamesEveryFindingOfTheBuildInTheOrderOfTheWalk)
{
    const auto line = [](const char16_t* record, const char16_t* attrib, const char16_t* range)
    {
        return FormatText(
            u"Critical|Invalid Integer|Integer|Land/%s|%s' is not within the valid range of %s.\r\n", record,
            attrib, range);
    };
    const std::u16string speed = line(u"Car", u"Speed|0|The value '900", u"(0, 100)");
    const std::u16string tank = line(u"Tracked/Tank", u"Gears|0|The value '0", u"(1, 6)");
    const std::u16string bike = line(u"Light/Two | Wheels/Bike", u"Gears|1|The value '9", u"(1, 6)");
    EXPECT_EQ(RunWithLog(0), speed + tank + bike);
    EXPECT_FALSE(m_bValid);
    EXPECT_EQ(m_Core.GetCriticalCount(), 3u);
    EXPECT_EQ(m_Core.GetWarningCount(), 0u);
    EXPECT_EQ(RunWithLog(10), tank + bike) << "The entry of build 10 allows the speed.";
    EXPECT_EQ(m_Core.GetBuild(), 10u);
    EXPECT_EQ(m_Core.GetErrors().size(), 2u) << "A run starts over.";

    m_Scratch.WriteBytes("taken", "a file");
    m_Run.m_sLogPath = m_Scratch.Text("taken/findings.txt");
    EXPECT_FALSE(m_Core.ValidateDatabase(*m_pManager, 0));
    EXPECT_FALSE(m_Core.WriteLog(m_Files, m_Run.m_sLogPath));
    m_Gate.m_Pending = {u"Car", u"Tank", u"Bike"};
    EXPECT_TRUE(m_Core.ValidateDatabase(*m_pManager, 0));
    EXPECT_EQ(RunWithLog(0), u"") << "Records on their way out are not checked; the mark stands alone.";
    EXPECT_TRUE(m_bValid);
}

TEST_F(CValidateCoreTest, ListCountsFromOneAndKeepsFindingsWithoutAttribute)
{
    EXPECT_FALSE(m_Core.ValidateRecord(*m_pManager->FindRecord(u"Land/Bike", nullptr)));
    m_Core.AddError(ESeverity::Warning, u"Odd Name", u"tab\there", nullptr, 7);
    const std::u16string list = u"\tError\tType\tRecord\tAttribute\tValue\tDescription\n"
                                u"!\tInvalid Integer\tInteger\tLand/Light/Two | Wheels/Bike\tGears\t2\t"
                                u"The value '9' is not within the valid range of (1, 6).\r\n"
                                u"?\tOdd Name\t\t\t\t\ttab\there\r\n";
    EXPECT_EQ(m_Core.FormatList(), list);
    ASSERT_TRUE(m_Core.SaveList(m_Files, m_Scratch.Text("list.txt")));
    EXPECT_EQ(m_Scratch.ReadUtf16("list.txt"), list);
    ASSERT_TRUE(m_Core.WriteLog(m_Files, m_Scratch.Text("log.txt")));
    EXPECT_TRUE(m_Scratch.ReadUtf16("log.txt").ends_with(u"\r\nWarning|Odd Name|||||tab\there\r\n"));
    EXPECT_EQ(m_Core.GetWarningCount(), 1u);
}

TEST_F(CValidateCoreTest, FindingsOutliveTheirRecord)
{
    CValidateCore copy;
    {
        CValidateCore local;
        EXPECT_FALSE(local.ValidateDatabase(*m_pManager, 0));
        copy = local;
    }
    const CRef<CCorvaneRecord> car = m_pManager->FindRecord(u"Land/Car", nullptr);
    ASSERT_TRUE(car);
    ASSERT_TRUE(car->GetCategory()->RemoveRecord(*car));
    car->Clear();
    ASSERT_EQ(copy.GetErrors().size(), 3u);
    EXPECT_EQ(copy.GetErrors()[0].m_pAttrib->GetName(), u"Speed");
    EXPECT_NE(copy.FormatList().find(u"!\tInvalid Integer\tInteger\t\tSpeed\t1\t"), std::u16string::npos);
}
} // namespace
