// The locator: where it is found, how its text is read, and what becomes of its paths.
#include "ProjectInfo.h"
#include "DiskFileSystem.h"
#include "MemoryFileSystem.h"
#include "ScratchDir.h"

#include <gtest/gtest.h>

#include <span>

namespace
{
CProjectInfo Read(std::u16string_view path, std::u16string_view text)
{
    CMemoryFileSystem files;
    files.AddText(path, text);
    CProjectInfo info;
    EXPECT_TRUE(info.ReadProjectFile(files, path));
    return info;
}

std::u16string ReadGame(std::string_view bytes)
{
    CMemoryFileSystem files;
    files.AddText(u"/p/x.proj00", u"");
    EXPECT_TRUE(files.WriteFile(u"/p/x.proj00", std::as_bytes(std::span(bytes))).IsOk());
    CProjectInfo info;
    EXPECT_TRUE(info.ReadProjectFile(files, u"/p/x.proj00"));
    return info.m_sGame;
}
} // namespace

TEST(ProjectInfo, DirectoriesFollowThePathRule)
{
    struct SRow
    {
        std::u16string_view locator, value, expected;
    };
    const SRow rows[] = {
        {u"C:\\p\\x.proj00", u"..\\Game", u"C:\\Game\\"},
        {u"C:\\p\\x.proj00", u"D:\\Game", u"D:\\Game\\"},
        {u"C:\\p\\x.proj00", u"\\Game\\", u"\\Game\\"},
        {u"C:\\p\\x.proj00", u"", u"C:\\p\\"},
        {u"/home/p/x.proj00", u"../Game", u"/home/Game/"},
        {u"/home/p/x.proj00", u"./Game/./Data/", u"/home/p/Game/Data/"},
        {u"/home/p/x.proj00", u"/srv/Game", u"/srv/Game/"},
        {u"/home/p/x.proj00", u".", u"/home/p/"},
        {u"/home/p/x.proj00", u"", u"/home/p/"},
    };
    for (const SRow& row : rows)
    {
        const std::u16string text =
            u"[Project Directories]\r\nResourceRoot=" + std::u16string(row.value) + u"\r\n";
        const CProjectInfo info = Read(row.locator, text);
        EXPECT_EQ(info.m_sResourceRoot, row.expected) << std::string(row.value.begin(), row.value.end());
    }
}

TEST(ProjectInfo, EveryKeyReachesItsField)
{
    const CProjectInfo info = Read(
        u"C:\\p\\x.proj00", u"[General]\r\nGame=Outpost\r\n[Project Directories]\r\nToolsRoot=t\r\nPC=c\r\n"
                            u"Xenon=n\r\n[Project Binaries]\r\nVisualFx=v.dll\r\nGameServer=bin\\s.dll\r\n"
                            u"GameDatabase=D:\\lib\\db.dll\r\n[Tools Launch]\r\nPCBinary=1\r\nPCWorking=2\r\n"
                            u"XenonBinary=3\r\nXenonWorking=4\r\n[Source Control]\r\nProvider={P}\r\n"
                            u"Database=%PROJDIR%depot%PROJDIR%\r\n");
    EXPECT_EQ(info.m_sProjectDirectory, u"C:\\p\\");
    EXPECT_EQ(info.m_sGame, u"Outpost");
    EXPECT_EQ(info.m_sToolsRoot, u"C:\\p\\t\\");
    EXPECT_EQ(info.m_sPC, u"C:\\p\\c\\");
    EXPECT_EQ(info.m_sXenon, u"C:\\p\\n\\");
    EXPECT_EQ(info.m_sVisualFx, u"C:\\p\\v.dll");
    EXPECT_EQ(info.m_sGameServer, u"C:\\p\\bin\\s.dll");
    EXPECT_EQ(info.m_sGameDatabase, u"D:\\lib\\db.dll");
    EXPECT_EQ(info.m_sPCBinary, u"C:\\p\\1");
    EXPECT_EQ(info.m_sPCWorking, u"C:\\p\\2");
    EXPECT_EQ(info.m_sXenonBinary, u"C:\\p\\3");
    EXPECT_EQ(info.m_sXenonWorking, u"C:\\p\\4");
    EXPECT_EQ(info.m_sProvider, u"{P}");
    EXPECT_EQ(info.m_sDatabase, u"C:\\p\\depot%PROJDIR%");
}

