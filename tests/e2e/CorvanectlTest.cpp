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
    void MakeCritical() const
    {
        WriteRecord("Two", u"[Attrib.Count]\r\nValue.0000=3\r\nValue.0001=11\r\n"
                           u"[Attrib.Skin]\r\nValue.0000=a\"\x1b[2J\r\n"
                           u"[Attrib.Later.10]\r\nValue.0000=12\r\n");
    }

    // Records of a schema with an ancestor, builds, a struct and a link, one below the other: Wolf, Elder,
    // Root.
    void WriteFamily() const
    {
        m_Scratch.WriteUtf16("p/Db/Part.struct",
                             u"[Attrib.Size.0]\r\nType=Float\r\nDefault=1.5\r\n"
                             u"[Attrib.Kin.0]\r\nType=RecordLink\r\nData=public Beast\r\n");
        m_Scratch.WriteUtf16("p/Db/Beast.schema",
                             u"[Schema]\r\nName=Beast\r\nParent=Thing\r\n[Attrib.Mass.20]\r\nType=Integer\r\n"
                             u"Deleted=True\r\n[Attrib.Mass.10]\r\nType=Integer\r\nDefault=7\r\n"
                             u"[Attrib.Mass.0]\r\nType=Integer\r\nDefault=3\r\n"
                             u"[Attrib.Parts.0]\r\nType=Struct\r\nData=Part.struct\r\nValues=-1\r\n");
        m_Scratch.WriteUtf16("p/Db/All/Beasts/cvd.category",
                             u"[Category]\r\nSchema=Beast\r\nSystem=True\r\n");
        WriteBeast("Root", u"[Attrib.Count]\r\nValue.0000=4\r\n[Attrib.Parts.0]\r\n[Attrib.Parts.0.0]\r\n"
                           u"[Attrib.Parts.0.0.Kin]\r\nValue.0000=all/beasts/wolf\r\n");
        WriteBeast("Elder", u"[Hierarchy]\r\nRecord=All/Beasts/Root\r\n[Attrib.Mass]\r\nValue.0000=8\r\n"
                            u"Override=True\r\nTodo=True\r\nLock=ann\r\nComment=two\\nlines\r\n");
        WriteBeast("Wolf", u"VirtualRelativeCategory=Grey\r\n[Hierarchy]\r\nRecord=All/Beasts/Elder\r\n"
                           u"[Attrib.Count]\r\nValue.0000=6\r\n[Attrib.Later.10]\r\nValue.0000=9\r\n"
                           u"[Attrib.Parts.0]\r\n[Attrib.Parts.0.0]\r\n[Attrib.Parts.0.0.Size]\r\n"
                           u"Value.0000=2.5\r\n[Attrib.Parts.0.0.Kin]\r\nValue.0000=None/Such\r\n");
    }
    void WriteBeast(const std::string& name, std::u16string_view rest) const
    {
        m_Scratch.WriteUtf16("p/Db/All/Beasts/" + name + ".record",
                             u"[Record]\r\nSchema=Beast\r\nName=" + std::u16string(name.begin(), name.end()) +
                                 u"\r\n" + std::u16string(rest));
    }

    static std::string Replace(std::string text, const std::string& old, const std::string& by)
    {
        for (std::size_t at = text.find(old); at != std::string::npos; at = text.find(old, at + by.size()))
            text.replace(at, old.size(), by);
        return text;
    }
    // The status, what went to the standard output and what to that of errors.
    std::string Run(const std::string& arguments, const std::string& limits = {}, const char* out = "~/out")
    {
        m_Scratch.WriteBytes("out", "");
        const std::string command = "cd ~ && export XDG_CONFIG_HOME=~/config && " + limits +
                                    "'" CORVANECTL_PROGRAM "' " + arguments + " 2>~/err </dev/null >" + out;
        const int status = std::system(Replace(command, "~", m_Scratch.GetPath()).c_str());
        const std::string told = std::to_string(WIFEXITED(status) ? WEXITSTATUS(status) : -1) + '\n' +
                                 m_Scratch.ReadBytes("out") + "err: " + m_Scratch.ReadBytes("err");
        return Replace(told, m_Scratch.GetPath(), "~");
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

const std::string kWarning = "~/p/Db/All/One.record: warning: All/Shelf/One, Skin[0]: Path Not Relative: "
                             "The path 'x:~/p/Data/skin.dds' is not a relative path.\n";
const std::string kCriticals = "~/p/Db/All/Two.record: error: All/Shelf/Two, Count[1]: Invalid Integer: The "
                               "value '11' is not within the "
                               "valid range of (-2147483648, 10).\n"
                               "~/p/Db/All/Two.record: error: All/Shelf/Two, Skin[0]: Invalid Filename: The "
                               "file 'a\" [2J' is not a valid "
                               "file.\n";
const std::string kLater =
    "~/p/Db/All/Two.record: error: All/Shelf/Two, Later[0]: Invalid Integer: The value "
    "'12' is not within the valid range of (-2147483648, 10).\n";
} // namespace

