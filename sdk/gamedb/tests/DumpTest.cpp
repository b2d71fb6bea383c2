#include "DumpTool.h"
#include "GameDatabase.h"
#include "ScratchDir.h"
#include "SmallDatabase.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>
#include <sys/wait.h>

namespace
{
class DumpTool : public testing::Test
{
protected:
    DumpTool()
    {
        m_Dir.WriteBytes("small.Gamdb00p", AsText(MakeSmallDatabase()));
        m_sFile = (m_Dir.GetPath() / "small.Gamdb00p").string();
    }

    int Run(std::vector<const char*> arguments)
    {
        m_Out.str({});
        m_Error.str({});
        return RunDumpTool(arguments, m_Out, m_Error);
    }

    CScratchDir m_Dir;
    std::string m_sFile;
    std::ostringstream m_Out;
    std::ostringstream m_Error;
};
} // namespace

TEST_F(DumpTool, ShowsTheDatabaseARecordAndASummary)
{
    const char* const file = m_sFile.c_str();
    const std::pair<std::vector<const char*>, const char*> goldens[] = {
        {{file}, "small.json"},
        {{"--summary", file}, "small.summary"},
        {{"--attributes", file}, "small.attributes"}};
    for (const auto& [arguments, golden] : goldens)
    {
        ASSERT_EQ(Run(arguments), DUMP_OK) << m_Error.str();
        EXPECT_EQ(m_Out.str(), ReadGolden(golden));
    }
    ASSERT_EQ(Run({"--record", "Units/Bare", file}), DUMP_OK);
    EXPECT_EQ(m_Out.str(),
              "{\n  \"path\": \"Units/Bare\",\n  \"category\": \"Units\",\n  \"name\": \"Bare\",\n"
              "  \"schema\": \"\",\n  \"attributes\": []\n}\n");
    EXPECT_EQ(Run({"--record", "Units/bare", file}), DUMP_RECORD_NOT_FOUND);
    EXPECT_EQ(m_Out.str(), "");
    EXPECT_NE(m_Error.str().find("no record 'Units/bare'"), std::string::npos);
}

TEST_F(DumpTool, AnswersWrongArgumentsAndFiles)
{
    const char* const file = m_sFile.c_str();
    const std::pair<std::vector<const char*>, int> cases[] = {
        {{}, DUMP_USAGE},
        {{"--what", file}, DUMP_USAGE},
        {{"--record"}, DUMP_USAGE},
        {{file, file}, DUMP_USAGE},
        {{"--summary", "--record", "A/B", file}, DUMP_USAGE},
        {{"--summary", "--attributes", file}, DUMP_USAGE},
        {{"--help"}, DUMP_OK},
        {{"--version"}, DUMP_OK},
        {{"--", "--help"}, DUMP_INVALID_FILE},
        {{"/no/such/file"}, DUMP_INVALID_FILE}};
    for (const auto& [arguments, status] : cases)
    {
        EXPECT_EQ(Run(arguments), status);
        EXPECT_EQ(m_Error.str().empty(), status == DUMP_OK);
        EXPECT_EQ(m_Out.str().empty(), status != DUMP_OK);
    }
}

// The program itself, for what only a real output can show.
TEST_F(DumpTool, FailsWhenTheOutputIsFull)
{
    const auto run = [&](const std::string& target)
    {
        const std::string error = (m_Dir.GetPath() / "error").string();
        const std::string command =
            GAMEDB_DUMP_PROGRAM " '" + m_sFile + "' >" + target + " 2>'" + error + "'";
        return WEXITSTATUS(std::system(command.c_str()));
    };
    EXPECT_EQ(run("'" + (m_Dir.GetPath() / "out").string() + "'"), DUMP_OK);
    EXPECT_EQ(m_Dir.ReadBytes("out"), ReadGolden("small.json"));
    EXPECT_EQ(run("/dev/full"), DUMP_OUTPUT_FAILED);
    EXPECT_NE(m_Dir.ReadBytes("error").find("could not be written"), std::string::npos);
}
