// The outer procedure: what is saved and what source control is asked before and after a build.
#include "CompileFixture.h"

namespace
{
class CSubmissionTest : public CCompileFixture
{
protected:
    bool ConfirmTestBuild(std::u16string_view target) override
    {
        EXPECT_EQ(target, GetText(kPacked));
        m_Gate.m_Done.emplace_back("confirm");
        return m_Gate.m_sFail != "confirm";
    }
};

TEST_F(CSubmissionTest, AsksSourceControlInOrder)
{
    // Flags, whether the file is controlled, what of the gate, "build" or "confirm" fails, and what was done.
    const std::tuple<std::uint32_t, bool, std::string, std::string> rows[] = {
        {0, true, "", ""},
        {COMPILE_SERVER, true, "", "check out, confirm, check in, "},
        {COMPILE_SERVER, false, "", "add, "},
        {COMPILE_SERVER, false, "add", "add, "},
        {7, true, "", "synchronize, check out, confirm, submit, check in, "},
        {7, true, "synchronize", "synchronize, "},
        {7, true, "check out", "synchronize, check out, "},
        {COMPILE_SERVER, true, "build", "check out, undo, "},
        {COMPILE_SERVER, true, "confirm", "check out, confirm, "},
        {COMPILE_SERVER | COMPILE_SUBMIT, true, "submit", "check out, confirm, submit, undo, "},
        {COMPILE_SUBMIT, true, "", "confirm, submit, "},
        {COMPILE_SERVER, true, "check in", "check out, confirm, check in, "},
    };
    Open();
    m_pManager->SetActiveBuild(3);
    for (const auto& [flags, isControlled, fail, expected] : rows)
    {
        m_Gate.m_bControlled = isControlled;
        m_Gate.m_sFail = fail;
        m_Gate.m_Done.clear();
        SetCreatorMode(fail == "build" ? "refuse category" : "");
        EXPECT_EQ(Compile(flags, 10).starts_with("built"), fail.empty()) << fail;
        std::string done;
        for (const std::string& step : m_Gate.m_Done)
            done += step + ", ";
        EXPECT_EQ(done, expected) << flags << ' ' << fail;
        EXPECT_EQ(m_pManager->GetActiveBuild(), 3u);
    }
}

TEST_F(CSubmissionTest, ChangesReachTheDiskBeforeTheBuild)
{
    Open();
    const CRef<CCorvaneRecord> car = m_pManager->FindRecord(u"Land/Car", nullptr);
    ASSERT_TRUE(car && car->GetAttributeList()[1]->SetValue(0, u"77"));
    Compile(COMPILE_SAVE);
    EXPECT_NE(Read("Land/Car.record").find("=77\n"), std::string::npos);
    EXPECT_NE(ReadPacked().find("[0] 77\n"), std::string::npos);
}
} // namespace
