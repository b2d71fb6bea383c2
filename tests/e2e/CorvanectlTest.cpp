// corvanectl from end to end: the built program over a small tree on disk.
#include "ScratchDir.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <sys/wait.h>

namespace fs = std::filesystem;

namespace
{
constexpr const char* kUsage =
    "Usage: corvanectl validate ROOT [--build N] [--strict] [--format text|json] [--output FILE]\n";

struct SRun
{
    int m_nStatus = -1;
    std::string m_sOut;
    std::string m_sError;
};

// "~" in commands and in expected texts stands for the scratch directory, in which every command runs.
class CCorvanectl : public ::testing::Test
{
protected:
    CCorvanectl()
    {
        m_Scratch.WriteBytes("p/x.proj00", "[Project Directories]\nResourceRoot=Data\n");
        m_Scratch.WriteBytes("p/Data/skin.dds", "");
        m_Scratch.WriteUtf16("p/Db/Root.Gamdb00s",
                             u"[General]\r\nDatabase={7C1D5B0E-3A94-4E27-9D5F-64B8A2F0C9AA}\r\n");
        m_Scratch.WriteUtf16("p/Db/Thing.schema",
                             u"[Schema]\r\nName=Thing\r\n[Attrib.Count.0]\r\nType=Integer\r\nData=max=10\r\n"
                             u"Values=2\r\n[Attrib.Skin.0]\r\nType=File\r\nDefault=skin.dds\r\n"
                             u"[Attrib.Later.10]\r\nType=Integer\r\nData=max=10\r\n");
        m_Scratch.WriteUtf16("p/Db/All/cvd.category", u"[Category]\r\nSchema=Thing\r\nSystem=True\r\n");
        WriteRecord("One", u"");
        WriteRecord("Two", u"");
    }

    void WriteRecord(const std::string& name, std::u16string_view sections) const
    {
        m_Scratch.WriteUtf16("p/Db/All/" + name + ".record",
                             u"[Record]\r\nSchema=Thing\r\nName=" + std::u16string(name.begin(), name.end()) +
                                 u"\r\nVirtualRelativeCategory=Shelf\r\n" + std::u16string(sections));
    }
    void MakeWarning() const
    {
        WriteRecord("One", u"[Attrib.Skin]\r\nValue.0000=x:" + m_Scratch.Text("p/Data/skin.dds") + u"\r\n");
    }
    void MakeCritical() const
    {
        WriteRecord("Two", u"[Attrib.Count]\r\nValue.0000=3\r\nValue.0001=11\r\n"
                           u"[Attrib.Skin]\r\nValue.0000=a\"\x1b[2J\r\n"
                           u"[Attrib.Later.10]\r\nValue.0000=12\r\n");
    }

    std::string Expand(std::string text) const
    {
        const std::string directory = m_Scratch.GetPath().string();
        for (std::size_t at = text.find('~'); at != std::string::npos; at = text.find('~', at))
            text.replace(at, 1, directory);
        return text;
    }

    SRun Run(const std::string& arguments, const std::string& limits = {}, bool toFull = false) const
    {
        const std::string command =
            Expand("cd ~ && export XDG_CONFIG_HOME=~/config && " + limits + "'" + CORVANECTL_PROGRAM "' " +
                   arguments + " 2>~/err </dev/null >" + (toFull ? "/dev/full" : "~/out"));
        const int status = std::system(command.c_str());
        SRun run;
        run.m_nStatus = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        run.m_sOut = toFull ? std::string() : m_Scratch.ReadBytes("out");
        run.m_sError = m_Scratch.ReadBytes("err");
        return run;
    }

    std::map<fs::path, fs::file_time_type> TakeSnapshot() const
    {
        std::map<fs::path, fs::file_time_type> times;
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(m_Scratch.GetPath()))
        {
            if (entry.path().filename() != "out" && entry.path().filename() != "err")
                times[entry.path()] = entry.last_write_time();
        }
        return times;
    }

    CScratchDir m_Scratch;
};

const std::string kWarning =
    "~/p/Db/All/One.record: warning: All/Shelf/One, Skin[0]: Path Not Relative: The path "
    "'x:~/p/Data/skin.dds' is not a relative path.\n";
const std::string kCount =
    "~/p/Db/All/Two.record: error: All/Shelf/Two, Count[1]: Invalid Integer: The value '11' "
    "is not within the valid range of (-2147483648, 10).\n";
