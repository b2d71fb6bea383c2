// The command line's rules as a table, and the list of recent files.
#include "CorvaneCommandLineInfo.h"
#include "DiskFileSystem.h"
#include "Profile.h"
#include "RecentFileList.h"
#include "ScratchDir.h"
#include "Unicode.h"

#include <gtest/gtest.h>

#include <sstream>
#include <vector>

namespace
{
std::vector<std::u16string> Split(const std::string& line)
{
    std::vector<std::u16string> words;
    std::istringstream in(line);
    for (std::string word; in >> word;)
        words.push_back(ToWide(word));
    return words;
}

// Everything that was understood, in one line.
std::string Describe(const CCorvaneCommandLineInfo& info)
{
    std::string text = info.m_nShellCommand == EShellCommand::FileOpen ? "open" : "new";
    text += info.m_bSilent ? " silent" : "";
    text += info.m_bPack ? " pack" : "";
    const std::pair<const char*, const std::u16string*> fields[] = {
        {" file=", &info.m_strFileName}, {" output=", &info.m_sOutput},
        {" window=", &info.m_sWindow},   {" build=", &info.m_sBuildNumber},
        {" log=", &info.m_sLog},         {" update=", &info.m_sUpdateDependency},
    };
    for (const auto& [name, value] : fields)
        text += value->empty() ? "" : name + ToNarrow(*value);
    return text + " state=" + std::to_string(static_cast<int>(info.m_nParameterState));
}
} // namespace

TEST(CommandLine, SwitchesAndParametersFindTheirPlaces)
{
    const std::pair<const char*, const char*> rows[] = {
        {"", "new state=0"},
        {"root", "open file=root state=0"},
        {"root second", "open file=root state=0"},
        {"-Output a b c", "open file=b output=a state=1"},
        {"-Output a -Pack b", "open pack file=b output=a state=1"},
        {"-Output -Pack a b", "open pack file=b output=a state=1"},
        {"-Output -Silent", "new silent state=1"},
        {"-pack /PACK -sILENT", "new silent pack state=0"},
        {"-Window 12 -BuildNumber 7 -Log l -UpdateDependency d -Output o r",
         "open file=r output=o window=12 build=7 log=l update=d state=1"},
        {"-Log l -Output o -Log m", "open file=m output=o log=l state=4"},
        {"-Log -Window 5 x", "open file=x window=5 state=2"},
        {"-Pack /home/me/root", "open pack file=/home/me/root state=0"},
        {"/packs /Silent /log /var/log/x", "open silent file=/packs log=/var/log/x state=4"},
        {"/", "open file=/ state=0"},
        {"-x --help -h -Register -dde -Packs - -Output=o", "new state=0"},
        {"-BuildNumber -5 root", "new build=root state=3"},
    };
    CDiskFileSystem files;
    for (const auto& [arguments, expected] : rows)
    {
        CCorvaneCommandLineInfo info;
        info.ParseCommandLine(files, Split(arguments));
        EXPECT_EQ(Describe(info), expected) << arguments;
    }
}

TEST(CommandLine, OnlyRootFileAndOutputTakeTheSpellingOfTheDisk)
{
    const CScratchDir scratch;
    scratch.WriteBytes("Data/Root.Gamdb00s", "");
    CDiskFileSystem files;
    CCorvaneCommandLineInfo info;
    const std::u16string typed = scratch.Text("data\\ROOT.gamdb00s");
    const std::u16string onDisk = scratch.Text("Data/Root.Gamdb00s");
    info.ParseCommandLine(files, std::vector<std::u16string>{u"-Log", typed, u"-Output", typed, typed});
    EXPECT_EQ(Describe(info),
              ToNarrow(u"open file=" + onDisk + u" output=" + onDisk + u" log=" + typed + u" state=1"));
    CCorvaneCommandLineInfo fresh;
    fresh.ParseCommandLine(files, std::vector<std::u16string>{u"-Output", u"New\\..\\new.bin"});
    EXPECT_EQ(fresh.m_sOutput, u"New\\..\\new.bin");
}

TEST(CommandLine, WindowHandlesAreHexadecimalOrDecimal)
{
    for (const auto& [text, expected] :
         {std::pair(u"", 0U), std::pair(u"0x00", 0U), std::pair(u"0x", 0U), std::pair(u"12", 12U),
          std::pair(u"0x12", 0x12U), std::pair(u"0XfF", 255U), std::pair(u"x1", 0U), std::pair(u"12abc", 12U),
          std::pair(u"0xFFFFFFFF", 0xFFFFFFFFU), std::pair(u"0x1g", 1U)})
        EXPECT_EQ(ParseWindowHandle(text), expected) << ToNarrow(text);
}

TEST(RecentFileList, TheNewestComesFirstAndEachOnce)
{
    const CScratchDir scratch;
    CDiskFileSystem files;
    CProfile profile(files, scratch.Text("p.ini"));
    CRecentFileList list;
    for (const char16_t name : std::u16string(u"abcdefghij"))
        list.Add(std::u16string(u"/db/") + name);
    list.Add(u"/DB/E");
    list.Add(list.GetFiles().back());
    list.Store(profile);
    CRecentFileList again;
    again.Load(profile);
    std::string names;
    for (const std::u16string& name : again.GetFiles())
        names += ToNarrow(name) + ' ';
    EXPECT_EQ(names, "/db/c /DB/E /db/j /db/i /db/h /db/g /db/f /db/d ");
}
