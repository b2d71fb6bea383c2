// The locator: where it is found, how its text is read, and what becomes of its paths.
#include "ProjectInfo.h"
#include "DiskFileSystem.h"
#include "MemoryFileSystem.h"
#include "ScratchDir.h"
#include "Unicode.h"

#include <gtest/gtest.h>

#include <span>

namespace
{
CProjectInfo Read(std::u16string_view path, std::string_view bytes)
{
    CMemoryFileSystem files;
    files.AddText(path, u"");
    EXPECT_TRUE(files.WriteFile(path, std::as_bytes(std::span(bytes))).IsOk());
    CProjectInfo info;
    EXPECT_TRUE(info.ReadProjectFile(files, path));
    return info;
}
} // namespace

TEST(ProjectInfo, DirectoriesFollowThePathRule)
{
    const char* rows[][3] = {{"C:\\p\\x.proj00", "..\\Game", "C:\\Game\\"},
                             {"C:\\p\\x.proj00", "D:\\Game", "D:\\Game\\"},
                             {"C:\\p\\x.proj00", "\\Game\\", "\\Game\\"},
                             {"C:\\p\\x.proj00", "", "C:\\p\\"},
                             {"/home/p/x.proj00", "../Game", "/home/Game/"},
                             {"/home/p/x.proj00", "./Game/./Data/", "/home/p/Game/Data/"},
                             {"/home/p/x.proj00", "/srv/Game", "/srv/Game/"},
                             {"/home/p/x.proj00", ".", "/home/p/"},
                             {"/home/p/x.proj00", "", "/home/p/"}};
    for (const auto& [locator, value, expected] : rows)
    {
        const std::string text = "[Project Directories]\r\nResourceRoot=" + std::string(value);
        EXPECT_EQ(ToNarrow(Read(ToWide(locator), text).m_sResourceRoot), expected) << value;
    }
}

TEST(ProjectInfo, EveryKeyReachesItsField)
{
    const CProjectInfo info = Read(
        u"C:\\p\\x.proj00", "[General]\r\nGame=Outpost\r\n[Project Directories]\r\nToolsRoot=t\r\nPC=c\r\n"
                            "Xenon=n\r\n[Project Binaries]\r\nVisualFx=v.dll\r\nGameServer=bin\\s.dll\r\n"
                            "GameDatabase=D:\\lib\\db.dll\r\n[Tools Launch]\r\nPCBinary=1\r\nPCWorking=2\r\n"
                            "XenonBinary=3\r\nXenonWorking=4\r\n[Source Control]\r\nProvider={P}\r\n"
                            "Database=%PROJDIR%depot%PROJDIR%\r\n");
    std::string fields;
    for (const std::u16string* field :
         {&info.m_sProjectDirectory, &info.m_sGame, &info.m_sToolsRoot, &info.m_sPC, &info.m_sXenon,
          &info.m_sVisualFx, &info.m_sGameServer, &info.m_sGameDatabase, &info.m_sPCBinary,
          &info.m_sPCWorking, &info.m_sXenonBinary, &info.m_sXenonWorking, &info.m_sProvider,
          &info.m_sDatabase})
        fields += ToNarrow(*field) + " ";
    EXPECT_EQ(fields, "C:\\p\\ Outpost C:\\p\\t\\ C:\\p\\c\\ C:\\p\\n\\ C:\\p\\v.dll C:\\p\\bin\\s.dll "
                      "D:\\lib\\db.dll C:\\p\\1 C:\\p\\2 C:\\p\\3 C:\\p\\4 {P} C:\\p\\depot%PROJDIR% ");
}

TEST(ProjectInfo, LinesAreReadLenientlyInAnyEncoding)
{
    using namespace std::string_view_literals;
    const std::pair<std::string_view, std::u16string_view> rows[] = {
        {"[General]\nGame=a", u"a"},
        {"[general]\rGAME = a b \r", u"a b"},
        {"  [ General ]\n\t Game\t=\t\" a \"\n", u" a "},
        {"[General]\nGame=\"\"a\"\"\n", u"\"a\""},
        {"[General]\nGame=\"\n", u"\""},
        {"[General]\n; Game=no\n ;Game=no\nGame=a;b\n", u"a;b"},
        {"[General]\nGame=first\nGame=second\n", u"first"},
        {"[General]\nOther=1\n[General]\nGame=second\n", u""},
        {"Game=outside\n[General]\n", u""},
        {"[Other]\nGame=x\n[General]\nGame=a=b\n", u"a=b"},
        {"[General\nGame=a\n", u"a"},
        {"", u""},
        {"[General]\nGame=\xC3\xBC\xE2\x82\xAC", u"\u00fc\u20ac"},
        {"\xEF\xBB\xBF[General]\nGame=\xC3\xBC", u"\u00fc"},
        {"[General]\nGame=\xFC\x80\x9F", u"\u00fc\u20ac\u0178"},
        {"\xFF\xFE[\0G\0e\0n\0e\0r\0a\0l\0]\0\n\0G\0a\0m\0e\0=\0\xFC\0"sv, u"\u00fc"},
        {"\xFE\xFF\0[\0G\0e\0n\0e\0r\0a\0l\0]\0\n\0G\0a\0m\0e\0=\0\xFC"sv, u"\u00fc"}};
    for (const auto& [bytes, game] : rows)
        EXPECT_EQ(Read(u"/p/x.proj00", bytes).m_sGame, game) << bytes;
    EXPECT_EQ(Read(u"/p/x.proj00", "[General]\nGame=" + std::string(300, 'x')).m_sGame.size(), 260U);
}

TEST(LocateProject, TheNearestLocatorOnTheWayUpWins)
{
    CScratchDir scratch;
    CDiskFileSystem files;
    scratch.WriteBytes("top/b.proj00", "[General]\nGame=top b\n");
    scratch.WriteBytes("top/A.PROJ00", "[General]\nGame=top A\n");
    scratch.WriteBytes("top/mid/x.proj00", "[General]\nGame=mid\n");
    scratch.WriteBytes("top/mid/data/root.Gamdb00s", "");
    std::filesystem::create_directories(scratch.GetPath() / "top/side/dir.proj00");

    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(scratch.GetPath() / "top/mid/data");
    CProjectInfo info;
    const std::pair<std::u16string, std::u16string_view> rows[] = {
        {scratch.Text("top/mid/data/root.Gamdb00s"), u"mid"},
        // The root file need not exist; a directory of a locator's name is none; of several, the first in
        // order.
        {scratch.Text("top/side/root.Gamdb00s"), u"top A"},
        {u"root.Gamdb00s", u"mid"},
        {u"..\\..\\other.Gamdb00s", u"top A"}};
    for (const auto& [root, game] : rows)
    {
        ASSERT_TRUE(LocateProject(files, root, info));
        EXPECT_EQ(info.m_sGame, game) << ToNarrow(root);
    }
    EXPECT_EQ(info.m_sResourceRoot, scratch.Text("top/"));
    EXPECT_FALSE(LocateProject(files, u"/root.Gamdb00s", info));
    std::filesystem::current_path(before);
}