const std::string kSkin = "~/p/Db/All/Two.record: error: All/Shelf/Two, Skin[0]: Invalid Filename: The file "
                          "'a\" [2J' is not a valid file.\n";
const std::string kLater =
    "~/p/Db/All/Two.record: error: All/Shelf/Two, Later[0]: Invalid Integer: The value '12' "
    "is not within the valid range of (-2147483648, 10).\n";
} // namespace

TEST_F(CCorvanectl, FindingsAreLinesAndDecideTheStatus)
{
    const auto before = TakeSnapshot();
    SRun run = Run("validate p/Db/Root.Gamdb00s --strict");
    EXPECT_EQ(run.m_nStatus, 0);
    EXPECT_EQ(run.m_sOut, "");
    EXPECT_EQ(run.m_sError, "corvanectl: 2 records checked for build 0: 0 critical findings, 0 warnings.\n");
    EXPECT_EQ(TakeSnapshot(), before) << "neither the tree nor the user's settings are touched";

    MakeWarning();
    run = Run("validate ~/p/Db/Root.Gamdb00s");
    EXPECT_EQ(run.m_nStatus, 0);
    EXPECT_EQ(run.m_sOut, Expand(kWarning));
    EXPECT_EQ(Run("validate --strict p/Db/root.gamdb00s").m_nStatus, 1);

    MakeCritical();
    run = Run("validate --strict -- p/Db/Root.Gamdb00s");
    EXPECT_EQ(run.m_nStatus, 2);
    EXPECT_EQ(run.m_sOut, Expand(kWarning + kCount + kSkin));
    EXPECT_EQ(run.m_sError, "corvanectl: 2 records checked for build 0: 2 critical findings, 1 warning.\n");
    run = Run("validate p/Db/Root.Gamdb00s --build=10");
    EXPECT_EQ(run.m_nStatus, 2);
    EXPECT_EQ(run.m_sOut, Expand(kWarning + kCount + kSkin + kLater));
}

TEST_F(CCorvanectl, JsonHoldsFindingsAndMessages)
{
    MakeCritical();
    fs::remove(m_Scratch.GetPath() / "p/Data/skin.dds");
    WriteRecord("One", u"[Attrib.Skin]\r\nValue.0000=\r\n");
    const SRun run = Run("validate p/Db/Root.Gamdb00s --format json --build 0");
    EXPECT_EQ(run.m_nStatus, 2);
    EXPECT_EQ(run.m_sOut, Expand(R"({
  "format": 1,
  "root": "~/p/Db/Root.Gamdb00s",
  "loaded": true,
  "build": 0,
  "records": 2,
  "critical": 2,
  "warnings": 0,
  "findings": [
    {
      "severity": "critical",
      "error": "Invalid Integer",
      "description": "The value '11' is not within the valid range of (-2147483648, 10).",
      "file": "~/p/Db/All/Two.record",
      "record": "All/Shelf/Two",
      "attribute": "Count",
      "attributeBuild": 0,
      "type": "Integer",
      "value": 1
    },
    {
      "severity": "critical",
      "error": "Invalid Filename",
      "description": "The file 'a\"\u001b[2J' is not a valid file.",
      "file": "~/p/Db/All/Two.record",
      "record": "All/Shelf/Two",
      "attribute": "Skin",
      "attributeBuild": 0,
      "type": "File",
      "value": 0
    }
  ],
  "messages": [
    {"title": "Invalid Schema Default Value", "text": "The attribute 'Skin' of schema 'Thing' contains an invalid default filename of 'skin.dds'."}
  ]
}
)"));
    EXPECT_EQ(run.m_sError.find("Invalid Schema Default Value: The attribute 'Skin'"), 0U) << run.m_sError;
}

TEST_F(CCorvanectl, ADatabaseThatDoesNotLoadIsNoCleanOne)
{
    SRun run = Run("validate p/Db/None.Gamdb00s --format json");
    EXPECT_EQ(run.m_nStatus, 3);
    EXPECT_EQ(run.m_sOut, Expand(R"({
  "format": 1,
  "root": "~/p/Db/None.Gamdb00s",
  "loaded": false,
  "messages": [
    {"title": "Open Failed", "text": "The file '~/p/Db/None.Gamdb00s' could not be opened: no such file or directory."}
  ]
}
)"));
    fs::remove(m_Scratch.GetPath() / "p/x.proj00");
    m_Scratch.WriteBytes("report", "old");
    run = Run("validate p/Db/Root.Gamdb00s --output report");
    EXPECT_EQ(run.m_nStatus, 3);
    EXPECT_EQ(run.m_sError.find("Project Error: Failed to locate the locator file"), 0U) << run.m_sError;
    EXPECT_TRUE(run.m_sError.ends_with("\ncorvanectl: The database could not be loaded.\n")) << run.m_sError;
    EXPECT_EQ(m_Scratch.ReadBytes("report"), "old");
}

