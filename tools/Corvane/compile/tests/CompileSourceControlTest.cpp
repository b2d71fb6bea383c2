// The outer procedure: what source control is asked before and after a build.
#include "CompileFixture.h"

namespace
{
struct SSubmission
{
    const char* m_sName;
    std::uint32_t m_nFlags;
    bool m_bControlled;
    const char* m_sFail; // The operation of the gate, "build" or "confirm" that fails; empty for none.
    std::vector<std::string> m_Done;
};

class CSubmissionTest : public CCompileFixture,
                        public ICompileView,
                        public ::testing::WithParamInterface<SSubmission>
{
protected:
    bool ConfirmTestBuild(std::u16string_view target) override
    {
        EXPECT_EQ(target, GetTarget());
        m_Gate.m_Done.emplace_back("confirm");
        return GetParam().m_sFail != std::string_view("confirm");
    }
};

TEST_P(CSubmissionTest, AsksSourceControlInOrder)
{
    Open();
    m_Gate.m_bControlled = GetParam().m_bControlled;
    m_Gate.m_sFail = GetParam().m_sFail;
    if (m_Gate.m_sFail == "build")
        SetCreatorMode("refuse-category");
    m_pManager->SetActiveBuild(3);
    CDatabaseCompiler compiler(*m_pManager, this);
    const bool done = compiler.CompileDatabase(GetParam().m_nFlags, GetTarget(), 10);
    EXPECT_EQ(done, m_Gate.m_sFail.empty());
    EXPECT_EQ(m_Gate.m_Done, GetParam().m_Done);
    EXPECT_EQ(m_pManager->GetActiveBuild(), 3u);
}

INSTANTIATE_TEST_SUITE_P(
    Flows, CSubmissionTest,
    ::testing::Values(
        SSubmission{"Local", 0, true, "", {}},
        SSubmission{"Server", COMPILE_SERVER, true, "", {"check out", "confirm", "check in"}},
        SSubmission{"ServerNewFile", COMPILE_SERVER, false, "", {"add"}},
        SSubmission{"ServerAddFails", COMPILE_SERVER, false, "add", {"add"}},
        SSubmission{"All", 7, true, "", {"synchronize", "check out", "confirm", "submit", "check in"}},
        SSubmission{"SynchronizeFails", 7, true, "synchronize", {"synchronize"}},
        SSubmission{"CheckOutFails", 7, true, "check out", {"synchronize", "check out"}},
        SSubmission{"BuildFails", COMPILE_SERVER, true, "build", {"check out", "undo"}},
        SSubmission{"Aborted", COMPILE_SERVER, true, "confirm", {"check out", "confirm"}},
        SSubmission{"SubmitFails",
                    COMPILE_SERVER | COMPILE_SUBMIT,
                    true,
                    "submit",
                    {"check out", "confirm", "submit", "undo"}},
        SSubmission{"LocalSubmit", COMPILE_SUBMIT, true, "", {"confirm", "submit"}},
        SSubmission{"CheckInFails", COMPILE_SERVER, true, "check in", {"check out", "confirm", "check in"}}),
    [](const ::testing::TestParamInfo<SSubmission>& row) { return std::string(row.param.m_sName); });

class CSaveFirstTest : public CCompileFixture
{
};

TEST_F(CSaveFirstTest, ChangesReachTheDiskBeforeTheBuild)
{
    Open();
    CCorvaneRecord* car = m_pManager->FindRecord(u"Land/Car", nullptr);
    ASSERT_NE(car, nullptr);
    ASSERT_TRUE(car->GetAttributeList()[1]->SetValue(0, u"77"));
    EXPECT_TRUE(Compile(COMPILE_SAVE));
    EXPECT_NE(Read("Land/Car.record").find("=77\n"), std::string::npos);
    EXPECT_NE(ReadPacked().find("[0] 77\n"), std::string::npos);
}
} // namespace
