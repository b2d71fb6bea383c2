// The sample game from its files to the packed database and back, through the built programs.
#include "GameDatabase.h"
#include "GameRecord.h"
#include "SampleCopy.h"
#include "SampleValues.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>

namespace
{
class CPackSample : public ::testing::Test, protected CSampleCopy
{
};
} // namespace

// Record files hold what the designer saw, inherited values too, so that every packed value has its text
// there.
TEST_F(CPackSample, PackedValuesAreThoseOfTheFilesForEachBuild)
{
    const CSampleFiles files(GetDatabase());
    ASSERT_EQ(files.GetRecords().size(), 230U);
    for (const std::uint32_t build : {0U, 7U, 10U, 20U})
    {
        SCOPED_TRACE(build);
        ASSERT_EQ(RunShell("'" CORVANE_PROGRAM "' -Pack -BuildNumber " + std::to_string(build) + " -Log " +
                           PathOf("log.txt") + " -Output " + PathOf("packed") + " '" + GetRootFile() + "'"),
                  0);
        EXPECT_EQ(m_Scratch.ReadUtf16("log.txt"), u"") << "the sample has no findings";
        EXPECT_EQ(m_Scratch.ReadBytes("output") + m_Scratch.ReadBytes("error"), "") << "nor has its load";
        std::string error;
        const std::optional<CGameDatabase> opened = CGameDatabase::Open(PathOf("packed"), error);
        ASSERT_TRUE(opened) << error;
        const CGameDatabase& database = *opened;
        EXPECT_EQ(database.GetRecordCount(), files.GetRecords().size());
        for (const CSampleFiles::SRecord& source : files.GetRecords())
        {
            const CGameRecord packed = database.FindRecord(source.GetPath());
            ASSERT_TRUE(packed) << source.GetPath();
            ExpectRecord(packed, files, source, build);
        }
    }
}

// A build machine has no display and no UI toolkit.
TEST(CoreBinaries, NeedNoUiToolkit)
{
    for (const char* binary : {CORVANE_PROGRAM, CORVANECTL_PROGRAM, CREATOR_LIBRARY, DUMP_PROGRAM})
    {
        const std::string command =
            std::string("objdump -p '") + binary + "' | grep -E 'NEEDED.*(Qt|X11|wayland|GL)'";
        EXPECT_NE(std::system(command.c_str()), 0) << binary;
        EXPECT_EQ(std::system((std::string("objdump -p '") + binary + "' | grep -q NEEDED").c_str()), 0)
            << binary;
    }
}