TEST_F(CCorvanectl, FindingsAreLinesAndDecideTheStatus)
{
    const std::string told = "err: corvanectl: 2 records checked for build ";
    const auto before = TakeSnapshot();
    EXPECT_EQ(Run("validate p/Db/Root.Gamdb00s --strict"),
              "0\n" + told + "0: 0 critical findings, 0 warnings.\n");
    EXPECT_EQ(TakeSnapshot(), before) << "neither the tree nor the user's settings are touched";
    WriteRecord("One", u"[Attrib.Skin]\r\nValue.0000=x:" + m_Scratch.Text("p/Data/skin.dds") + u"\r\n");
    const std::string warned = kWarning + told + "0: 0 critical findings, 1 warning.\n";
    EXPECT_EQ(Run("validate ~/p/Db/Root.Gamdb00s"), "0\n" + warned);
    EXPECT_EQ(Run("validate --strict p/Db/root.gamdb00s"), "1\n" + warned);
    MakeCritical();
    EXPECT_EQ(Run("validate --strict -- p/Db/Root.Gamdb00s"),
              "2\n" + kWarning + kCriticals + told + "0: 2 critical findings, 1 warning.\n");
    EXPECT_EQ(Run("validate p/Db/Root.Gamdb00s --build=10"),
              "2\n" + kWarning + kCriticals + kLater + told + "10: 3 critical findings, 1 warning.\n");
}