TEST(ProjectInfo, LinesAreReadLeniently)
{
    struct SRow
    {
        std::u16string_view text, game;
    };
    const SRow rows[] = {
        {u"[General]\nGame=a", u"a"},
        {u"[general]\rGAME = a b \r", u"a b"},
        {u"  [ General ]\n\t Game\t=\t\" a \"\n", u" a "},
        {u"[General]\nGame=\"\"a\"\"\n", u"\"a\""},
        {u"[General]\nGame=\"\n", u"\""},
        {u"[General]\n; Game=no\n ;Game=no\nGame=a;b\n", u"a;b"},
        {u"[General]\nGame=first\nGame=second\n", u"first"},
        {u"[General]\nOther=1\n[General]\nGame=second\n", u""},
        {u"Game=outside\n[General]\n", u""},
        {u"[Other]\nGame=x\n[General]\nGame=a=b\n", u"a=b"},
        {u"[General\nGame=a\n", u"a"},
        {u"", u""},
    };
    for (const SRow& row : rows)
        EXPECT_EQ(Read(u"/p/x.proj00", row.text).m_sGame, row.game)
            << std::string(row.text.begin(), row.text.end());
    const std::u16string large(300, u'x');
    EXPECT_EQ(Read(u"/p/x.proj00", u"[General]\nGame=" + large).m_sGame.size(), 260U);
}

TEST(ProjectInfo, TheEncodingIsFound)
{
    using namespace std::string_view_literals;
    EXPECT_EQ(ReadGame("[General]\nGame=\xC3\xBC\xE2\x82\xAC"sv), u"\u00fc\u20ac");
    EXPECT_EQ(ReadGame("\xEF\xBB\xBF[General]\nGame=\xC3\xBC"sv), u"\u00fc");
    EXPECT_EQ(ReadGame("[General]\nGame=\xFC\x80\x9F"sv), u"\u00fc\u20ac\u0178");
    EXPECT_EQ(ReadGame("\xFF\xFE[\0G\0e\0n\0e\0r\0a\0l\0]\0\n\0G\0a\0m\0e\0=\0\xFC\0"sv), u"\u00fc");
    EXPECT_EQ(ReadGame("\xFE\xFF\0[\0G\0e\0n\0e\0r\0a\0l\0]\0\n\0G\0a\0m\0e\0=\0\xFC"sv), u"\u00fc");
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

    CProjectInfo info;
    ASSERT_TRUE(LocateProject(files, scratch.Text("top/mid/data/root.Gamdb00s"), info));
    EXPECT_EQ(info.m_sGame, u"mid");
    EXPECT_EQ(info.m_sProjectDirectory, scratch.Text("top/mid/"));
    EXPECT_EQ(info.m_sResourceRoot, scratch.Text("top/mid/"));
    // The root file need not exist; a directory of a locator's name is none; of several, the first in order.
    ASSERT_TRUE(LocateProject(files, scratch.Text("top/side/root.Gamdb00s"), info));
    EXPECT_EQ(info.m_sGame, u"top A");
    std::u16string path;
    EXPECT_TRUE(FindProjectFile(files, scratch.Text("top"), path));
    EXPECT_EQ(path, scratch.Text("top/A.PROJ00"));
    EXPECT_FALSE(FindProjectFile(files, scratch.Text("top/side"), path));
    EXPECT_FALSE(LocateProject(files, u"/root.Gamdb00s", info));

    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(scratch.GetPath() / "top/mid/data");
    EXPECT_TRUE(LocateProject(files, u"root.Gamdb00s", info));
    EXPECT_EQ(info.m_sGame, u"mid");
    EXPECT_TRUE(LocateProject(files, u"..\\..\\other.Gamdb00s", info));
    EXPECT_EQ(info.m_sGame, u"top A");
    std::filesystem::current_path(before);
}