TEST_F(CCorvanectl, TheReportFileIsTheOldOrTheNew)
{
    MakeCritical();
    const std::string report = Run("validate p/Db/Root.Gamdb00s").m_sOut;
    m_Scratch.WriteBytes("report", "old");
    SRun run = Run("validate p/Db/Root.Gamdb00s --output report", "ulimit -f 0; ");
    EXPECT_EQ(run.m_nStatus, 4);
    EXPECT_EQ(m_Scratch.ReadBytes("report"), "old");
    const auto before = TakeSnapshot();
    for (const auto& [file, cause] : {std::pair("none/report", "no such file or directory"),
                                      {"p/x.proj00/report", "not a file of the wanted kind"},
                                      {"p", "not a file of the wanted kind"}})
    {
        run = Run("validate p/Db/Root.Gamdb00s --output " + std::string(file));
        EXPECT_EQ(run.m_nStatus, 4) << file;
        EXPECT_EQ(run.m_sError,
                  "corvanectl: The file '" + std::string(file) + "' could not be written: " + cause + ".\n");
    }
    EXPECT_EQ(TakeSnapshot(), before) << "no temporary file is left";
    run = Run("validate p/Db/Root.Gamdb00s --output report");
    EXPECT_EQ(run.m_nStatus, 2);
    EXPECT_EQ(run.m_sOut, "");
    EXPECT_EQ(m_Scratch.ReadBytes("report"), report);

    run = Run("validate p/Db/Root.Gamdb00s", {}, true);
    EXPECT_EQ(run.m_nStatus, 4);
    EXPECT_EQ(run.m_sError, "corvanectl: The output could not be written: no space left on the disk.\n");
}

TEST_F(CCorvanectl, WrongUsageIsToldWithTheRightOne)
{
    const std::pair<const char*, const char*> rows[] = {
        {"validate", "A parameter is missing."},
        {"validate a b", "'b' is one parameter too many."},
        {"validate a --x", "There is no option '--x'."},
        {"validate a -strict", "There is no option '-strict'."},
        {"validate a --strict --strict", "The option '--strict' is given twice."},
        {"validate a --strict=1", "The option '--strict' takes no value."},
        {"validate a --build", "The option '--build' needs a value."},
        {"validate a --build -1", "'-1' is no build number."},
        {"validate a --build 4294967296", "'4294967296' is no build number."},
        {"validate a --build=", "'' is no build number."},
        {"validate a --format xml", "There is no format 'xml'."},
        {"validate a --output ''", "The option '--output' needs a file."},
    };
    for (const auto& [arguments, mistake] : rows)
    {
        const SRun run = Run(arguments);
        EXPECT_EQ(run.m_nStatus, 4) << arguments;
        EXPECT_EQ(run.m_sOut, "") << arguments;
        EXPECT_EQ(run.m_sError, "corvanectl: " + std::string(mistake) + "\n" + kUsage) << arguments;
    }
    for (const auto& [arguments, mistake] : {std::pair("", "There is no command."),
                                             {"check a", "There is no command 'check'."},
                                             {"help check", "There is no command 'check'."}})
        EXPECT_EQ(Run(arguments).m_sError,
                  "corvanectl: " + std::string(mistake) + "\nUsage: corvanectl COMMAND [ARGUMENTS]\n");
}

TEST_F(CCorvanectl, HelpListsTheCommandsAndTheirArguments)
{
    const SRun all = Run("--help");
    EXPECT_EQ(all.m_nStatus, 0);
    EXPECT_NE(all.m_sOut.find("\n  validate     Checks every record"), std::string::npos) << all.m_sOut;
    EXPECT_EQ(Run("help").m_sOut, all.m_sOut);
    const SRun one = Run("help validate");
    EXPECT_EQ(one.m_nStatus, 0);
    EXPECT_EQ(one.m_sOut.find(kUsage), 0U) << one.m_sOut;
    EXPECT_EQ(Run("validate --help").m_sOut, one.m_sOut);
    EXPECT_EQ(Run("--version").m_sOut.find("corvanectl "), 0U);
}