TEST_F(CCorvanectl, JsonHoldsFindingsAndMessages)
{
    MakeCritical();
    fs::remove(m_Scratch.GetPath() / "p/Data/skin.dds");
    WriteRecord("One", u"[Attrib.Skin]\r\nValue.0000=\r\n");
    EXPECT_EQ(Run("validate p/Db/Root.Gamdb00s --format json --build 0"), R"(2
{
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
err: Invalid Schema Default Value: The attribute 'Skin' of schema 'Thing' contains an invalid default filename of 'skin.dds'.
corvanectl: 2 records checked for build 0: 2 critical findings, 0 warnings.
)");
}

TEST_F(CCorvanectl, ADatabaseThatDoesNotLoadIsNoCleanOne)
{
    EXPECT_EQ(Run("validate p/Db/None.Gamdb00s --format json"), R"(3
{
  "format": 1,
  "root": "~/p/Db/None.Gamdb00s",
  "loaded": false,
  "messages": [
    {"title": "Open Failed", "text": "The file '~/p/Db/None.Gamdb00s' could not be opened: no such file or directory."}
  ]
}
err: Open Failed: The file '~/p/Db/None.Gamdb00s' could not be opened: no such file or directory.
corvanectl: The database could not be loaded.
)");
    fs::remove(m_Scratch.GetPath() / "p/x.proj00");
    m_Scratch.WriteBytes("report", "old");
    EXPECT_EQ(
        Run("validate p/Db/Root.Gamdb00s --output report"),
        "3\nerr: Project Error: Failed to locate the locator file (*.proj00) for the following project.  "
        "The project could not be loaded.\n\n~/p/Db/Root.Gamdb00s\n"
        "corvanectl: The database could not be loaded.\n");
    EXPECT_EQ(m_Scratch.ReadBytes("report"), "old");
}

TEST_F(CCorvanectl, TheReportFileIsTheOldOrTheNew)
{
    MakeCritical();
    m_Scratch.WriteBytes("report", "old");
    const std::string validate = "validate p/Db/Root.Gamdb00s";
    EXPECT_EQ(Run(validate + " --output report", "ulimit -f 0; ").substr(0, 2), "4\n");
    EXPECT_EQ(m_Scratch.ReadBytes("report"), "old");
    const auto before = TakeSnapshot();
    for (const auto& [file, cause] : {std::pair("none/report", "no such file or directory"),
                                      {"p/x.proj00/report", "not a file of the wanted kind"},
                                      {"p", "not a file of the wanted kind"}})
        EXPECT_EQ(Run(validate + " --output " + file), std::string("4\nerr: corvanectl: The file '") + file +
                                                           "' could not be written: " + cause + ".\n");
    EXPECT_EQ(Run(validate, {}, "/dev/full"),
              "4\nerr: corvanectl: The output could not be written: no space left on the disk.\n");
    EXPECT_EQ(TakeSnapshot(), before) << "no temporary file is left";
    EXPECT_EQ(Run(validate + " --output report").substr(0, 6), "2\nerr:");
    EXPECT_EQ(Replace(m_Scratch.ReadBytes("report"), m_Scratch.GetPath(), "~"), kCriticals);
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
        EXPECT_EQ(Run(arguments), "4\nerr: corvanectl: " + std::string(mistake) + "\n" + kUsage);
    EXPECT_EQ(Run("overrides a --database ''"),
              "4\nerr: corvanectl: The option '--database' needs a file.\nUsage: corvanectl overrides ROOT "
              "[--build N] [--database FILE] [--constraints FILE]\n");
    for (const auto& [arguments, mistake] : {std::pair("", "There is no command."),
                                             {"check a", "There is no command 'check'."},
                                             {"help check", "There is no command 'check'."}})
        EXPECT_EQ(Run(arguments), "4\nerr: corvanectl: " + std::string(mistake) +
                                      "\nUsage: corvanectl COMMAND [ARGUMENTS]\n");
}

TEST_F(CCorvanectl, HelpListsTheCommandsAndTheirArguments)
{
    const std::string all = Run("--help");
    EXPECT_EQ(all.find("0\n"), 0U);
    EXPECT_NE(all.find("\n  validate     Checks every record"), std::string::npos) << all;
    EXPECT_EQ(Run("help"), all);
    const std::string one = Run("help validate");
    EXPECT_EQ(one.find(std::string("0\n") + kUsage), 0U) << one;
    EXPECT_EQ(Run("validate --help"), one);
    EXPECT_EQ(Run("--version").find("0\ncorvanectl "), 0U);
}

TEST_F(CCorvanectl, ShowTellsWhereEachValueComesFrom)
{
    WriteFamily();
    EXPECT_EQ(Run("show p/Db/Root.Gamdb00s wolf --build 10"), R"(0
All/Beasts/Grey/Wolf
  File:      ~/p/Db/All/Beasts/Wolf.record
  Schema:    Beast
  Build:     10
  Inherits:  All/Beasts/Elder, which inherits from All/Beasts/Root

Count: 2 values  (Integer, own)
  [0] 6
  [1] 0  (default)
Skin: skin.dds  (File, inherited from All/Beasts/Root, default)
Later: 9  (Integer, own, from build 10 on)
Mass: -  (Integer, deleted from build 20 on)
Mass: 3  (Integer, inherited from All/Beasts/Root, default, taken over from build 0, builds 10 to 19, To Be Deleted)
Mass: 8  (Integer, inherited from All/Beasts/Elder, builds 0 to 9, Deprecated, not in force at build 10)
Parts: 1 row  (Struct, own)
  [0]
    Size: 2.5  (Float, own)
    Kin: None/Such  (RecordLink, own)
      -> no record None/Such
err: )");
    EXPECT_EQ(Run("show p/Db/Root.Gamdb00s All/Beasts/Elder --attribute mass --build=3"), R"(0
All/Beasts/Elder
  File:      ~/p/Db/All/Beasts/Elder.record
  Schema:    Beast
  Build:     3
  Inherits:  All/Beasts/Root
  Heirs:     All/Beasts/Grey/Wolf

Mass: -  (Integer, deleted from build 20 on)
Mass: 3  (Integer, inherited from All/Beasts/Root, default, taken over from build 0, builds 10 to 19, To Be Deleted, not in force at build 3)
Mass: 8  (Integer, own, builds 0 to 9, Deprecated, override, to do, locked by ann)
  # two  lines
err: )");
    EXPECT_EQ(Run("show p/Db/Root.Gamdb00s p/Db/All/Beasts/Elder.record --attribute Parts --json"), R"(0
{
  "format": 1,
  "root": "~/p/Db/Root.Gamdb00s",
  "loaded": true,
  "build": 0,
  "record": "All/Beasts/Elder",
  "recordPath": "All/Beasts/Elder",
  "schema": "Beast",
  "file": "~/p/Db/All/Beasts/Elder.record",
  "comment": "",
  "inheritsFrom": ["All/Beasts/Root"],
  "heirs": ["All/Beasts/Grey/Wolf"],
  "attributes": [
    {
      "name": "Parts",
      "type": "Struct",
      "firstBuild": 0,
      "inForce": true,
      "source": "inherited",
      "inheritedFrom": ["All/Beasts/Root"],
      "rows": [
        [
          {
            "name": "Size",
            "type": "Float",
            "firstBuild": 0,
            "inForce": true,
            "source": "inherited",
            "inheritedFrom": ["All/Beasts/Root"],
            "values": ["1.500000"],
            "defaultValues": [0]
          },
          {
            "name": "Kin",
            "type": "RecordLink",
            "firstBuild": 0,
            "inForce": true,
            "source": "inherited",
            "inheritedFrom": ["All/Beasts/Root"],
            "values": ["all/beasts/wolf"],
            "defaultValues": [],
            "references": [
              {"kind": "Record", "resource": "All/Beasts/Wolf", "found": true, "record": "All/Beasts/Grey/Wolf"}
            ]
          }
        ]
      ]
    }
  ],
  "messages": []
}
err: )");
}

TEST_F(CCorvanectl, InfoCountsWhatThereIs)
{
    WriteFamily();
    EXPECT_EQ(Run("info p/Db/Root.Gamdb00s"), R"(0
~/p/Db/Root.Gamdb00s
  Version:               0
  Name:                  Unknown Database
  Identifier:            {7C1D5B0E-3A94-4E27-9D5F-64B8A2F0C9AA}
  Packed output:         ~/p/Db/Database.Gamdb00p
  Override database:     ~/p/Db/MPCustomizations.txt
  Override constraints:  ~/p/Db/DBConstraints.dat
  Project:               ~/p/
  Resource root:         ~/p/Data/
  Tools:                 ~/p/
Builds
  Active:                0
  Entries begin in:      0, 10, 20
Counts
  Schemas:               2
  Schema entries:        7
  Deprecated entries:    1
  Deleted entries:       2
  System categories:     2
  Virtual categories:    2
  Records:               5
  Inheriting records:    2
  Attributes:            27
Files
  Root file:             1 file, 122 bytes
  Schemas:               2 files, 796 bytes
  Struct files:          1 file, 190 bytes
  Categories:            2 files, 160 bytes
  Records:               5 files, 1478 bytes
Schemas
  Beast:                 3 records, 7 attributes, derives from Thing, builds 0, 10, 20
  Thing:                 2 records, 3 attributes, builds 0, 10
err: )");
    const std::string json = Run("info p/Db/Root.Gamdb00s --json");
    EXPECT_EQ(json.substr(json.find("  \"files\"")), R"(  "files": {
    "root": {"files": 1, "bytes": 122},
    "schemas": {"files": 2, "bytes": 796},
    "structs": {"files": 1, "bytes": 190},
    "categories": {"files": 2, "bytes": 160},
    "records": {"files": 5, "bytes": 1478}
  },
  "schemas": [
    {"name": "Beast", "parent": "Thing", "file": "~/p/Db/Beast.schema", "records": 3, "entries": 4, "attributes": 7, "builds": [0, 10, 20]},
    {"name": "Thing", "parent": "", "file": "~/p/Db/Thing.schema", "records": 2, "entries": 3, "attributes": 3, "builds": [0, 10]}
  ],
  "messages": []
}
err: )");
    fs::remove_all(m_Scratch.GetPath() / "p/Db/All");
    EXPECT_NE(Run("info p/Db/Root.Gamdb00s").find("Records:               0\n"), std::string::npos);
    EXPECT_EQ(Run("list p/Db/Root.Gamdb00s"), "0\nerr: ");
}

