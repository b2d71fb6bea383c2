// The sample game from its files to the packed database and back, through the built programs.
#include "GameAttribute.h"
#include "GameDatabase.h"
#include "GameRecord.h"
#include "NumberText.h"
#include "SampleFiles.h"
#include "ScratchDir.h"
#include "Unicode.h"
#include "UnicodeFileParse.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sys/wait.h>

namespace fs = std::filesystem;

namespace
{
// A copy of the sample in a directory of its own, so that a test may write beside it.
class CPackSample : public ::testing::Test
{
protected:
    CPackSample()
    {
        fs::copy(OUTPOST_DIRECTORY, m_Scratch.GetPath() / "outpost", fs::copy_options::recursive);
    }

    fs::path GetDatabase() const { return m_Scratch.GetPath() / "outpost/Database"; }

    // Exit status of a pack; what the program prints goes to "output".
    int Pack(const std::string& arguments, const std::string& limits = {}) const
    {
        const std::string command = limits + "'" CORVANE_PROGRAM "' " + arguments + " '" +
                                    (GetDatabase() / "Outpost.Gamdb00s").string() + "' >'" +
                                    (m_Scratch.GetPath() / "output").string() + "' 2>&1 </dev/null";
        const int status = std::system(command.c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    std::string PathOf(const std::string& name) const { return (m_Scratch.GetPath() / name).string(); }

    CGameDatabase Open(const std::string& name) const
    {
        std::string error;
        std::optional<CGameDatabase> database = CGameDatabase::Open(PathOf(name), error);
        EXPECT_TRUE(database) << error;
        return std::move(database).value();
    }

    CScratchDir m_Scratch;
};

// The packed value as the record file's text should give it.
void ExpectValue(const CGameAttribute& packed, std::size_t index, const SEntry& entry,
                 const std::u16string& text)
{
    const std::u16string shown = entry.m_sType == u"Memo" ? DecodeMultiLine(text) : text;
    if (entry.m_sType == u"Integer" || entry.m_sType == u"Time")
        EXPECT_EQ(packed.GetInteger(index), ParseInteger(text));
    else if (entry.m_sType == u"Float")
        EXPECT_EQ(packed.GetFloat(index), ParseFloat(text));
    else if (entry.m_sType == u"Boolean")
        EXPECT_EQ(packed.GetBoolean(index), text == u"True");
    else if (entry.m_bUnicode)
        EXPECT_EQ(packed.GetWideText(index), shown);
    else
        EXPECT_EQ(packed.GetText(index), ToNarrow(shown));
}

void ExpectRecord(const CGameRecord& packed, const CSampleFiles& files, const CSampleFiles::SRecord& source,
                  std::uint32_t build)
{
    const auto entries = files.GetEntries(source.m_sSchema, build);
    EXPECT_EQ(packed.GetAttributeCount(), entries.size());
    for (const auto& [name, entry] : entries)
    {
        const CGameAttribute attribute = packed.FindAttribute(ToNarrow(name));
        ASSERT_TRUE(attribute) << packed.GetPath() << " " << ToNarrow(name);
        const std::vector<std::u16string> values = CSampleFiles::GetValues(source, name, entry.m_nBuild);
        ASSERT_EQ(attribute.GetCount(), values.size()) << packed.GetPath() << " " << ToNarrow(name);
        for (std::size_t i = 0; i < values.size(); ++i)
            ExpectValue(attribute, i, entry, values[i]);
    }
}
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
        ASSERT_EQ(
            Pack("-Silent -Pack -BuildNumber " + std::to_string(build) + " -Output " + PathOf("packed")), 0);
        const CGameDatabase database = Open("packed");
        EXPECT_EQ(database.GetRecordCount(), files.GetRecords().size());
        for (const CSampleFiles::SRecord& source : files.GetRecords())
        {
            const CGameRecord packed =
                database.FindRecord(source.m_sCategory + "/" + ToNarrow(source.m_sName));
            ASSERT_TRUE(packed) << source.m_sCategory << "/" << ToNarrow(source.m_sName);
            EXPECT_EQ(packed.GetSchemaName(), ToNarrow(source.m_sSchema));
            ExpectRecord(packed, files, source, build);
        }
    }
}

TEST_F(CPackSample, TwoPacksAreEqualAndTouchNoSourceFile)
{
    std::map<fs::path, fs::file_time_type> before;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(GetDatabase()))
        before[entry.path()] = entry.last_write_time();
    ASSERT_EQ(Pack("-Silent -Pack -Log " + PathOf("log.txt") + " -Output " + PathOf("a")), 0);
    ASSERT_EQ(Pack("-Pack -BuildNumber 7 -Output " + PathOf("b")), 0);
    EXPECT_EQ(m_Scratch.ReadBytes("a"), m_Scratch.ReadBytes("b")) << "the game's own number is 7";
    EXPECT_EQ(m_Scratch.ReadUtf16("log.txt"), u"") << "the sample has no findings";
    std::map<fs::path, fs::file_time_type> after;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(GetDatabase()))
        after[entry.path()] = entry.last_write_time();
    EXPECT_EQ(before, after);
}

