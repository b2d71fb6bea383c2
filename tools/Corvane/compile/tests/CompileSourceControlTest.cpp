// The outer procedure: what source control is asked before and after a build.
#include "CompileFixture.h"

namespace
{
class CSubmissionTest : public CCompileFixture, public ICompileView
{
protected:
    bool ConfirmTestBuild(std::u16string_view target) override
    {
        EXPECT_EQ(target, GetTarget());
        m_Gate.m_Done.emplace_back("confirm");
        return m_Gate.m_sFail != "confirm";
    }
};

TEST_F(CSubmissionTest, AsksSourceControlInOrder)
{
    const struct
    {
        std::uint32_t flags;
        bool isControlled;
        const char* fail; // The operation of the gate, "build" or "confirm" that fails; empty for none.
        std::vector<std::string> done;
    } rows[] = {
        {0, true, "", {}},
        {COMPILE_SERVER, true, "", {"check out", "confirm", "check in"}},
        {COMPILE_SERVER, false, "", {"add"}},
        {COMPILE_SERVER, false, "add", {"add"}},
        {7, true, "", {"synchronize", "check out", "confirm", "submit", "check in"}},
        {7, true, "synchronize", {"synchronize"}},
        {7, true, "check out", {"synchronize", "check out"}},
        {COMPILE_SERVER, true, "build", {"check out", "undo"}},
        {COMPILE_SERVER, true, "confirm", {"check out", "confirm"}},
        {COMPILE_SERVER | COMPILE_SUBMIT, true, "submit", {"check out", "confirm", "submit", "undo"}},
        {COMPILE_SUBMIT, true, "", {"confirm", "submit"}},
        {COMPILE_SERVER, true, "check in", {"check out", "confirm", "check in"}},
    };
    Open();
    m_pManager->SetActiveBuild(3);
    CDatabaseCompiler compiler(*m_pManager, this);
    for (const auto& row : rows)
    {
        m_Gate.m_bControlled = row.isControlled;
        m_Gate.m_sFail = row.fail;
        m_Gate.m_Done.clear();
        SetCreatorMode(m_Gate.m_sFail == "build" ? "refuse-category" : "");
        EXPECT_EQ(compiler.CompileDatabase(row.flags, GetTarget(), 10), m_Gate.m_sFail.empty()) << row.fail;
        EXPECT_EQ(m_Gate.m_Done, row.done) << row.flags << ' ' << row.fail;
        EXPECT_EQ(m_pManager->GetActiveBuild(), 3u);
    }
}

TEST_F(CSubmissionTest, ChangesReachTheDiskBeforeTheBuild)
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