TEST_F(CCorvanectl, ListTakesWhatFitsThePattern)
{
    WriteFamily();
    WriteRecord("a\"\x1b"
                "b",
                u"");
    const std::string beasts = "All/Beasts/Elder\nAll/Beasts/Root\nAll/Beasts/Grey/Wolf\n";
    const std::string things = "All/Shelf/a\" b\nAll/Shelf/One\nAll/Shelf/Two\n";
    const std::pair<const char*, std::string> rows[] = {
        {"", "0\n" + beasts + things + "err: "},
        {"--schema beast", "0\n" + beasts + "err: "},
        {"--schema Thing '*/*/O*'", "0\nAll/Shelf/One\nerr: "},
        {"'?o?F'", "0\nAll/Beasts/Grey/Wolf\nerr: "},
        {"all/**/wolf", "0\nAll/Beasts/Grey/Wolf\nerr: "},
        {"'**/Beasts/**/*o*'", "0\nAll/Beasts/Root\nAll/Beasts/Grey/Wolf\nerr: "},
        {"all/beasts/", "0\n" + beasts + "err: "},
        {"'All/*'", "1\nerr: corvanectl: No record fits the pattern.\n"},
        {"'*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*a*b'", "1\nerr: corvanectl: No record fits the pattern.\n"},
        {"--schema Beats", "1\nerr: corvanectl: There is no schema 'Beats'. Near it:\n  Beast\n"},
    };
    for (const auto& [arguments, told] : rows)
        EXPECT_EQ(Run(std::string("list p/Db/Root.Gamdb00s ") + arguments), told) << arguments;
    EXPECT_EQ(Run("list p/Db/Root.Gamdb00s 'a*' --json"), R"(0
{
  "format": 1,
  "root": "~/p/Db/Root.Gamdb00s",
  "loaded": true,
  "records": [
    {"record": "All/Shelf/a\"\u001bb", "schema": "Thing", "file": "~/p/Db/All/a\"\u001bb.record"}
  ],
  "messages": []
}
err: )");
}