TEST_F(CPackSample, ThePostBuildStepDescribesThePackedFile)
{
    ASSERT_EQ(Pack("-Silent -Pack"), 0);
    EXPECT_EQ(m_Scratch.ReadBytes("output"), "");
    const std::string manifest = m_Scratch.ReadBytes("outpost/Game/Outpost.manifest");
    const auto size = fs::file_size(m_Scratch.GetPath() / "outpost/Game/Outpost.Gamdb00p");
    EXPECT_NE(manifest.find("Size=" + std::to_string(size)), std::string::npos) << manifest;
}

// A finding that a game cannot live with: told by the status, written to the log, packed all the same.
TEST_F(CPackSample, CriticalFindingsSetTheStatusAndReachTheLog)
{
    const std::string record = "outpost/Database/Actors/Enemies/Hollow/Frost Runner.record";
    std::u16string text = m_Scratch.ReadUtf16(record);
    const std::size_t at = text.find(u"Value.0000=", text.find(u"[Attrib.Health]"));
    text.replace(at, text.find(u"\r\n", at) - at, u"Value.0000=-5");
    text.replace(text.find(u"Inherit=", text.find(u"[Attrib.Health]")), 12, u"Inherit=Fals");
    m_Scratch.WriteUtf16(record, text);
    EXPECT_EQ(Pack("-Silent -Pack -Log " + PathOf("log.txt") + " -Output " + PathOf("packed")), 1);
    const std::u16string log = m_Scratch.ReadUtf16("log.txt");
    EXPECT_EQ(log.find(u"Critical|Invalid Integer|Integer|Actors/Enemies/Hollow/Fast/Frost Runner|Health|0|"),
              0U)
        << ToNarrow(log);
    EXPECT_EQ(
        Open("packed").FindRecord("Actors/Enemies/Hollow/Frost Runner").FindAttribute("Health").GetInteger(),
        -5);
}

// A disk that takes no more: the limit on a file's size stands in for it.
TEST_F(CPackSample, AFullDiskKeepsTheOldPackedFile)
{
    m_Scratch.WriteBytes("packed", "the old one");
    EXPECT_EQ(Pack("-Pack -Output " + PathOf("packed"), "ulimit -f 16; "), 5);
    EXPECT_EQ(m_Scratch.ReadBytes("packed"), "the old one");
    EXPECT_NE(m_Scratch.ReadBytes("output").find("Failed to save database to file.  The file may be locked."),
              std::string::npos);
    EXPECT_EQ(std::distance(fs::directory_iterator(m_Scratch.GetPath()), {}), 3)
        << "no temporary file is left";
}

// A build machine has no display and no UI toolkit.
TEST(CoreBinaries, NeedNoUiToolkit)
{
    for (const char* binary : {CORVANE_PROGRAM, CREATOR_LIBRARY, DUMP_PROGRAM})
    {
        const std::string command =
            std::string("objdump -p '") + binary + "' | grep -E 'NEEDED.*(Qt|X11|wayland|GL)'";
        EXPECT_NE(std::system(command.c_str()), 0) << binary;
        EXPECT_EQ(std::system((std::string("objdump -p '") + binary + "' | grep -q NEEDED").c_str()), 0)
            << binary;
    }
}