TEST_F(CCorvanectl, ShowNamesWhatWasMeant)
{
    WriteFamily();
    m_Scratch.WriteUtf16("p/Db/All/2.record",
                         u"[Record]\r\nSchema=Thing\r\nName=Two\r\nVirtualRelativeCategory=Shelf\r\n");
    const std::pair<const char*, const char*> rows[] = {
        {"show p/Db/Root.Gamdb00s wollf",
         "1\nerr: corvanectl: There is no record 'wollf'. Near it:\n  All/Beasts/Grey/Wolf\n"},
        {"show p/Db/Root.Gamdb00s Elsewhere", "1\nerr: corvanectl: There is no record 'Elsewhere'.\n"},
        {"show p/Db/Root.Gamdb00s two",
         "1\nerr: corvanectl: 'two' names 2 records:\n  All/Shelf/Two (~/p/Db/All/2.record)\n"
         "  All/Shelf/Two (~/p/Db/All/Two.record)\n"},
        {"show p/Db/Root.Gamdb00s One --attribute Conut",
         "1\nerr: corvanectl: The record has no attribute 'Conut'. Near it:\n  Count\n"},
        {"list p/Db/None.Gamdb00s",
         "3\nerr: Open Failed: The file '~/p/Db/None.Gamdb00s' could not be opened: no "
         "such file or directory.\ncorvanectl: The database could not be loaded.\n"},
    };
    for (const auto& [arguments, told] : rows)
        EXPECT_EQ(Run(arguments), told);
    EXPECT_EQ(Run("info p/Db/Root.Gamdb00s", {}, "/dev/full"),
              "4\nerr: corvanectl: The output could not be written: no space left on the disk.\n");
}

TEST_F(CCorvanectl, OverridesWritesBothFilesOrNeither)
{
    WriteFamily();
    const std::string overrides = "overrides p/Db/Root.Gamdb00s";
    EXPECT_EQ(Run(overrides),
              "4\nerr: corvanectl: The creator library '~/p/' is missing or writes no overrides.\n");
    m_Scratch.WriteBytes("p/x.proj00", "[Project Directories]\nResourceRoot=Data\n[Project Binaries]\n"
                                       "GameDatabase=" CREATOR_LIBRARY "\n");
    EXPECT_EQ(Run(overrides),
              "0\nerr: corvanectl: The overrides of build 0 are in '~/p/Db/MPCustomizations.txt', "
              "their limits in '~/p/Db/DBConstraints.dat'.\n");
    EXPECT_NE(m_Scratch.ReadBytes("p/Db/MPCustomizations.txt").find("\nAll/Beasts/Elder/Mass = 8\n"),
              std::string::npos);
    EXPECT_EQ(
        Run(overrides + " --build 10 --database late.txt --constraints=late.dat"),
        "0\nerr: corvanectl: The overrides of build 10 are in '~/late.txt', their limits in '~/late.dat'.\n");
    EXPECT_EQ(m_Scratch.ReadBytes("late.txt").find("Mass"), std::string::npos);

    m_Scratch.WriteBytes("late.txt", "old");
    m_Scratch.WriteBytes("late.dat", "old");
    const std::size_t before = TakeSnapshot().size();
    const std::pair<const char*, const char*> rows[] = {
        {" --database none/x", "The file '~/none/x' could not be written: no such file or directory."},
        {" --constraints p", "The file '~/p' could not be written: not a file of the wanted kind."},
        {" --database x --constraints X", "The text and the limits cannot be one file."},
    };
    for (const auto& [options, told] : rows)
        EXPECT_EQ(Run(overrides + options), "4\nerr: corvanectl: " + std::string(told) + "\n");
    EXPECT_EQ(Run(overrides + " --database late.txt --constraints late.dat", "ulimit -f 0; ").substr(0, 2),
              "4\n");
    EXPECT_EQ(m_Scratch.ReadBytes("late.txt") + m_Scratch.ReadBytes("late.dat"), "oldold");
    EXPECT_EQ(TakeSnapshot().size(), before) << "no temporary file is left";
}
